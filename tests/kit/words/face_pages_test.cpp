// A page with all letters of each face, as a picture that anybody can open: tests/golden/faces.
#include <gtest/gtest.h>

#include <string>

#include "face_pages.h"
#include "orvel_kit.h"
#include "support/golden.h"
#include "tools/png.h"

namespace {

using namespace orvel_test;

class FacePagesTest : public testing::TestWithParam<std::string> {};

TEST_P(FacePagesTest, IsThePicture) {
    std::string file = GetParam() + ".png";
    file[file.find(' ')] = '_';
    const std::string path = ORVEL_SOURCE_DIR "/tests/golden/faces/" + file;
    const CanvasPtr page = face_page(*kit_face_named(GetParam().c_str()));
    const orvel_tools::Picture drawn = orvel_tools::picture_of(page.get());
    std::string error;
    if (is_renewed("faces", GetParam())) {
        ASSERT_TRUE(orvel_tools::write_png(drawn, path, error)) << error;
    }
    const orvel_tools::Picture kept = read_png(path);
    ASSERT_EQ(kept.width, drawn.width);
    ASSERT_EQ(kept.height, drawn.height);
    for (std::size_t i = 0; i < kept.pixels.size(); ++i) {
        const int at = static_cast<int>(i);
        ASSERT_EQ(kept.pixels[i].r, drawn.pixels[i].r)
            << "at " << at % kept.width << ", " << at / kept.width;
    }
}

INSTANTIATE_TEST_SUITE_P(All, FacePagesTest, testing::ValuesIn(face_names()), [](const auto& test) {
    std::string name = test.param;
    name[name.find(' ')] = '_';
    return name;
});

}  // namespace
