#include "system/private_system.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace orvel_test {
namespace {

bool write_text(const char* path, const std::string& text) {
    const int file = open(path, O_WRONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool written = write(file, text.data(), text.size()) >= 0;
    close(file);
    return written;
}

bool show(const std::string& folder, const std::string& where) {
    return mount(folder.c_str(), where.c_str(), "none", MS_BIND | MS_REC, nullptr) == 0;
}

/// Mounts of our own: root may have them, others inside a user namespace, as the user they are.
bool unshare_mounts() {
    if (unshare(CLONE_NEWNS) == 0) return true;
    const std::string user = std::to_string(getuid()), group = std::to_string(getgid());
    return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 &&
           write_text("/proc/self/setgroups", "deny") &&
           write_text("/proc/self/uid_map", user + " " + user + " 1") &&
           write_text("/proc/self/gid_map", group + " " + group + " 1");
}

/// Shows a folder of the old /tmp at the same place below @p new_tmp.
bool keep(const std::string& folder, const std::string& new_tmp) {
    if (folder.rfind("/tmp/", 0) != 0) return true;
    const std::string place = new_tmp + folder.substr(4);
    std::error_code error;
    std::filesystem::create_directories(place, error);
    return !error && mount(folder.c_str(), place.c_str(), "none", MS_BIND, nullptr) == 0;
}

bool s_private = false;

bool enter_private_system() {
    const std::string workshop = "/mnt";  // covered for a moment, in our own view only
    const std::string current = std::filesystem::current_path();
    if (!unshare_mounts() || mount("none", "/", "none", MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("none", workshop.c_str(), "tmpfs", 0, "mode=1777") != 0) {
        return false;
    }
    if (!keep(ORVEL_SOURCE_DIR, workshop) || !keep(ORVEL_BINARY_DIR, workshop) ||
        !show(workshop, "/tmp") || umount2(workshop.c_str(), MNT_DETACH) != 0) {
        return false;
    }
    unsetenv("TMPDIR");
    return chdir(current.c_str()) == 0 || chdir("/tmp") == 0;
}

/// Enters it before the first test, when no thread has started and no folder been made.
class PrivateSystem : public testing::Environment {
    void SetUp() override { s_private = enter_private_system(); }
};
const testing::Environment* const s_environment =
    testing::AddGlobalTestEnvironment(new PrivateSystem);

}  // namespace

bool cover(const std::string& where, const std::string& folder) {
    return s_private && show(folder, where);
}

void uncover(const std::string& where) { umount2(where.c_str(), MNT_DETACH); }

}  // namespace orvel_test
