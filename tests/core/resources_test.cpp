#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "core/state.h"
#include "support/child.h"
#include "support/files.h"

namespace {

using namespace orvel_test;
using orvel::resolve_resource;
using orvel::resource_path;

/// Starts every test without a root, with an empty folder at hand.
class ResourcesTest : public testing::Test {
protected:
    ResourcesTest() : home_(std::filesystem::current_path()) {
        orvel_set_resource_path("");
        unsetenv("ORVELSDK_PATH");
    }
    ~ResourcesTest() override {
        std::filesystem::current_path(home_);
        unsetenv("ORVELSDK_PATH");
        orvel_set_resource_path("");
    }

    void use_folder() { orvel_set_resource_path(folder_.path().c_str()); }
    void add(const std::string& name) { write_file(folder_ / name, "x"); }

    TempFolder folder_;

private:
    std::filesystem::path home_;
};

TEST_F(ResourcesTest, WithoutARootAndAVariableItIsResourcesInTheCurrentFolder) {
    EXPECT_EQ(resource_path(), "./Resources");
}

TEST_F(ResourcesTest, TheVariableNamesTheParentAndLosesOneTrailingSlash) {
    const struct {
        const char *value, *root;
    } cases[] = {
        {"/opt/app/", "/opt/app/Resources"},
        {"/opt/app", "/opt/app/Resources"},
        {"/opt/app//", "/opt/app//Resources"},
        {"/", "//Resources"},
        {"//", "//Resources"},
        {"///", "///Resources"},
        {"", "./Resources"},
        {"a", "a/Resources"},
        {"a/", "a/Resources"},
        {".", "./Resources"},
        {"..", "../Resources"},
        {"/with space", "/with space/Resources"},
    };
    for (const auto& c : cases) {
        setenv("ORVELSDK_PATH", c.value, 1);
        EXPECT_EQ(resource_path(), c.root) << '"' << c.value << '"';
    }
}

TEST_F(ResourcesTest, TheVariableIsReadAnewAtEveryCall) {
    setenv("ORVELSDK_PATH", "/one", 1);
    EXPECT_EQ(resource_path(), "/one/Resources");
    setenv("ORVELSDK_PATH", "/two", 1);
    EXPECT_EQ(resource_path(), "/two/Resources");
    unsetenv("ORVELSDK_PATH");
    EXPECT_EQ(resource_path(), "./Resources");
}

TEST_F(ResourcesTest, TheHostsRootIsReturnedUnchangedAndGoesBeforeTheVariable) {
    setenv("ORVELSDK_PATH", "/opt/app", 1);
    for (const char* root : {"/data/res/", "/data/res", "/", "x", "//"}) {
        orvel_set_resource_path(root);
        EXPECT_EQ(resource_path(), root);
    }
}

TEST_F(ResourcesTest, AnEmptyRootFallsBackToTheVariable) {
    orvel_set_resource_path("/data/res");
    orvel_set_resource_path("");
    setenv("ORVELSDK_PATH", "/opt/app/", 1);
    EXPECT_EQ(resource_path(), "/opt/app/Resources");
}

TEST_F(ResourcesTest, TheReturnedPathIsTheCallersOwn) {
    orvel_set_resource_path("/data/res");
    std::string mine = resource_path();
    mine += "/changed";
    EXPECT_EQ(resource_path(), "/data/res");
}

TEST_F(ResourcesTest, ARootWithATrailingSlashGivesADoubledSeparator) {
    add("Sounds/click.wav");
    orvel_set_resource_path((folder_.path() + "/").c_str());
    EXPECT_EQ(resolve_resource("Sounds", "click"), folder_.path() + "//Sounds/click.wav");
}

TEST_F(ResourcesTest, ARelativeRootIsProbedInTheCurrentFolder) {
    add("Resources/Sounds/click.mp3");
    std::filesystem::current_path(folder_.path());
    EXPECT_EQ(resolve_resource("Sounds", "click"), "./Resources/Sounds/click.mp3");
}

TEST_F(ResourcesTest, ANameWithADotIsJoinedAndNotLookedFor) {
    orvel_set_resource_path("/data/res");
    EXPECT_EQ(resolve_resource("Sounds", "beep.xyz"), "/data/res/Sounds/beep.xyz");
    use_folder();
    EXPECT_EQ(resolve_resource("Sounds", "beep.xyz"), folder_ / "Sounds/beep.xyz");
    add("Sounds/beep.xyz");
    add("Sounds/beep.xyz.wav");
    EXPECT_EQ(resolve_resource("Sounds", "beep.xyz"), folder_ / "Sounds/beep.xyz");
}

TEST_F(ResourcesTest, ADotAnywhereCountsTheFirstByteAndAFolderOfTheNameIncluded) {
    use_folder();
    for (const std::string name : {".click", "click.", "a.b/click", "..", ".", "../Sounds/click"}) {
        add("Sounds/" + name + ".wav");  // a probe would find it
        EXPECT_EQ(resolve_resource("Sounds", name), folder_ / "Sounds/" + name);
    }
}

TEST_F(ResourcesTest, ADotInTheFolderOrTheRootDoesNotCount) {
    add("v1.2/Sounds.d/click.wav");
    orvel_set_resource_path((folder_ / "v1.2").c_str());
    EXPECT_EQ(resolve_resource("Sounds.d", "click"), folder_ / "v1.2/Sounds.d/click.wav");
}

TEST_F(ResourcesTest, TheExtensionsAreTriedInTheirFixedOrder) {
    use_folder();
    EXPECT_EQ(resolve_resource("Icons", "x"), folder_ / "Icons/x");
    // From the last to the first: each new file goes before those that are there.
    for (const char* extension : {".png", ".aiff", ".m4a", ".json", ".bmp", ".mp3", ".wav"}) {
        add(std::string("Icons/x") + extension);
        EXPECT_EQ(resolve_resource("Icons", "x"), folder_ / "Icons/x" + extension);
    }
}

TEST_F(ResourcesTest, JsonComesBeforePng) {
    use_folder();
    add("UI/x.png");
    add("UI/x.json");
    EXPECT_EQ(resolve_resource("UI", "x"), folder_ / "UI/x.json");
}

TEST_F(ResourcesTest, EveryFolderIsProbedWithEveryExtension) {
    use_folder();
    add("Icons/home.bmp");
    EXPECT_EQ(resolve_resource("Icons", "home"), folder_ / "Icons/home.bmp");
    add("Icons/home.mp3");
    EXPECT_EQ(resolve_resource("Icons", "home"), folder_ / "Icons/home.mp3");
    add("Icons/home.wav");
    EXPECT_EQ(resolve_resource("Icons", "home"), folder_ / "Icons/home.wav");
}

TEST_F(ResourcesTest, WithoutAMatchThePathHasNoExtension) {
    use_folder();
    EXPECT_EQ(resolve_resource("Sounds", "x"), folder_ / "Sounds/x");
    add("Sounds/x");         // a file of exactly that name changes nothing
    add("Sounds/x.ogg");     // nor do other extensions
    add("Sounds/x.WAV.no");  // or longer ones
    add("Sounds/xx.wav");
    EXPECT_EQ(resolve_resource("Sounds", "x"), folder_ / "Sounds/x");
    orvel_set_resource_path("/no/such/root");
    EXPECT_EQ(resolve_resource("Sounds", "x"), "/no/such/root/Sounds/x");
}

TEST_F(ResourcesTest, NoSeparatorIsTrimmedOrCollapsed) {
    use_folder();
    EXPECT_EQ(resolve_resource("", "x"), folder_.path() + "//x");
    EXPECT_EQ(resolve_resource("/Sounds/", "/x"), folder_.path() + "//Sounds///x");
    add("x.wav");
    EXPECT_EQ(resolve_resource("", "x"), folder_.path() + "//x.wav");
}

TEST_F(ResourcesTest, AnEmptyNameIsProbedLikeAnyOther) {
    use_folder();
    EXPECT_EQ(resolve_resource("Sounds", ""), folder_ / "Sounds/");
    add("Sounds/.mp3");
    EXPECT_EQ(resolve_resource("Sounds", ""), folder_ / "Sounds/.mp3");
}

TEST_F(ResourcesTest, AFileThatCannotBeReadIsSkipped) {
    add("Sounds/click.wav");
    add("Sounds/click.mp3");
    chmod(folder_.path().c_str(), 0755);
    chmod((folder_ / "Sounds/click.wav").c_str(), 0);
    use_folder();
    const std::string expected = folder_ / "Sounds/click.mp3";
    EXPECT_EQ(as_another_user(
                  [&expected] { return resolve_resource("Sounds", "click") == expected ? 0 : 1; }),
              0);
}

TEST_F(ResourcesTest, AFolderThatCannotBeEnteredHasNoResources) {
    add("Sounds/click.wav");
    chmod(folder_.path().c_str(), 0755);
    chmod((folder_ / "Sounds").c_str(), 0);
    use_folder();
    const std::string expected = folder_ / "Sounds/click";
    EXPECT_EQ(as_another_user(
                  [&expected] { return resolve_resource("Sounds", "click") == expected ? 0 : 1; }),
              0);
    chmod((folder_ / "Sounds").c_str(), 0755);
}

TEST_F(ResourcesTest, AFolderNamedLikeAResourceCountsAsPresent) {
    std::filesystem::create_directories(folder_ / "Sounds/click.wav");
    add("Sounds/click.mp3");
    use_folder();
    EXPECT_EQ(resolve_resource("Sounds", "click"), folder_ / "Sounds/click.wav");
}

TEST_F(ResourcesTest, ALinkToNowhereIsSkippedAndOneToAFileIsFound) {
    add("Sounds/click.png");
    std::filesystem::create_symlink("nowhere", folder_ / "Sounds/click.wav");
    std::filesystem::create_symlink("click.png", folder_ / "Sounds/click.bmp");
    use_folder();
    EXPECT_EQ(resolve_resource("Sounds", "click"), folder_ / "Sounds/click.bmp");
}

TEST_F(ResourcesTest, AFifoWithoutAWriterCountsAsPresentAndIsNotWaitedFor) {
    std::filesystem::create_directories(folder_ / "Sounds");
    ASSERT_EQ(mkfifo((folder_ / "Sounds/click.wav").c_str(), 0600), 0);
    use_folder();
    const std::string expected = folder_ / "Sounds/click.wav";
    EXPECT_EQ(in_child([&expected] {
                  alarm(10);
                  return resolve_resource("Sounds", "click") == expected ? 0 : 1;
              }),
              0);
}

TEST_F(ResourcesTest, AProbeLeavesNoDescriptorOpen) {
    use_folder();
    add("Sounds/click.png");
    const int before = open_descriptors();
    for (int i = 0; i < 50; ++i) {
        resolve_resource("Sounds", "click");
        resolve_resource("Sounds", "missing");
    }
    EXPECT_EQ(open_descriptors(), before);
}

TEST_F(ResourcesTest, WithoutFreeDescriptorsNothingIsFound) {
    use_folder();
    add("Sounds/click.wav");
    const std::string expected = folder_ / "Sounds/click";
    EXPECT_EQ(in_child([&expected] {
                  while (dup(STDERR_FILENO) >= 0) continue;
                  return resolve_resource("Sounds", "click") == expected ? 0 : 1;
              }),
              0);
}

TEST_F(ResourcesTest, AFileThatAppearsIsFoundAndOneThatGoesIsNot) {
    use_folder();
    EXPECT_EQ(resolve_resource("Music", "song"), folder_ / "Music/song");
    add("Music/song.m4a");
    EXPECT_EQ(resolve_resource("Music", "song"), folder_ / "Music/song.m4a");
    std::filesystem::remove(folder_ / "Music/song.m4a");
    EXPECT_EQ(resolve_resource("Music", "song"), folder_ / "Music/song");
}

TEST_F(ResourcesTest, ResolvingNeedsNoInitAndLogsNothing) {
    use_folder();
    const Output output = captured([] {
        resolve_resource("Sounds", "missing");
        resource_path();
    });
    EXPECT_EQ(output.error + output.output, "");
}

TEST_F(ResourcesTest, APathTooLongToOpenComesBackJoined) {
    use_folder();
    const std::string name(10000, 'n');
    EXPECT_EQ(resolve_resource("Sounds", name), folder_ / "Sounds/" + name);
}

}  // namespace
