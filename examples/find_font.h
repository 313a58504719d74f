/* Finds the file of an installed font by its name, with fontconfig. */
#ifndef FIND_FONT_H
#define FIND_FONT_H

#ifdef __cplusplus
extern "C" {
#endif

/* The file of a font such as "DejaVu Sans:bold", for free(). Null, with the reason on stderr, when
   that family is not installed: another one would not have the same pixels. */
char* find_font(const char* name);

#ifdef __cplusplus
}
#endif

#endif
