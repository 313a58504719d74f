// What fuzz targets stand on: a check that ends the run, resource files for the library to read,
// and the messages that it writes.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "canvas/canvas.h"
#include "orvel.h"

namespace fuzz {

/// Ends the run, which keeps the input as a finding, unless @p held.
inline void require(bool held, const char* what) {
    if (held) return;
    std::fprintf(stderr, "fuzz: %s\n", what);
    std::abort();
}

/// Whether the canvas consists of these pixels, which are as many. Not through the public calls:
/// they would take most of a run's time.
inline bool shows(const orvel_canvas* canvas, const orvel_color* pixels) {
    const std::size_t count = std::size_t(canvas->width) * std::size_t(canvas->height);
    return std::memcmp(canvas->pixels.get(), pixels, count * sizeof *pixels) == 0;
}

/// A resource root of the target's own, which the library uses. It is never on a disk where calls
/// can be wrapped (memory_files.cpp), and else a temporary folder (temporary_files.cpp). There is
/// one at a time.
class Resources {
public:
    Resources();
    ~Resources();
    Resources(const Resources&) = delete;
    Resources& operator=(const Resources&) = delete;

    const std::string& root() const { return root_; }
    /// The path of a file such as "Icons/input.bmp".
    std::string path(const std::string& file) const { return root_ + "/" + file; }

    void put(const std::string& file, const std::string& bytes) const;
    /// Empty when there is no such file.
    std::string get(const std::string& file) const;
    void remove(const std::string& file) const;

private:
    std::string root_;
};

/// What @p call writes to the standard error stream. The sanitizers, which write to the descriptor,
/// are still heard.
template <typename Call>
std::string messages_of(Call call) {
    static char* text = nullptr;
    static std::size_t size = 0;
    static std::FILE* const stream = open_memstream(&text, &size);
    std::rewind(stream);
    std::FILE* const real = stderr;
    stderr = stream;
    call();
    stderr = real;
    std::fflush(stream);
    return {text, size};
}

}  // namespace fuzz
