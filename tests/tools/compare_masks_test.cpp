// orvel-compare with masks: what they cover is left out, counted and shown.
#include "tools/screens.h"

namespace {

using namespace orvel_test;

class CompareMasks : public Screens {
protected:
    CompareMasks() {
        const auto canvas = screen();
        save_both("home", canvas);
        save_both("rooms/kitchen", canvas);
        for (int x = 5; x < 8; ++x) orvel_canvas_pixel(canvas.get(), x, 2, kInk);
        save(actual + "/home.bmp", canvas);
        save(actual + "/rooms/kitchen.bmp", canvas);
    }

    Finished with_masks(const std::string& text) const {
        write_file(folder / "masks", text);
        return compare({"--mask", folder / "masks"});
    }
};

TEST_F(CompareMasks, MaskedPixelsAreLeftOutCountedAndShown) {
    const Finished done =
        with_masks("# what changes\n\nhome 4 2 10 3 the clock\n** 5 2 3 1 dates\n");
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.output,
              "home: equal: 20 x 12, all 240 pixels; 30 masked, of which 3 differ\n"
              "rooms/kitchen: equal: 20 x 12, all 240 pixels; 3 masked, of which 3 differ\n"
              "2 pictures: 2 equal\n");
}

TEST_F(CompareMasks, AByteOrderMarkIsNoPartOfAName) {
    const Finished done = with_masks("\xEF\xBB\xBFhome 5 2 3 1 dates\n** 5 2 3 1 dates\n");
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.error, "");
}

TEST_F(CompareMasks, APixelBesideAMaskIsFound) {
    const Finished done = with_masks("** 5 2 2 1 almost all\n");
    EXPECT_EQ(done.status, 1);
    EXPECT_NE(
        done.output.find("home: 1 of 240 pixels differ, inside the 1 x 1 box at (7, 2), by up "
                         "to 241 steps of a channel; 2 masked, of which 2 differ\n"),
        std::string::npos)
        << done.output;
}

TEST_F(CompareMasks, AMaskThatReachesOutOfThePictureIsCut) {
    const Finished done = with_masks("** 5 2 1000000 1000000 everything to the right\n");
    EXPECT_EQ(done.status, 0);
    EXPECT_NE(done.output.find("150 masked"), std::string::npos) << done.output;
}

TEST_F(CompareMasks, ANameIsAPattern) {
    for (const auto& [pattern, fitting] :
         std::vector<std::pair<std::string, int>>{{"home", 1},
                                                  {"home.png", 1},
                                                  {"home.bmp", 1},
                                                  {"*", 1},
                                                  {"**", 2},
                                                  {"rooms/*", 1},
                                                  {"*/kitchen", 1},
                                                  {"*kitchen", 0},
                                                  {"**kitchen", 1},
                                                  {"hom?", 1},
                                                  {"h??e", 1},
                                                  {"h?e", 0},
                                                  {"ho", 0},
                                                  {"rooms/kitchen*", 1},
                                                  {"Home", 0},
                                                  {"\"home\"", 1}}) {
        const Finished done = with_masks(pattern + " 5 2 3 1 a reason\n");
        const std::string count = std::to_string(fitting) + " equal";
        EXPECT_NE(done.output.find("2 pictures: " + count), std::string::npos) << pattern << "\n"
                                                                               << done.output;
    }
}

TEST_F(CompareMasks, ANameWithBlanksStandsInQuotes) {
    save_both("two words \"x\"", screen());
    EXPECT_NE(with_masks("\"two words \\\"x\\\"\" 0 0 1 1 a reason\n").output.find("1 masked"),
              std::string::npos);
}

TEST_F(CompareMasks, AMaskDoesNotHideAnotherSize) {
    save(actual + "/home.bmp", screen(21, 12));
    EXPECT_NE(with_masks("** 0 0 100 100 all\n").output.find("home: sizes differ"),
              std::string::npos);
}

TEST_F(CompareMasks, AMaskForNoPictureIsTold) {
    const Finished done = with_masks("** 5 2 3 1 all\nhmoe 0 0 1 1 misspelt\n");
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.error,
              "orvel-compare: note: " + (folder / "masks") + ":2: no picture is called hmoe\n");
}

TEST_F(CompareMasks, AMaskOutsideOfAllItsPicturesIsTold) {
    const Finished done = with_masks("** 5 2 3 1 all\nhome 20 0 5 5 right\n** 0 12 5 5 below\n");
    EXPECT_EQ(done.status, 0);
    const std::string note = "orvel-compare: note: " + (folder / "masks");
    EXPECT_EQ(done.error, note + ":2: it is outside of all pictures called home\n" + note +
                              ":3: it is outside of all pictures called **\n");
    EXPECT_EQ(with_masks("** 5 2 3 1 all\nhome 19 11 5 5 corner\n").error, "");
}

TEST_F(CompareMasks, LinesThatAreNoMasksAreRefusedByTheirNumbers) {
    const std::string numbers =
        "not a picture, LEFT TOP WIDTH HEIGHT in whole pixels, and a reason";
    for (const auto& [line, reason] : std::vector<std::pair<std::string, std::string>>{
             {"home 1 2 3 4", "a reason is missing"},
             {"home 1 2 3 4  ", "a reason is missing"},
             {"home 1 2 3", numbers},
             {"home 1 2 0 4 x", numbers},
             {"home -1 2 3 4 x", numbers},
             {"home 1.5 2 3 4 x", numbers},
             {"home 1 2 3 99999999999 x", numbers},
             {"\"home 1 2 3 4 x", "a quotation mark is missing"}}) {
        const Finished done = with_masks("# first\n" + line + "\n");
        EXPECT_EQ(done.status, 2);
        EXPECT_EQ(done.output, "");
        EXPECT_EQ(done.error, "orvel-compare: " + (folder / "masks") + ":2: " + reason + "\n");
    }
    EXPECT_EQ(compare({"--mask", folder / "none"}).status, 2);
}

}  // namespace
