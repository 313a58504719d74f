// Files that another process has a lease on, as file servers have: the kernel asks it for the file,
// and whoever opens that waits.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "core/state.h"
#include "models/tone_model.h"
#include "support/bitmap_files.h"
#include "support/child.h"
#include "support/files.h"
#include "support/picture.h"
#include "system/private_system.h"

namespace {

using namespace orvel_test;

volatile sig_atomic_t s_asked = 0;

/// A process that has a lease on a file until it is asked for it, and then takes its time.
class Holder {
public:
    Holder(const std::string& path, int access, int lease, int milliseconds = 50) {
        int ready[2];
        if (pipe(ready) != 0) return;
        process_ = fork();
        if (process_ == 0) hold(path, access, lease, milliseconds, ready[1]);
        close(ready[1]);
        char byte = 0;
        holds_ = read(ready[0], &byte, 1) == 1;
        close(ready[0]);
    }
    ~Holder() {
        kill(process_, SIGKILL);
        if (!waited_) waitpid(process_, nullptr, 0);
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    bool holds() const { return holds_; }

    /// Whether it was asked for the file and gave it back.
    bool gave_back() {
        int status = -1;
        waited_ = waitpid(process_, &status, 0) == process_;
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

private:
    [[noreturn]] static void hold(const std::string& path, int access, int lease, int milliseconds,
                                  int ready) {
        alarm(240);
        signal(SIGIO, [](int) { s_asked = 1; });
        sigset_t io, before;
        sigemptyset(&io);
        sigaddset(&io, SIGIO);
        sigprocmask(SIG_BLOCK, &io, &before);
        const int file = open(path.c_str(), access | O_CLOEXEC);
        if (fcntl(file, F_SETLEASE, lease) != 0) {
            std::perror("F_SETLEASE");
            _exit(2);
        }
        if (write(ready, "!", 1) != 1) _exit(3);
        while (!s_asked) sigsuspend(&before);
        usleep(static_cast<useconds_t>(milliseconds) * 1000);
        fcntl(file, F_SETLEASE, F_UNLCK);
        _exit(0);
    }

    pid_t process_ = -1;
    bool holds_ = false, waited_ = false;
};

class LeasesTest : public BitmapTest {};

TEST_F(LeasesTest, ABitmapIsWaitedForAndDrawn) {
    write_file(path("pic.bmp"), BmpHeader{2, 2}.bytes() + kTwoByTwo);
    for (const char* name : {"pic.bmp", "pic"}) {
        Holder holder(path("pic.bmp"), O_RDWR, F_WRLCK);
        ASSERT_TRUE(holder.holds());
        const auto canvas = make_canvas(2, 2);
        EXPECT_EQ(orvel_icon_draw_bitmap(canvas.get(), name, 0, 0), 0);
        EXPECT_EQ(picture(canvas.get(), letters()), "bw\nrg\n");
        EXPECT_TRUE(holder.gave_back());
    }
}

TEST_F(LeasesTest, AnythingThatIsLookedForIsWaitedForAndFound) {
    const std::string file = path("pic.bmp");
    write_file(file, "not empty");
    {
        Holder holder(file, O_RDWR, F_WRLCK, 500);
        ASSERT_TRUE(holder.holds());
        EXPECT_EQ(orvel::resolve_resource("Icons", "pic"), file);
        EXPECT_TRUE(holder.gave_back());
    }
    Holder holder(file, O_RDWR, F_WRLCK);
    ASSERT_TRUE(holder.holds());
    std::filesystem::create_directories(root_ / "UI");
    orvel_theme theme = {};
    EXPECT_EQ(orvel_theme_load(&theme, "../Icons/pic.bmp"), 0);
    EXPECT_TRUE(holder.gave_back());
}

TEST_F(LeasesTest, AFileThatOthersMayReadIsNotWaitedFor) {
    write_file(path("pic.bmp"), BmpHeader{2, 2}.bytes() + kTwoByTwo);
    const Holder holder(path("pic.bmp"), O_RDONLY, F_RDLCK);
    ASSERT_TRUE(holder.holds());
    const auto canvas = make_canvas(2, 2);
    EXPECT_EQ(orvel_icon_draw_bitmap(canvas.get(), "pic.bmp", 0, 0), 0);
    EXPECT_EQ(picture(canvas.get(), letters()), "bw\nrg\n");
}

TEST_F(LeasesTest, APictureIsSavedOverAFileThatSomebodyReads) {
    const std::string file = path("pic.bmp");
    write_file(file, "old");
    Holder holder(file, O_RDONLY, F_RDLCK);
    ASSERT_TRUE(holder.holds());
    const auto canvas = make_canvas(2, 2);
    EXPECT_EQ(orvel_canvas_save_bmp(canvas.get(), file.c_str()), 0);
    EXPECT_TRUE(holder.gave_back());
    EXPECT_EQ(read_file(file).size(), 70u);
}

TEST_F(LeasesTest, AToneIsWrittenOverAToneThatSomebodyReads) {
    const int status = in_child([] {
        alarm(240);
        const TempFolder programs;  // none
        if (!cover("/usr/bin", programs.path())) return 77;
        const std::string tone = "/tmp/orvelsdk_tone.wav";
        write_file(tone, "an older tone");
        Holder holder(tone, O_RDONLY, F_RDLCK);
        if (!holder.holds()) return 1;
        orvel_play_tone(440.0, 100);
        const bool whole = read_file(tone) == model_tone_file(440.0, 100);
        return holder.gave_back() && whole ? 0 : 2;
    });
    if (status == 77) GTEST_SKIP() << "this system allows no private /tmp";
    EXPECT_EQ(status, 0);
}

}  // namespace
