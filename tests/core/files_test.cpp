// How the library opens files inside a host's process.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <string>
#include <thread>

#include "orvel.h"
#include "support/bitmap_files.h"
#include "support/child.h"
#include "support/files.h"
#include "support/picture.h"
#include "system/ledger.h"
#include "system/system.h"

namespace {

using namespace orvel_test;

constexpr int kStreams[] = {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};

class FilesTest : public testing::Test {
protected:
    FilesTest() {
        take_over_system(folder / "tone.wav");
        begin_anew(folder / "no-player");
        orvel_set_resource_path(folder.path().c_str());
    }

    /// Writes a picture, and the number that its file had.
    int write() const {
        EXPECT_EQ(orvel_canvas_save_bmp(canvas.get(), "/dev/null"), 0);
        return machine().opened_as;
    }

    /// Draws a picture, and the number that its file had.
    int read() const {
        EXPECT_EQ(orvel_icon_draw_bitmap(canvas.get(), "two.bmp", 0, 0), 0);
        return machine().opened_as;
    }

    /// The calls that @p body lets the library make, which fail by @p plan.
    template <typename Body>
    std::vector<Call> calls_of(const Body& body, const Plan& plan = {}) const {
        begin_run(plan);
        captured([&body] {
            const Armed armed;
            body();
        });
        return calls_of_run();
    }

    /// How often @p body lets the library make that call.
    template <typename Body>
    std::ptrdiff_t count_of(Call call, const Body& body) const {
        const std::vector<Call> made = calls_of(body);
        return std::count(made.begin(), made.end(), call);
    }

    /// Plays a track that is always found under a lease; how often it was tried.
    std::ptrdiff_t tries_to_play(const char* name) const {
        always(Call::open, Way::leased);
        return count_of(Call::open, [name] { EXPECT_EQ(orvel_play_music(name), -1); });
    }

    const TempFolder folder;
    const CanvasPtr canvas = make_canvas(2, 2);
};

TEST_F(FilesTest, NoFileThatIsBeingReadOrWrittenReachesAChild) {
    write_file(folder / "Music/track.wav", "a track");
    captured([] { EXPECT_EQ(orvel_play_music("track"), 0); });
    EXPECT_NE(machine().opened_flags & O_CLOEXEC, 0);
    machine().opened_flags = 0;
    write();
    EXPECT_NE(machine().opened_flags & O_CLOEXEC, 0);
    orvel_stop_music();
}

TEST_F(FilesTest, AFileThatIsWrittenGetsTheFirstNumberBehindTheStreamsWhicheverAreClosed) {
    for (int closed = 0; closed < 8; ++closed) {
        const int status = in_child([this, closed] {
            const int first = fcntl(STDERR_FILENO, F_DUPFD, STDERR_FILENO + 1);
            close(first);
            for (const int stream : kStreams) {
                if (closed >> stream & 1) close(stream);
            }
            return write() == first ? 0 : 1;
        });
        EXPECT_EQ(status, 0) << closed;
    }
}

TEST_F(FilesTest, AFileThatIsReadKeepsNoNumberOfAStreamWhicheverAreClosed) {
    write_file(folder / "Icons/two.bmp", BmpHeader{2, 2}.bytes() + kTwoByTwo);
    for (int closed = 0; closed < 8; ++closed) {
        const int status = in_child([this, closed] {
            const int first = fcntl(STDERR_FILENO, F_DUPFD, STDERR_FILENO + 1);
            close(first);
            for (const int stream : kStreams) {
                if (closed >> stream & 1) close(stream);
            }
            const int before = open_descriptors();
            if (read() != first) return 1;
            return open_descriptors() == before ? 0 : 2;
        });
        EXPECT_EQ(status, 0) << closed;
    }
}

TEST_F(FilesTest, AFileGetsNoNumberThatTheHostGivesUpWhileItIsOpened) {
    for (const int stream : kStreams) {
        const int status = in_child([this, stream] {
            machine().meanwhile = [stream] { close(stream); };
            return write() > STDERR_FILENO && fcntl(stream, F_GETFD) < 0 ? 0 : 1;
        });
        EXPECT_EQ(status, 0) << stream;
    }
}

TEST_F(FilesTest, AStreamThatTheHostOpensWhileItIsHeldStaysTheHosts) {
    const int status = in_child([this] {
        close(STDERR_FILENO);
        const int before = open_descriptors();
        machine().meanwhile = [] { [[maybe_unused]] const int taken = dup(STDIN_FILENO); };
        if (write() <= STDERR_FILENO) return 1;
        if (fcntl(STDERR_FILENO, F_GETFD) < 0) return 2;
        return open_descriptors() == before + 1 ? 0 : 3;
    });
    EXPECT_EQ(status, 0);
}

TEST_F(FilesTest, APictureIsOpenedOnceUnderEachNameThatIsTried) {
    write_file(folder / "Icons/two.bmp", BmpHeader{2, 2}.bytes() + kTwoByTwo);
    const auto drawn = [this](const char* name, int result) {
        return count_of(Call::open, [&] {
            EXPECT_EQ(orvel_icon_draw_bitmap(canvas.get(), name, 0, 0), result);
        });
    };
    EXPECT_EQ(drawn("two.bmp", 0), 1);
    EXPECT_EQ(drawn("two", 0), 3);       // .wav, .mp3, .bmp
    EXPECT_EQ(drawn("missing", -1), 8);  // seven extensions, and none
    EXPECT_EQ(drawn("missing.bmp", -1), 1);
}

TEST_F(FilesTest, AnIconOf64By64IsReadAtOnceBehindItsHeader) {
    write_file(folder / "Icons/icon.bmp",
               BmpHeader{64, 64, 32}.bytes() + std::string(64 * 64 * 4, 'x'));
    const auto draw = [this] { orvel_icon_draw_bitmap(canvas.get(), "icon.bmp", 0, 0); };
    EXPECT_EQ(count_of(Call::read, draw), 1);
    EXPECT_EQ(count_of(Call::pread, draw), 1);
}

TEST_F(FilesTest, AWriteThatIsInterruptedIsMadeAgain) {
    const std::string path = folder / "saved.bmp";
    const auto save = [&] {
        std::filesystem::remove(path);
        EXPECT_EQ(orvel_canvas_save_bmp(canvas.get(), path.c_str()), 0);
    };
    const std::vector<Call> made = calls_of(save);
    const std::string whole = read_file(path);
    EXPECT_EQ(std::count(made.begin(), made.end(), Call::write), 2);
    for (std::size_t i = 0; i < made.size(); ++i) {
        if (made[i] != Call::write) continue;
        calls_of(save, {static_cast<int>(i), Way::interrupted});
        EXPECT_EQ(read_file(path), whole) << i;
    }
}

TEST_F(FilesTest, AFileEndsWhereItEndsThoughACallOfTheHostsWasInterrupted) {
    write_file(folder / "Icons/short.bmp", "BM");
    errno = EINTR;
    EXPECT_EQ(orvel_icon_draw_bitmap(canvas.get(), "short.bmp", 0, 0), -1);
    EXPECT_EQ(errno, EINTR);  // no call of the library's has replaced it
}

TEST_F(FilesTest, AStreamThatWasHeldIsTheHostsAfterwardsAlsoForAFolder) {
    const int status = in_child([this] {
        close(STDERR_FILENO);
        write();
        if (open("/", O_RDONLY | O_CLOEXEC) != STDERR_FILENO) return 1;
        close(STDIN_FILENO);
        write();
        return fcntl(STDERR_FILENO, F_GETFD) >= 0 ? 0 : 2;
    });
    EXPECT_EQ(status, 0);
}

TEST_F(FilesTest, OneThreadAtATimeHoldsTheStreams) {
    const int status = in_child([this] {
        close(STDERR_FILENO);
        std::atomic<bool> held{false};
        std::thread other;
        bool met = false;
        machine().meanwhile = [&] {
            other = std::thread([&] {
                write();
                held = true;
            });
            usleep(100'000);  // which the other one spends at the lock
            met = held;
        };
        write();
        other.join();
        return met ? 1 : 0;
    });
    EXPECT_EQ(status, 0);
}

TEST_F(FilesTest, AFileThatStaysUnderALeaseIsGivenUpAfterTwoMinutes) {
    write_file(folder / "Music/file.wav", "not empty");
    EXPECT_GT(tries_to_play("file.wav"), 400);
    EXPECT_GT(machine().seconds_slept, 115);
    EXPECT_LT(machine().seconds_slept, 125);
}

TEST_F(FilesTest, NothingButAFileIsWaitedForWhateverItsOpeningSays) {
    std::filesystem::create_directories(folder / "Music/folder.wav");
    ASSERT_EQ(mkfifo((folder / "Music/fifo.wav").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/null", folder / "Music/device.wav");
    for (const char* name : {"fifo.wav", "device.wav", "folder.wav", "missing.wav"}) {
        EXPECT_EQ(tries_to_play(name), 1) << name;
        EXPECT_EQ(machine().seconds_slept, 0) << name;
    }
}

}  // namespace
