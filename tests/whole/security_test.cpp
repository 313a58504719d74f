// What SECURITY.md says and no other test shows.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "orvel.h"
#include "support/files.h"
#include "support/picture.h"

namespace {

using namespace orvel_test;

TEST(SecurityTest, ANameMayLeadOutOfTheResourceRoot) {
    const TempFolder folder;
    std::filesystem::create_directories(folder / "root/UI");
    orvel_set_resource_path((folder / "root").c_str());
    const orvel_theme theme = {};
    EXPECT_EQ(orvel_theme_save(&theme, "../../outside.json"), 0);
    orvel_set_resource_path("");
    EXPECT_EQ(read_file(folder / "outside.json").size(), 264u);
}

TEST(SecurityTest, ASavedPictureFollowsLinks) {
    const TempFolder folder;
    write_file(folder / "target", "what was there");
    ASSERT_EQ(symlink((folder / "target").c_str(), (folder / "link.bmp").c_str()), 0);
    const auto canvas = make_canvas(1, 1);
    EXPECT_EQ(orvel_canvas_save_bmp(canvas.get(), (folder / "link.bmp").c_str()), 0);
    EXPECT_EQ(read_file(folder / "target").size(), 58u);
}

}  // namespace
