#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "screen/sources.h"

namespace kit {
namespace {

class Descriptor {
public:
    explicit Descriptor(const char* path)
        : number_(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {}
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    /// As read() returns it, but a signal does not end it.
    ssize_t take(char* to, std::size_t size) const {
        ssize_t count = 0;
        do {
            count = read(number_, to, size);
        } while (count < 0 && errno == EINTR);  // GCOVR_EXCL_BR_LINE: only on a network
        return count;
    }

private:
    int number_;
};

}  // namespace

bool read_scene_file(const std::string& path, std::size_t most, std::string& bytes) {
    const Descriptor file(path.c_str());
    std::size_t size = 0;
    while (size <= most) {
        bytes.resize(std::min(most + 1, std::max<std::size_t>(2 * size, 65536)));
        const ssize_t count = file.take(bytes.data() + size, bytes.size() - size);
        if (count < 0) return false;
        size += static_cast<std::size_t>(count);
        if (count == 0) break;
    }
    bytes.resize(size);
    return true;
}

}  // namespace kit
