#include "sound/tone_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/descriptors_posix.h"

namespace orvel {
namespace {

/// An ordinary file of this user's that has no second name.
bool is_own_file(const struct stat& info) {
    return is_regular(info) && info.st_nlink == 1 && info.st_uid == geteuid();
}

/// Opens the tone file as "wb" would, or returns -1. Everybody can put something at that path, so
/// links are not followed, FIFOs not waited for, and nothing is emptied before it has proved to be
/// this user's.
int open_tone_file() {
    const int file = open_promptly(kTonePath, O_WRONLY | O_CREAT | O_NOFOLLOW, is_own_file);
    if (file < 0) return -1;
    struct stat info = {};
    if (fstat(file, &info) == 0 && is_own_file(info) && ftruncate(file, 0) == 0) return file;
    close(file);
    return -1;
}

}  // namespace

void write_tone_file(const std::vector<unsigned char>& wav) {
    const int file = open_tone_file();
    // Deliberate: without the file the player still starts, on whatever lies at the path.
    if (file < 0) return;
    [[maybe_unused]] const ssize_t written = write(file, wav.data(), wav.size());
    close(file);
}

}  // namespace orvel
