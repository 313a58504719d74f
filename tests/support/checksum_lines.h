/* Lines with checksums, held against those of a file: what programs have in common that every
 * machine runs. All of it stands here, so that such a program is one source. */
#ifndef ORVEL_CHECKSUM_LINES_H
#define ORVEL_CHECKSUM_LINES_H

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "orvel_kit.h"

static FILE* s_expected = NULL;
static int s_failures = 0;

/* Lines are compared with those of the file from now on; 0 when it cannot be read. */
static int expect_lines(const char* path) {
    s_expected = fopen(path, "r");
    return s_expected != NULL;
}

/* What the program ends with: 0 when all lines were those expected, and all of them came. */
static int status_of_lines(void) {
    if (s_expected) {
        s_failures += fgetc(s_expected) != EOF;
        fclose(s_expected);
    }
    return s_failures != 0;
}

/* FNV-1a (Fowler, Noll, Vo). */
static void tell_bytes(const char* what, const void* bytes, size_t size) {
    const unsigned char* const all = bytes;
    char line[200], expected[200] = "";
    uint64_t hash = 14695981039346656037u;
    size_t i;
    for (i = 0; i < size; ++i) hash = (hash ^ all[i]) * 1099511628211u;
    sprintf(line, "%s %08lx%08lx\n", what, (unsigned long)(hash >> 32),
            (unsigned long)(hash & 0xffffffffu));
    fputs(line, stdout);
    if (!s_expected) return;
    if (fgets(expected, sizeof expected, s_expected) && strcmp(line, expected) == 0) return;
    printf("expected: %s\n", expected);
    ++s_failures;
}

static void tell_pixels(const char* what, const orvel_canvas* canvas) {
    const int height = orvel_canvas_height(canvas);
    kit_format format = {0};
    const size_t size = kit_pixels_stride(&format, orvel_canvas_width(canvas)) * (size_t)height;
    unsigned char* const bytes = malloc(size);
    format.keep_alpha = 1;
    if (bytes && kit_pixels(canvas, NULL, &format, bytes, size, 0) == 0) {
        tell_bytes(what, bytes, size);
    } else {
        ++s_failures;
    }
    free(bytes);
}

#endif
