// What the module of WebAssembly has beside the three libraries: functions for a kit_screen_host
// that ask JavaScript, as nothing else can be pointed to, and the opening of files. What has no
// body here is the loader's.
#include "orvel_screen.h"

extern "C" {

const orvel_canvas* orvel_js_picture(void* self, const char* name);
const orvel_theme* orvel_js_theme(void* self, const char* name);
const kit_face* orvel_js_face(void* self, const char* name);
const char* orvel_js_include(void* self, const char* name, size_t* length);
long orvel_js_open(const char* path, long flags);

// A host that asks for everything, to be copied and given a self.
__attribute__((export_name("orvel_js_host"))) const kit_screen_host* orvel_js_host() {
    static const kit_screen_host host = {.picture = orvel_js_picture,
                                         .theme = orvel_js_theme,
                                         .face = orvel_js_face,
                                         .include = orvel_js_include};
    return &host;
}

// In place of the C library's own, which opens nothing but the standard streams.
long orvel_js_open_file(const char* path, long flags, ...) __asm__("__syscall_open");
long orvel_js_open_file(const char* path, long flags, ...) { return orvel_js_open(path, flags); }

}  // extern "C"
