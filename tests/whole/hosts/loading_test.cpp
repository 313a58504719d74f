// Hosts that load the library in ways of their own: again and again, twice at once, before main().
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "orvel.h"
#include "support/bitmap_files.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/process.h"
#include "support/sanitizers.h"

namespace {

using namespace orvel_test;

constexpr const char* kInitLine = "[OrvelSDK] inizializzato (v0.1.0)\n";
constexpr const char* kCloseLine = "[OrvelSDK] chiuso\n";

int count_of(const std::string& part, const std::string& text) {
    int count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size()) {
        ++count;
    }
    return count;
}

TEST(LoadingTest, TenThousandLoadsLeaveNothingBehindAndEachBeginsAnew) {
    constexpr int kLoads = 10000;
    const Finished host = run({ORVEL_PLAIN_HOST, "cycles", std::to_string(kLoads), ORVEL_LIBRARY});
    EXPECT_EQ(host.status, 0);
    std::string left = host.output;
    // The sanitizer maps memory of its own as it goes.
    if (kAddressSanitizer) left.replace(0, left.find('\n'), "mappings 0");
    EXPECT_EQ(left, "mappings 0\ndescriptors 0\nheap 0\nloaded 0\n");
    EXPECT_EQ(count_of(kInitLine, host.error), kLoads);
    EXPECT_EQ(count_of("\n", host.error), kLoads);
}

TEST(LoadingTest, AnExitHandlerThatIsOlderThanTheLibraryFindsAStateWithoutARoot) {
    const TempFolder folder;
    write_file(folder / "Resources/Icons/dot.bmp", BmpHeader{1, 1}.bytes() + kRed + '\0');
    setenv("ORVELSDK_PATH", folder.path().c_str(), 1);  // where nothing is found under a root
    const Finished host = run({ORVEL_PLAIN_HOST, "late", ORVEL_LIBRARY, folder / "late.bmp"});
    unsetenv("ORVELSDK_PATH");
    EXPECT_EQ(host.status, 0);
    EXPECT_EQ(host.output, "bitmap 0\npicture 0\nbitmap elsewhere -1\n");
    EXPECT_EQ(host.error, std::string(kInitLine) + kCloseLine);
    EXPECT_EQ(read_file(folder / "late.bmp").substr(54 + 6 * 36, 3), kRed);
}

TEST(LoadingTest, TwoWorldsOfOneProcessHaveAStateEach) {
    if (kAddressSanitizer) GTEST_SKIP() << "the sanitizer does not run in a second world";
    const Finished host = run({ORVEL_PLAIN_HOST, "worlds", ORVEL_LIBRARY});
    EXPECT_EQ(host.status, 0);
    EXPECT_EQ(host.error, std::string(kInitLine) + kInitLine + kCloseLine + kCloseLine);
}

TEST(LoadingTest, AHostInCEndsAtABitmapWhoseRowsAreNegative) {
    const TempFolder folder;
    write_file(folder / "Icons/hostile.bmp", BmpHeader{-2, 1}.bytes());
    const Finished host = run({ORVEL_PLAIN_HOST, "bitmap", ORVEL_LIBRARY, folder.path()});
    EXPECT_EQ(host.status, -SIGABRT);
    EXPECT_EQ(host.output, "before\n");
    EXPECT_NE(host.error.find("std::length_error"), std::string::npos) << host.error;
}

TEST(LoadingTest, AHostInCEndsWhenMemoryRunsOut) {
    if (kAddressSanitizer) GTEST_SKIP() << "the sanitizer maps more than any limit on memory";
    const Finished host = run({ORVEL_PLAIN_HOST, "memory", ORVEL_LIBRARY});
    EXPECT_EQ(host.status, -SIGABRT);
    EXPECT_EQ(host.output, "before\n");
    EXPECT_NE(host.error.find("std::bad_alloc"), std::string::npos) << host.error;
}

TEST(LoadingTest, AHostWorksBeforeMainAndAfterItAsItDoesInBetween) {
    const TempFolder folder;
    orvel_theme theme;
    orvel_theme_light(&theme);
    std::filesystem::create_directories(folder / "UI");
    orvel_set_resource_path(folder.path().c_str());
    ASSERT_EQ(orvel_theme_save(&theme, "early.json"), 0);
    orvel_set_resource_path("");
    write_file(folder / "Icons/early.bmp", BmpHeader{2, 2}.bytes() + kTwoByTwo);
    setenv("ORVEL_EARLY_FOLDER", folder.path().c_str(), 1);

    const Finished host = run({ORVEL_EARLY_HOST});
    EXPECT_EQ(host.status, 0);
    EXPECT_EQ(count_of(std::string(kInitLine) + kCloseLine, host.error), 6);
    const std::string picture = read_file(folder / "main.bmp");
    ASSERT_EQ(picture.size(), 54u + 30 * 180);
    for (const char* moment :
         {"library_start", "object_start", "exit", "object_end", "library_end"}) {
        EXPECT_TRUE(read_file(folder / (std::string(moment) + ".bmp")) == picture) << moment;
    }
}

/// A copy of the library under a name of its own, loaded beside the one that this program uses.
class Copy {
public:
    explicit Copy(const std::string& path, int flags) {
        std::filesystem::copy_file(ORVEL_LIBRARY, path);
        handle_ = dlopen(path.c_str(), RTLD_NOW | flags);
        if (!handle_) throw std::runtime_error(dlerror());
    }
    ~Copy() { dlclose(handle_); }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;

    /// The copy's own function of the same name and type.
    template <typename Function>
    Function* own(const char* name, Function*) const {
        return reinterpret_cast<Function*>(dlsym(handle_, name));
    }

private:
    void* handle_;
};

class TwoCopies : public testing::TestWithParam<int> {
protected:
    const TempFolder folder_;
    const Copy first_{folder_ / "libfirst.so", GetParam()};
    const Copy second_{folder_ / "libsecond.so", GetParam()};
};

TEST_P(TwoCopies, AreInitialisedApart) {
    const Output output = captured([this] {
        first_.own("orvel_init", orvel_init)();
        second_.own("orvel_shutdown", orvel_shutdown)();
        orvel_shutdown();
        second_.own("orvel_init", orvel_init)();
        first_.own("orvel_shutdown", orvel_shutdown)();
        second_.own("orvel_shutdown", orvel_shutdown)();
    });
    EXPECT_EQ(output.error, std::string(kInitLine) + kInitLine + kCloseLine + kCloseLine);
}

TEST_P(TwoCopies, HaveAResourceRootEach) {
    const std::string roots[] = {folder_ / "a", folder_ / "b", folder_ / "c"};
    for (const std::string& root : roots) std::filesystem::create_directories(root + "/UI");
    const auto save = orvel_theme_save;
    const auto set = orvel_set_resource_path;
    orvel_theme theme = {};
    set(roots[0].c_str());
    first_.own("orvel_set_resource_path", set)(roots[1].c_str());
    second_.own("orvel_set_resource_path", set)(roots[2].c_str());
    EXPECT_EQ(save(&theme, "here"), 0);
    EXPECT_EQ(first_.own("orvel_theme_save", save)(&theme, "first"), 0);
    EXPECT_EQ(second_.own("orvel_theme_save", save)(&theme, "second"), 0);
    set("");
    EXPECT_EQ(read_file(roots[0] + "/UI/here").size(), 264u);
    EXPECT_EQ(read_file(roots[1] + "/UI/first").size(), 264u);
    EXPECT_EQ(read_file(roots[2] + "/UI/second").size(), 264u);
}

TEST_P(TwoCopies, DrawTheSameAndHaveATableOfIconsEach) {
    const auto draw = orvel_draw_icon;
    const auto list = orvel_icon_list;
    const auto canvas = make_canvas(30, 30), other = make_canvas(30, 30);
    EXPECT_EQ(first_.own("orvel_draw_icon", draw)(canvas.get(), "home", 2, 2, 24, kInk), 0);
    EXPECT_EQ(second_.own("orvel_draw_icon", draw)(other.get(), "home", 2, 2, 24, kInk), 0);
    EXPECT_EQ(picture(canvas.get()), picture(other.get()));
    EXPECT_NE(first_.own("orvel_icon_list", list)(nullptr),
              second_.own("orvel_icon_list", list)(nullptr));
}

INSTANTIATE_TEST_SUITE_P(Loading, TwoCopies, testing::Values(RTLD_LOCAL, RTLD_GLOBAL),
                         [](const auto& flags) {
                             return flags.param == RTLD_LOCAL ? "Local" : "Global";
                         });

}  // namespace
