// Hosts whose descriptors are not as others': the standard ones closed, none left, or a standard
// error that takes nothing.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "models/tone_model.h"
#include "orvel.h"
#include "support/bitmap_files.h"
#include "support/child.h"
#include "support/files.h"
#include "support/picture.h"
#include "system/system.h"

namespace {

using namespace orvel_test;

constexpr const char* kInitLine = "[OrvelSDK] inizializzato (v0.1.0)\n";
constexpr const char* kCloseLine = "[OrvelSDK] chiuso\n";
constexpr int kStreams[] = {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};

class DescriptorsTest : public testing::Test {
protected:
    DescriptorsTest() {
        take_over_system(folder / "tone.wav");
        begin_anew(folder / "no-player");
        write_file(folder / "Icons/two.bmp", BmpHeader{2, 2}.bytes() + kTwoByTwo);
        write_file(folder / "UI/mine.json", "{ \"error\": \"#123456\" }");
        write_file(folder / "Music/track.wav", "a track");
        write_file(folder / "Sounds/click.wav", "snd of the fake libraries");
        orvel_set_resource_path(folder.path().c_str());
    }
    ~DescriptorsTest() override { orvel_set_resource_path(""); }

    /// The results of every function that opens a file or starts a process.
    std::string results() const {
        const auto canvas = make_canvas(2, 2);
        orvel_theme theme = {};
        std::string text;
        orvel_init();
        const auto add = [&text](const char* what, int status) {
            text += std::string(what) + " " + std::to_string(status) + "\n";
        };
        add("bitmap", orvel_icon_draw_bitmap(canvas.get(), "two", 0, 0));
        add("load", orvel_theme_load(&theme, "mine"));
        add("save", orvel_theme_save(&theme, "saved.json"));
        add("bmp", orvel_canvas_save_bmp(canvas.get(), (folder / "24.bmp").c_str()));
        add("rgba", orvel_canvas_save_bmp_rgba(canvas.get(), (folder / "32.bmp").c_str()));
        add("sound", orvel_play_sound("click"));
        add("music", orvel_play_music("track"));
        add("tone", orvel_play_tone(440.0, 100));
        orvel_stop_music();
        orvel_shutdown();
        const Palette letters = {{'.', kBlack},
                                 {'r', {255, 0, 0, 255}},
                                 {'g', {0, 255, 0, 255}},
                                 {'b', {0, 0, 255, 255}},
                                 {'w', kInk}};
        return text + picture(canvas.get(), letters) + std::to_string(theme.error.g) + "\n";
    }

    /// What @p host returned in a process of its own.
    std::string in_a_host(const std::function<std::string()>& host) const {
        const int status = in_child([&] {
            alarm(240);
            dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
            const std::string text = host();
            write_file(folder / "results", text);
            return 0;
        });
        return status == 0 ? read_file(folder / "results") : "ended by " + std::to_string(status);
    }

    void expect_whole_files() const {
        EXPECT_EQ(read_file(folder / "24.bmp").substr(54), kTwoByTwo);
        EXPECT_EQ(read_file(folder / "32.bmp").size(), 70u);
        EXPECT_EQ(read_file(folder / "UI/saved.json").size(), 264u);
        EXPECT_TRUE(read_file(folder / "tone.wav") == model_tone_file(440.0, 100));
    }

    const TempFolder folder;
};

const std::string kEverythingWorks =
    "bitmap 0\nload 0\nsave 0\nbmp 0\nrgba 0\nsound 0\nmusic 0\ntone 0\nbw\nrg\n52\n";
// A tone without its file starts its player all the same.
const std::string kNothingOpens =
    "bitmap -1\nload -1\nsave -1\nbmp -1\nrgba -1\nsound -1\nmusic -1\ntone 0\n..\n..\n0\n";

TEST_F(DescriptorsTest, WithoutStandardStreamsEverythingWorksAndTheyStayClosed) {
    const std::string found = in_a_host([this] {
        const int before = open_descriptors();
        for (const int stream : kStreams) close(stream);
        const std::string text = results();
        return text + "closed " + std::to_string(before - open_descriptors());
    });
    EXPECT_EQ(found, kEverythingWorks + "closed 3");
    expect_whole_files();
}

/// A host of that many descriptors has just @p left of them free.
class Occupied {
public:
    Occupied(int all, int left) {
        const rlimit limit = {static_cast<rlim_t>(all), 1024};
        setrlimit(RLIMIT_NOFILE, &limit);
        for (int taken; (taken = dup(STDIN_FILENO)) >= 0;) taken_.push_back(taken);
        for (; left > 0; --left) release();
    }
    ~Occupied() {
        while (!taken_.empty()) release();
    }
    Occupied(const Occupied&) = delete;
    Occupied& operator=(const Occupied&) = delete;

private:
    void release() {
        close(taken_.back());
        taken_.pop_back();
    }
    std::vector<int> taken_;
};

TEST_F(DescriptorsTest, AHostWithFiftyDescriptorsNeedsOneFreeOne) {
    for (const int left : {0, 1, 2}) {
        const std::string found = in_a_host([this, left] {
            const Occupied others(50, left);
            const int before = open_descriptors();
            const std::string text = results();
            return text + "more " + std::to_string(open_descriptors() - before);
        });
        EXPECT_EQ(found, (left == 0 ? kNothingOpens : kEverythingWorks) + "more 0") << left;
    }
    expect_whole_files();
}

// Any file could only get the number of a stream.
TEST_F(DescriptorsTest, AHostWithoutStreamsAndWithoutOtherDescriptorsIsRefused) {
    const std::string found = in_a_host([this] {
        for (const int stream : kStreams) close(stream);
        rlimit old = {};
        getrlimit(RLIMIT_NOFILE, &old);
        const rlimit three = {3, old.rlim_max};
        setrlimit(RLIMIT_NOFILE, &three);
        const std::string text = results();
        const bool closed = std::none_of(std::begin(kStreams), std::end(kStreams),
                                         [](int stream) { return fcntl(stream, F_GETFD) >= 0; });
        setrlimit(RLIMIT_NOFILE, &old);
        return text + (closed ? "closed" : "open");
    });
    EXPECT_EQ(found, kNothingOpens + "closed");
}

TEST_F(DescriptorsTest, WhatTheHostPutsInPlaceOfAClosedStreamWhileAFileIsOpenedStays) {
    const std::string fifo = folder / "fifo.bmp";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    const std::string found = in_a_host([&] {
        close(STDERR_FILENO);
        const auto canvas = make_canvas(2, 2);
        std::thread saving([&] { orvel_canvas_save_bmp(canvas.get(), fifo.c_str()); });
        while (fcntl(STDERR_FILENO, F_GETFD) < 0) std::this_thread::yield();
        const int log = open((folder / "log").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        dup2(log, STDERR_FILENO);
        const std::string received = read_file(fifo);
        saving.join();
        orvel_init();
        return std::to_string(received.size()) + " " + read_file(folder / "log");
    });
    EXPECT_EQ(found, std::string("70 ") + kInitLine);
}

/// Runs @p body while a thread calls @p meddle without pause, from before until after it.
template <typename Meddle, typename Body>
void meddling(const Meddle& meddle, const Body& body) {
    std::atomic<bool> begun{false}, done{false};
    std::thread other([&] {
        for (; !done; begun = true) meddle();
    });
    while (!begun) std::this_thread::yield();
    body();
    done = true;
    other.join();
}

void print() { [[maybe_unused]] const ssize_t size = write(STDERR_FILENO, "printed", 7); }

/// How many of @p count saved files do not hold what the first of all holds.
int spoilt(int count, const std::string& path, const std::function<void()>& save) {
    save();
    const std::string whole = read_file(path);
    int different = 0;
    for (int i = 0; i < count; ++i) {
        std::remove(path.c_str());
        save();
        different += read_file(path) != whole;
    }
    return whole.find("printed") == std::string::npos ? different : count;
}

TEST_F(DescriptorsTest, NothingThatIsPrintedWithoutAStandardErrorLandsInAFileThatIsWritten) {
    const std::string found = in_a_host([this] {
        close(STDERR_FILENO);
        const auto canvas = make_canvas(2, 2);
        orvel_theme theme = {};
        int different = 0;
        meddling(print, [&] {
            const std::string path = folder / "24.bmp";
            different +=
                spoilt(4000, path, [&] { orvel_canvas_save_bmp(canvas.get(), path.c_str()); });
            const std::string file = folder / "UI/saved.json";
            different += spoilt(1500, file, [&] { orvel_theme_save(&theme, "saved.json"); });
            different += spoilt(300, folder / "tone.wav", [&] {
                orvel_play_tone(440.0, 1);
                waitpid(-1, nullptr, 0);
            });
        });
        return std::to_string(different) + " spoilt";
    });
    EXPECT_EQ(found, "0 spoilt");
}

TEST_F(DescriptorsTest, NothingThatIsPrintedLandsInThePicturesOfSeveralThreads) {
    const std::string found = in_a_host([this] {
        close(STDERR_FILENO);
        std::atomic<int> different{0};
        meddling(print, [&] {
            std::vector<std::thread> threads;
            for (const char* name : {"1.bmp", "2.bmp", "3.bmp", "4.bmp"}) {
                threads.emplace_back([&different, path = folder / name] {
                    const auto canvas = make_canvas(2, 2);
                    different += spoilt(1000, path,
                                        [&] { orvel_canvas_save_bmp(canvas.get(), path.c_str()); });
                });
            }
            for (std::thread& thread : threads) thread.join();
        });
        return std::to_string(different) + " spoilt";
    });
    EXPECT_EQ(found, "0 spoilt");
}

TEST_F(DescriptorsTest, AThreadThatReadsAClosedStandardInputTakesNothingOfABitmap) {
    const std::string found = in_a_host([] {
        close(STDIN_FILENO);
        const auto canvas = make_canvas(2, 2);
        int different = 0;
        const auto read_input = [] {
            char bytes[100];
            [[maybe_unused]] const ssize_t size = read(STDIN_FILENO, bytes, sizeof bytes);
        };
        meddling(read_input, [&] {
            for (int i = 0; i < 10000; ++i) {
                orvel_canvas_clear(canvas.get(), kBlack);
                orvel_icon_draw_bitmap(canvas.get(), "two.bmp", 0, 0);
                different += orvel_canvas_pixel_get(canvas.get(), 0, 0) == kBlack;
                different += orvel_canvas_pixel_get(canvas.get(), 0, 1) == kBlack;
            }
        });
        return std::to_string(different) + " lost";
    });
    EXPECT_EQ(found, "0 lost");
}

// While a picture is on its way into a full FIFO, a thread of the same host prints. The number of
// its closed standard error is the first that the FIFO could have got.
TEST_F(DescriptorsTest, WhatAHostWithoutStandardErrorPrintsDoesNotLandInTheFileThatIsWritten) {
    const std::string fifo = folder / "fifo.bmp";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    int go[2], printed[2];
    ASSERT_EQ(pipe(go) + pipe(printed), 0);
    const pid_t host = fork();
    if (host == 0) {
        alarm(240);
        close(STDERR_FILENO);
        const auto canvas = make_canvas(300, 300);
        std::thread printer([&go, &printed] {
            char byte = 0;
            if (read(go[0], &byte, 1) != 1) return;
            orvel_init();
            orvel_shutdown();
            if (write(printed[1], &byte, 1) != 1) _exit(2);
        });
        const int status = orvel_canvas_save_bmp_rgba(canvas.get(), fifo.c_str());
        printer.join();
        _exit(status == 0 ? 0 : 1);
    }
    const int reader = open(fifo.c_str(), O_RDONLY);
    ASSERT_GE(reader, 0);
    pollfd has_begun = {reader, POLLIN, 0}, has_printed = {printed[0], POLLIN, 0};
    EXPECT_EQ(poll(&has_begun, 1, 20000), 1);
    EXPECT_EQ(write(go[1], "!", 1), 1);
    EXPECT_EQ(poll(&has_printed, 1, 20000), 1) << "the host prints into the FIFO";
    std::string received(54 + 4 * 300 * 300 + 1000, '\0');
    std::size_t size = 0;
    for (ssize_t more; (more = read(reader, received.data() + size, received.size() - size)) > 0;) {
        size += static_cast<std::size_t>(more);
    }
    int status = -1;
    waitpid(host, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(size, 54u + 4 * 300 * 300);
    EXPECT_EQ(received.find("OrvelSDK"), std::string::npos);
    for (const int end : {reader, go[0], go[1], printed[0], printed[1]}) close(end);
}

/// A pipe as standard error.
class ErrorPipe {
public:
    ErrorPipe() {
        if (pipe(ends) != 0) _exit(99);
        dup2(ends[1], STDERR_FILENO);
    }
    void fill() const {
        const int flags = fcntl(ends[1], F_GETFL);
        fcntl(ends[1], F_SETFL, flags | O_NONBLOCK);
        const std::string block(4096, '.');
        while (write(ends[1], block.data(), block.size()) > 0) {
        }
        while (write(ends[1], ".", 1) > 0) {
        }
        fcntl(ends[1], F_SETFL, flags);
    }
    int ends[2];
};

TEST_F(DescriptorsTest, AStandardErrorThatNobodyReadsAnyMoreChangesNothingWhereSigpipeIsIgnored) {
    const std::string found = in_a_host([this] {
        signal(SIGPIPE, SIG_IGN);
        const ErrorPipe error;
        close(error.ends[0]);
        return results();
    });
    EXPECT_EQ(found, kEverythingWorks);
    expect_whole_files();
}

TEST_F(DescriptorsTest, WhereSigpipeIsNotIgnoredItEndsTheHostAsAnyOtherPrintingDoes) {
    const std::string found = in_a_host([] {
        const ErrorPipe error;
        close(error.ends[0]);
        orvel_init();
        return std::string("not reached");
    });
    EXPECT_EQ(found, "ended by -" + std::to_string(SIGPIPE));
}

TEST_F(DescriptorsTest, AFullStandardErrorThatDoesNotBlockLosesTheLinesAndNothingElse) {
    const std::string found = in_a_host([this] {
        signal(SIGPIPE, SIG_IGN);
        const ErrorPipe error;
        error.fill();
        fcntl(STDERR_FILENO, F_SETFL, O_NONBLOCK);
        return results();
    });
    EXPECT_EQ(found, kEverythingWorks);
    expect_whole_files();
}

TEST_F(DescriptorsTest, AFullStandardErrorThatBlocksIsWaitedForAndGetsEveryLineWhole) {
    const std::string found = in_a_host([] {
        signal(SIGPIPE, SIG_IGN);
        const ErrorPipe error;
        error.fill();
        std::string received(1 << 20, '\0');
        std::size_t size = 0;
        std::thread host([] {
            orvel_init();
            orvel_shutdown();
            close(STDERR_FILENO);
        });
        usleep(20000);  // the host waits meanwhile
        close(error.ends[1]);
        for (ssize_t more; (more = read(error.ends[0], &received[size], 1000)) > 0;) {
            size += static_cast<std::size_t>(more);
        }
        host.join();
        received.resize(size);
        return received.substr(received.find('['));
    });
    EXPECT_EQ(found, std::string(kInitLine) + kCloseLine);
}

}  // namespace
