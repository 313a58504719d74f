// Opening files the way a library inside someone else's process must; each platform has its own.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>

namespace orvel {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

/// Opens @p path for binary reading, or returns null. Never waits for the other end of a FIFO or
/// for a device. Folders open where the platform opens them.
File open_for_reading(const char* path);

/// Opens @p path for binary writing, created or emptied, or returns null.
File open_for_writing(const char* path);

/// Whether open_for_reading() would open @p path.
bool opens_for_reading(const char* path);

/// The bytes of a file; 0 for what has no size, such as a FIFO. Moves the position.
std::int64_t size_of(std::FILE* file);

/// Moves to @p position, counted from the beginning; false where that cannot be reached.
bool move_to(std::FILE* file, std::int64_t position);

}  // namespace orvel
