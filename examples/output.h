/* Where the example programs leave their pictures, and how they fail. */
#ifndef EXAMPLES_OUTPUT_H
#define EXAMPLES_OUTPUT_H

#include <errno.h>
#include <orvel.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* The program's only argument: the folder for its pictures. */
static inline const char* output_folder(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        exit(2);
    }
    return argv[1];
}

static inline orvel_canvas* new_canvas(int width, int height) {
    orvel_canvas* canvas = orvel_canvas_create(width, height);
    if (!canvas) {
        fprintf(stderr, "no memory for a canvas of %d x %d\n", width, height);
        exit(1);
    }
    return canvas;
}

typedef int picture_writer(const orvel_canvas* canvas, const char* path);

/* Writes FOLDER/NAME with one of the library's two writers and prints that path. */
static inline void save(const orvel_canvas* canvas, picture_writer* writer, const char* folder,
                        const char* name) {
    char path[4096];
    const int length = snprintf(path, sizeof path, "%s/%s", folder, name);
    errno = 0;
    if (length < 0 || (size_t)length >= sizeof path) errno = ENAMETOOLONG;
    if (errno != 0 || writer(canvas, path) != 0) {
        fprintf(stderr, "cannot write %s/%s: %s\n", folder, name, strerror(errno));
        exit(1);
    }
    puts(path);
}

#endif
