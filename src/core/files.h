// Files, opened the way a library inside someone else's process must; each platform has its own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace orvel {

/// A file, or none. It is closed with the object.
class File {
public:
    File() = default;
    ~File() {
        if (!stays_open_) close();
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    /// Opens @p path for binary reading; false when that fails. Never waits for the other end of a
    /// FIFO or for a device. Folders open where the platform opens them.
    bool open_for_reading(const char* path);

    /// Opens @p path for binary writing, created or emptied; false when that fails.
    bool open_for_writing(const char* path);

    /// Reads on, from the beginning, up to @p most bytes, and returns how many came: fewer than
    /// @p least only where the file ends or fails.
    std::size_t read(void* bytes, std::size_t least, std::size_t most);

    /// The bytes of the file; 0 for what has no size, such as a FIFO. From here on there is
    /// read_at() alone.
    std::int64_t size();

    /// Reads up to @p size bytes from @p position on, and returns how many came: fewer only where
    /// the file ends or fails, none where the position cannot be reached.
    std::size_t read_at(std::int64_t position, void* bytes, std::size_t size);

    /// Writes on. Nobody is told what could not be written.
    void write(const void* bytes, std::size_t size);

    void close();

    /// Whether the file is left open when the object goes.
    void stay_open(bool stays) { stays_open_ = stays; }

    /// On platforms that have such.
    int descriptor() const { return descriptor_; }

private:
    int descriptor_ = -1;  // of these two, the one that the platform has
    [[maybe_unused]] std::FILE* stream_ = nullptr;
    bool stays_open_ = false;
};

}  // namespace orvel
