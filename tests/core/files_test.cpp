// How files are opened inside a host's process.
#include "core/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "support/child.h"
#include "support/files.h"
#include "system/recorded_system.h"

namespace {

using namespace orvel_test;

constexpr int kStreams[] = {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};

TEST(FilesTest, NoFileThatIsBeingReadOrWrittenReachesAChild) {
    const orvel::File read = orvel::open_for_reading("/dev/null");
    const orvel::File written = orvel::open_for_writing("/dev/null");
    EXPECT_EQ(fcntl(fileno(read.get()), F_GETFD), FD_CLOEXEC);
    EXPECT_EQ(fcntl(fileno(written.get()), F_GETFD), FD_CLOEXEC);
}

TEST(FilesTest, AFileThatIsWrittenGetsTheFirstNumberBehindTheStreamsWhicheverAreClosed) {
    for (int closed = 0; closed < 8; ++closed) {
        const int status = in_child([closed] {
            const int first = fcntl(STDERR_FILENO, F_DUPFD, STDERR_FILENO + 1);
            close(first);
            for (const int stream : kStreams) {
                if (closed >> stream & 1) close(stream);
            }
            const orvel::File file = orvel::open_for_writing("/dev/null");
            return fileno(file.get()) == first ? 0 : 1;
        });
        EXPECT_EQ(status, 0) << closed;
    }
}

TEST(FilesTest, AFileGetsNoNumberThatTheHostGivesUpWhileItIsOpened) {
    for (const int stream : kStreams) {
        const int status = in_child([stream] {
            recorded_system().closed_before_open = stream;
            const orvel::File file = orvel::open_for_writing("/dev/null");
            return fileno(file.get()) > STDERR_FILENO && fcntl(stream, F_GETFD) < 0 ? 0 : 1;
        });
        EXPECT_EQ(status, 0) << stream;
    }
}

TEST(FilesTest, AFileThatStaysUnderALeaseIsGivenUpAfterTwoMinutes) {
    const TempFolder folder;
    recorded_system() = {};
    recorded_system().busy_path = folder / "file";
    write_file(recorded_system().busy_path, "not empty");
    EXPECT_EQ(orvel::open_for_reading(recorded_system().busy_path.c_str()), nullptr);
    EXPECT_GT(recorded_system().seconds_slept, 115);
    EXPECT_LT(recorded_system().seconds_slept, 125);
    EXPECT_GT(recorded_system().busy_opens, 400);
}

TEST(FilesTest, NothingButAFileIsWaitedForWhateverItsOpeningSays) {
    const TempFolder folder;
    ASSERT_EQ(mkfifo((folder / "fifo").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/null", folder / "device");
    std::filesystem::create_directory(folder / "folder");
    for (const char* name : {"fifo", "device", "folder", "missing"}) {
        recorded_system() = {};
        recorded_system().busy_path = folder / name;
        EXPECT_FALSE(orvel::opens_for_reading(recorded_system().busy_path.c_str())) << name;
        EXPECT_EQ(recorded_system().busy_opens, 1) << name;
        EXPECT_EQ(recorded_system().seconds_slept, 0) << name;
    }
}

}  // namespace
