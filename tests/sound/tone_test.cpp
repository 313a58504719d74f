#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <climits>
#include <limits>
#include <string>

#include "models/tone_model.h"
#include "orvel.h"
#include "support/files.h"
#include "system/ledger.h"
#include "system/system.h"

namespace {

using namespace orvel_test;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class PlayToneTest : public testing::Test {
protected:
    PlayToneTest() {
        take_over_system(tone);
        begin_anew(folder / "no-player");
        umask(022);
    }
    ~PlayToneTest() override {
        while (waitpid(-1, nullptr, 0) > 0) {
        }
    }

    /// Plays 440 Hz for 100 ms; true when it says 0, logs its line and starts a player.
    static bool plays() {
        int result = -1;
        const auto output = captured([&result] { result = orvel_play_tone(440.0, 100); });
        const std::string last = calls().back();
        return result == 0 && output.error == "[OrvelSDK] tone: 440 Hz x 100 ms\n" &&
               output.output.empty() && last.rfind("fork = ", 0) == 0;
    }

    const TempFolder folder;
    const std::string tone = folder / "tone.wav";
    const std::string expected = model_tone_file(440.0, 100);
};

TEST_F(PlayToneTest, WritesTheFileInOneCallAndStartsThePlayerOnIt) {
    EXPECT_TRUE(plays());
    EXPECT_EQ(read_file(tone), expected);
    EXPECT_EQ(calls()[0], "open /tmp/orvelsdk_tone.wav");
    EXPECT_EQ(calls()[1], "write 8864");
    EXPECT_EQ(call_names().find("write", 12), std::string::npos);
}

TEST_F(PlayToneTest, TheFileIsClosedOnExecAndItsModeIsOrdinary) {
    EXPECT_TRUE(plays());
    EXPECT_NE(machine().opened_flags & O_CLOEXEC, 0);
    struct stat info = {};
    ASSERT_EQ(stat(tone.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0644u);

    unlink(tone.c_str());
    umask(0);
    EXPECT_TRUE(plays());
    ASSERT_EQ(stat(tone.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0666u);
}

TEST_F(PlayToneTest, ALongerOlderToneIsOverwritten) {
    write_file(tone, std::string(20000, 'x'));
    EXPECT_TRUE(plays());
    EXPECT_EQ(read_file(tone), expected);
}

TEST_F(PlayToneTest, LogsRoundedFrequencyAndDuration) {
    const auto output = captured([] { EXPECT_EQ(orvel_play_tone(440.6, 250), 0); });
    EXPECT_EQ(output.error, "[OrvelSDK] tone: 441 Hz x 250 ms\n");
    EXPECT_EQ(read_file(tone), model_tone_file(440.6, 250));
}

TEST_F(PlayToneTest, RefusedArgumentsLeaveNoTrace) {
    const auto output = captured([] {
        for (const double frequency : {0.0, -0.0, -1.0, -440.0, -kInfinity}) {
            EXPECT_EQ(orvel_play_tone(frequency, 100), -1) << frequency;
        }
        for (const int duration : {0, -1, INT_MIN}) {
            EXPECT_EQ(orvel_play_tone(440.0, duration), -1) << duration;
            EXPECT_EQ(orvel_play_tone(kNan, duration), -1) << duration;
        }
    });
    EXPECT_EQ(output.error, "");
    EXPECT_TRUE(calls().empty());
    EXPECT_NE(access(tone.c_str(), F_OK), 0);
}

TEST_F(PlayToneTest, NanAndInfinityPlaySilenceOfTheRightLength) {
    for (const double frequency : {kNan, kInfinity}) {
        captured([frequency] { EXPECT_EQ(orvel_play_tone(frequency, 100), 0); });
        EXPECT_EQ(read_file(tone), expected.substr(0, 44) + std::string(8820, '\0'));
    }
}

TEST_F(PlayToneTest, AFailedForkIsMinusOneAfterTheLine) {
    always(Call::fork, Way::fails);
    const auto output = captured([] { EXPECT_EQ(orvel_play_tone(440.0, 100), -1); });
    EXPECT_EQ(output.error, "[OrvelSDK] tone: 440 Hz x 100 ms\n");
    EXPECT_EQ(read_file(tone), expected);
}

TEST_F(PlayToneTest, AFolderInTheWayIsNotReported) {
    ASSERT_EQ(mkdir(tone.c_str(), 0755), 0);
    EXPECT_TRUE(plays());
}

TEST_F(PlayToneTest, APlantedSymbolicLinkIsNotFollowed) {
    write_file(folder / "victim", "precious");
    ASSERT_EQ(symlink((folder / "victim").c_str(), tone.c_str()), 0);
    EXPECT_TRUE(plays());
    EXPECT_EQ(read_file(folder / "victim"), "precious");
}

TEST_F(PlayToneTest, ADanglingSymbolicLinkMakesNoFile) {
    ASSERT_EQ(symlink((folder / "victim").c_str(), tone.c_str()), 0);
    EXPECT_TRUE(plays());
    EXPECT_NE(access((folder / "victim").c_str(), F_OK), 0);
}

TEST_F(PlayToneTest, APlantedHardLinkIsNotTruncated) {
    write_file(folder / "victim", "precious");
    ASSERT_EQ(link((folder / "victim").c_str(), tone.c_str()), 0);
    EXPECT_TRUE(plays());
    EXPECT_EQ(read_file(folder / "victim"), "precious");
}

TEST_F(PlayToneTest, AFifoIsNeitherWaitedForNorWrittenTo) {
    ASSERT_EQ(mkfifo(tone.c_str(), 0666), 0);
    EXPECT_TRUE(plays());

    const int reader = open(tone.c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);
    EXPECT_TRUE(plays());
    char byte = 0;
    EXPECT_EQ(read(reader, &byte, 1), 0);
    close(reader);
}

TEST_F(PlayToneTest, AFileOfSomebodyElseIsLeftAlone) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can make a file of somebody else's";
    write_file(tone, "precious");
    ASSERT_EQ(chown(tone.c_str(), 65534, 65534), 0);
    ASSERT_EQ(chmod(tone.c_str(), 0666), 0);
    EXPECT_TRUE(plays());
    EXPECT_EQ(read_file(tone), "precious");
}

TEST_F(PlayToneTest, AReadOnlyFileStaysWhatItIs) {
    write_file(tone, "older tone");
    ASSERT_EQ(chmod(tone.c_str(), 0444), 0);
    EXPECT_TRUE(plays());
    EXPECT_EQ(read_file(tone), geteuid() == 0 ? expected : "older tone");
}

}  // namespace
