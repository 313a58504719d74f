#include "find_font.h"

#include <fontconfig/fontconfig.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* The best match for a pattern; fontconfig always has one, if only in another family. */
static FcPattern* best_match(FcPattern* wanted) {
    FcResult result;
    FcConfigSubstitute(NULL, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    return FcFontMatch(NULL, wanted, &result);
}

static char* copy(const FcChar8* text) {
    const size_t size = strlen((const char*)text) + 1;
    char* result = malloc(size);
    return result ? memcpy(result, text, size) : NULL;
}

char* find_font(const char* name) {
    char* file = NULL;
    FcChar8 *family = NULL, *found_family = NULL, *found_file = NULL;
    FcPattern* wanted = FcNameParse((const FcChar8*)name);
    if (wanted && FcPatternGetString(wanted, FC_FAMILY, 0, &family) == FcResultMatch) {
        family = FcStrCopy(family); /* best_match() adds families to the pattern */
        FcPattern* found = best_match(wanted);
        if (found && FcPatternGetString(found, FC_FAMILY, 0, &found_family) == FcResultMatch &&
            FcPatternGetString(found, FC_FILE, 0, &found_file) == FcResultMatch &&
            FcStrCmpIgnoreCase(family, found_family) == 0) {
            file = copy(found_file);
        }
        if (found) FcPatternDestroy(found);
        FcStrFree(family);
    }
    if (wanted) FcPatternDestroy(wanted);
    FcFini(); /* gives all of its memory back; leave this out where fontconfig has other users */
    if (!file) fprintf(stderr, "find_font: %s: not installed\n", name);
    return file;
}
