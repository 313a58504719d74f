/* A host without a line of C++ that is not linked to the library but loads it. What it does:
     cycles COUNT LIBRARY   loads, uses and unloads it, and prints what that leaves behind
     late LIBRARY PICTURE   loads it after its own exit handler was registered, which draws
     worlds LIBRARY         loads it into two worlds at once and prints whose state is whose
     bitmap LIBRARY FOLDER  draws the bitmap "hostile" of that resource root
     memory LIBRARY         asks for more pixels than there is memory, without a way to catch that
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <fcntl.h>
#include <malloc.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/resource.h>

#include "orvel.h"

static const char* s_picture;

struct library {
    void* handle;
    int (*init)(void);
    void (*shutdown)(void);
    int (*set_resource_path)(const char*);
    orvel_canvas* (*canvas_create)(int, int);
    void (*canvas_destroy)(orvel_canvas*);
    void (*text_draw)(orvel_canvas*, const char*, int, int, orvel_color);
    int (*icon_draw_bitmap)(orvel_canvas*, const char*, int, int);
    int (*canvas_save_bmp)(const orvel_canvas*, const char*);
};

static void find(const struct library* library, const char* name, void* function) {
    void* const found = dlsym(library->handle, name);
    if (!found) {
        fprintf(stderr, "%s\n", dlerror());
        exit(1);
    }
    memcpy(function, &found, sizeof found);
}

static struct library use(void* handle) {
    struct library library = {.handle = handle};
    if (!handle) {
        fprintf(stderr, "%s\n", dlerror());
        exit(1);
    }
    find(&library, "orvel_init", &library.init);
    find(&library, "orvel_shutdown", &library.shutdown);
    find(&library, "orvel_set_resource_path", &library.set_resource_path);
    find(&library, "orvel_canvas_create", &library.canvas_create);
    find(&library, "orvel_canvas_destroy", &library.canvas_destroy);
    find(&library, "orvel_text_draw", &library.text_draw);
    find(&library, "orvel_icon_draw_bitmap", &library.icon_draw_bitmap);
    find(&library, "orvel_canvas_save_bmp", &library.canvas_save_bmp);
    return library;
}

static int lines_of(const char* path) {
    static char block[65536]; /* no allocation, which would be counted */
    FILE* const file = fopen(path, "r");
    int lines = 0;
    if (!file) return -1;
    setvbuf(file, block, _IOFBF, sizeof block);
    for (int c; (c = getc(file)) != EOF;) lines += c == '\n';
    fclose(file);
    return lines;
}

static int open_descriptors(void) {
    int count = 0;
    for (int descriptor = 0; descriptor < 1024; ++descriptor) {
        count += fcntl(descriptor, F_GETFD) >= 0;
    }
    return count;
}

static void load_and_unload(const char* path) {
    struct library library = use(dlopen(path, RTLD_NOW | RTLD_LOCAL));
    orvel_canvas* const canvas = library.canvas_create(40, 20);
    library.init();
    library.set_resource_path("/a/root/that/is/too/long/for/a/string/without/memory/of/its/own");
    library.text_draw(canvas, "Orvel", 2, 2, (orvel_color){255, 255, 255, 255});
    library.icon_draw_bitmap(canvas, "missing", 0, 0);
    library.canvas_destroy(canvas);
    dlclose(library.handle);
}

struct traces {
    int mappings, descriptors;
    long heap;
};

static struct traces look(void) {
    return (struct traces){lines_of("/proc/self/maps"), open_descriptors(),
                           (long)mallinfo2().uordblks};
}

static int cycles(int count, const char* path) {
    enum { kSettled = 100 };
    struct traces before = {0}, after;
    for (int i = 0; i < count; ++i) {
        load_and_unload(path);
        if (i == kSettled) before = look();
    }
    after = look();
    printf("mappings %d\n", after.mappings - before.mappings);
    printf("descriptors %d\n", after.descriptors - before.descriptors);
    printf("heap %ld\n", after.heap - before.heap);
    printf("loaded %d\n", dlopen(path, RTLD_NOW | RTLD_NOLOAD) != NULL);
    return 0;
}

static struct library s_late;

static void draw_at_exit(void) {
    orvel_canvas* const canvas = s_late.canvas_create(12, 7);
    s_late.shutdown();
    printf("bitmap %d\n", s_late.icon_draw_bitmap(canvas, "dot", 0, 0));
    printf("picture %d\n", s_late.canvas_save_bmp(canvas, s_picture));
    s_late.set_resource_path("/another/root/that/needs/some/memory/of/its/own");
    printf("bitmap elsewhere %d\n", s_late.icon_draw_bitmap(canvas, "dot", 0, 0));
    s_late.canvas_destroy(canvas);
}

static int late(const char* path, const char* picture) {
    s_picture = picture;
    atexit(draw_at_exit);
    s_late = use(dlopen(path, RTLD_NOW | RTLD_LOCAL));
    s_late.init();
    s_late.set_resource_path("/a/root/that/needs/some/memory/of/its/own/as/well");
    return 0;
}

static int worlds(const char* path) {
    struct library here = use(dlopen(path, RTLD_NOW | RTLD_LOCAL));
    struct library there = use(dlmopen(LM_ID_NEWLM, path, RTLD_NOW | RTLD_LOCAL));
    here.init();
    there.shutdown(); /* silent: only the other one was initialised */
    there.init();
    here.shutdown();
    there.shutdown();
    dlclose(there.handle);
    dlclose(here.handle);
    return 0;
}

/* What follows ends this host, without a core file. */
static void say_before(void) {
    const struct rlimit no_core = {0, 0};
    setrlimit(RLIMIT_CORE, &no_core);
    puts("before");
    fflush(stdout);
}

static int bitmap(const char* path, const char* folder) {
    struct library library = use(dlopen(path, RTLD_NOW | RTLD_LOCAL));
    library.set_resource_path(folder);
    say_before();
    library.icon_draw_bitmap(library.canvas_create(4, 4), "hostile", 0, 0);
    puts("after");
    return 0;
}

static int memory(const char* path) {
    struct library library = use(dlopen(path, RTLD_NOW | RTLD_LOCAL));
    const struct rlimit limit = {1u << 30, 1u << 30};
    setrlimit(RLIMIT_AS, &limit);
    say_before();
    library.canvas_create(65536, 65536);
    puts("after");
    return 0;
}

int main(int count, char** arguments) {
    const char* const what = count > 1 ? arguments[1] : "";
    if (count == 4 && strcmp(what, "cycles") == 0) return cycles(atoi(arguments[2]), arguments[3]);
    if (count == 4 && strcmp(what, "late") == 0) return late(arguments[2], arguments[3]);
    if (count == 4 && strcmp(what, "bitmap") == 0) return bitmap(arguments[2], arguments[3]);
    if (count == 3 && strcmp(what, "worlds") == 0) return worlds(arguments[2]);
    if (count == 3 && strcmp(what, "memory") == 0) return memory(arguments[2]);
    fprintf(stderr, "%s: see the head of its source for what it can do\n", arguments[0]);
    return 2;
}
