// Opening files the way a library inside someone else's process must.
#pragma once

#include <cstdio>
#include <memory>

namespace orvel {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

/// Opens @p path for binary reading, or returns null. Never waits for the other end of a FIFO, and
/// the descriptor does not reach child processes. Folders open where the platform opens them.
File open_for_reading(const char* path);

/// Opens @p path for binary writing, created or emptied, or returns null. The descriptor does not
/// reach child processes either and, where another is left, is none of the standard streams': a
/// host without these hands out their numbers, and what its threads print would land in the file.
File open_for_writing(const char* path);

/// Whether open_for_reading() would open @p path.
bool opens_for_reading(const char* path);

}  // namespace orvel
