// What orvel-compare writes for people and for other programs.
#include "tools/screens.h"

namespace {

using namespace orvel_test;

class CompareResults : public Screens {
protected:
    /// One picture of each kind, with names that would be markup.
    CompareResults() {
        save_both("equal", screen());
        save_both("<img src=x onerror=\"1\">&'", screen());
        const auto canvas = screen();
        orvel_canvas_pixel(canvas.get(), 3, 4, kInk);
        save(actual + "/<img src=x onerror=\"1\">&'.bmp", canvas);
        save(expected + "/gone]]>.png", screen());
        save(actual + "/two\nlines.bmp", screen());
        save_both("broken", screen());
        write_file(actual + "/broken.bmp", "x");
    }

    /// The report of a comparison, whatever it ends with.
    std::string written(const std::string& option) const {
        EXPECT_EQ(compare({option, folder / "out"}).status, 2);
        return read_file(folder / "out");
    }

    static int count(const std::string& text, const std::string& what) {
        int found = 0;
        for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
            ++found;
        }
        return found;
    }

    /// The annotations on a host whose environment has the variable @p name.
    std::string on_host(const std::string& name) const {
        const Finished done = run({"env", "-u", "GITHUB_ACTIONS", "-u", "TF_BUILD", name + "=true",
                                   ORVEL_BINARY_DIR "/orvel-compare", expected, actual});
        return done.output.substr(done.output.find("unreadable\n") + 11);
    }
};

TEST_F(CompareResults, TheReportNeedsNothingElse) {
    const std::string page = written("--report");
    EXPECT_EQ(count(page, "src=\"data:image/png;base64,"), 3 + 1 + 1 + 1);
    EXPECT_EQ(count(page, "http:") + count(page, "https:") + count(page, "<link"), 0);
    EXPECT_EQ(count(page, "src=\""), 6);
    EXPECT_EQ(count(page, "default-src 'none'"), 1);
}

TEST_F(CompareResults, NamesInTheReportAreNoMarkup) {
    const std::string page = written("--report");
    EXPECT_EQ(count(page, "<img src=x"), 0);
    EXPECT_NE(page.find("<h2>&lt;img src=x onerror=&quot;1&quot;&gt;&amp;&#39;</h2>"),
              std::string::npos);
    EXPECT_NE(page.find("<h2>two\\nlines</h2>"), std::string::npos);
}

TEST_F(CompareResults, TheReportShowsEveryFailureAndListsTheRest) {
    const std::string page = written("--report");
    EXPECT_NE(page.find("<h1>4 of 5 pictures not as expected</h1>"), std::string::npos);
    for (const char* state : {"≠ different", "− missing", "+ unexpected", "! unreadable"}) {
        EXPECT_EQ(count(page, std::string(">") + state + "<"), 1) << state;
    }
    EXPECT_NE(page.find("<li>equal <span"), std::string::npos);
}

TEST_F(CompareResults, PicturesInTheReportAreTheWholePictures) {
    const std::string page = written("--report");
    const std::string start = "data:image/png;base64,";
    const auto at = page.find(start) + start.size();
    write_file(folder / "base64", page.substr(at, page.find('"', at) - at));
    const Finished decoded = run({"base64", "-d", folder / "base64"});
    ASSERT_EQ(decoded.status, 0) << decoded.error;
    write_file(folder / "first.png", decoded.output);
    EXPECT_EQ(read_png(folder / "first.png").width, 20);
}

TEST_F(CompareResults, AReportOfEqualPicturesSaysSo) {
    for (const char* name :
         {"/<img src=x onerror=\"1\">&'.bmp", "/two\nlines.bmp", "/broken.bmp"}) {
        std::filesystem::remove(actual + name);
    }
    for (const char* name : {"/<img src=x onerror=\"1\">&'.png", "/gone]]>.png", "/broken.png"}) {
        std::filesystem::remove(expected + name);
    }
    EXPECT_EQ(compare({"--report", folder / "out"}).status, 0);
    EXPECT_NE(read_file(folder / "out").find("<h1>All of 1 picture as expected</h1>"),
              std::string::npos);
}

TEST_F(CompareResults, ThePageIsBoundedHoweverMuchFails) {
    std::filesystem::remove_all(expected);
    std::filesystem::create_directory(expected);
    orvel_tools::Picture noise;
    noise.width = noise.height = 2000;
    std::uint32_t state = 1;
    for (int i = 0; i < 2000 * 2000; ++i) {
        state = state * 1664525u + 1013904223u;
        const auto byte = [&](int shift) { return static_cast<unsigned char>(state >> shift); };
        noise.pixels.push_back({byte(24), byte(16), byte(8), 255});
    }
    std::string error;
    ASSERT_TRUE(orvel_tools::write_png(noise, actual + "/a.png", error));
    for (const char* name : {"/b.png", "/c.png", "/d.png", "/e.png"}) {
        std::filesystem::copy_file(actual + "/a.png", actual + name);
    }
    EXPECT_EQ(compare({"--report", folder / "out"}).status, 1);
    const std::string page = read_file(folder / "out");
    EXPECT_LT(page.size(), 70u << 20);
    EXPECT_GT(count(page, "Not shown: "), 0);
}

TEST_F(CompareResults, JUnitIsValidAndNamesEveryPicture) {
    const std::string xml = written("--junit");
    const Finished valid = run({"xmllint", "--noout", "--schema",
                                ORVEL_SOURCE_DIR "/tests/tools/junit.xsd", folder / "out"});
    EXPECT_EQ(valid.status, 0) << valid.error;
    EXPECT_NE(xml.find("<testsuites tests=\"5\" failures=\"3\" errors=\"1\" time=\"0\">"),
              std::string::npos)
        << xml;
    EXPECT_NE(xml.find("name=\"&lt;img src=x onerror=&quot;1&quot;&gt;&amp;&#39;\""),
              std::string::npos);
    EXPECT_NE(xml.find("<failure type=\"missing\" message=\"missing: expected, but not there\"/>"),
              std::string::npos);
}

TEST_F(CompareResults, TroubleIsAnErrorOfTheSuite) {
    std::filesystem::create_directory_symlink(expected, actual + "/linked");
    EXPECT_NE(written("--junit").find("tests=\"6\" failures=\"3\" errors=\"2\""),
              std::string::npos);
}

TEST_F(CompareResults, JsonIsWhatTheManualSays) {
    written("--json");
    const std::string script =
        "import json, sys\n"
        "all = json.load(open(sys.argv[1], encoding='utf-8'))\n"
        "print(all['orvel_compare'], all['status'], all['equal'], all['different'],\n"
        "      all['missing'], all['unexpected'], all['unreadable'], len(all['trouble']))\n"
        "for one in all['pictures']:\n"
        "    print(one['name'], one['outcome'], one.get('differing'), one.get('box'),\n"
        "          one.get('steps'), one.get('alpha_only'), 'expected' in one, 'actual' in one)\n";
    write_file(folder / "look.py", script);
    const Finished done = run({"python3", folder / "look.py", folder / "out"});
    EXPECT_EQ(done.error, "");
    EXPECT_EQ(done.output,
              "1 2 1 1 1 1 1 0\n"
              "<img src=x onerror=\"1\">&' different 1 [3, 4, 1, 1] 228 False True True\n"
              "broken unreadable None None None None True True\n"
              "equal equal 0 None None None True True\n"
              "gone]]> missing None None None None True False\n"
              "two\\nlines unexpected None None None None False True\n");
}

TEST_F(CompareResults, ADashIsTheStandardOutput) {
    const Finished done = compare({"--json", "-"});
    EXPECT_EQ(done.output.rfind("{\"orvel_compare\": 1,", 0), 0u);
    EXPECT_EQ(done.output.find("pictures: 1 equal"), std::string::npos);
}

TEST_F(CompareResults, AResultThatCannotBeWrittenIsTrouble) {
    for (const char* option : {"--report", "--junit", "--json"}) {
        const Finished done = compare({option, folder / "none/out"});
        EXPECT_EQ(done.status, 2);
        EXPECT_EQ(done.error,
                  "orvel-compare: " + folder.path() + "/none/out: No such file or directory\n");
    }
}

TEST_F(CompareResults, NoneIsWrittenOverWhatIsCompared) {
    const std::string picture = expected + "/gone]]>.png";
    const std::string bytes = read_file(picture);
    const std::string mask = folder / "masks";
    write_file(mask, "gone 0 0 1 1 a reason\n");
    const std::string program = ORVEL_BINARY_DIR "/orvel-compare";
    const std::string other = actual + "/equal.bmp";
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {program, expected, actual, "--diff", expected + "/."},
             {program, expected, actual, "--diff", actual},
             {program, picture, other, "--diff", picture},
             {program, picture, other, "--mask", mask, "--json", mask}}) {
        const Finished done = run(arguments);
        EXPECT_EQ(done.status, 2);
        EXPECT_EQ(done.error,
                  "orvel-compare: a result would be written over what is compared "
                  "(orvel-compare --help tells more)\n");
    }
    EXPECT_EQ(read_file(picture), bytes);
}

TEST_F(CompareResults, TwoDoNotFitIntoTheStandardOutput) {
    const Finished done = compare({"--json", "-", "--junit", "-"});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.output, "");
    EXPECT_NE(done.error.find("the standard output can take one result only"), std::string::npos);
}

TEST_F(CompareResults, ACodeHostGetsAnnotations) {
    const std::string lines = on_host("GITHUB_ACTIONS");
    EXPECT_EQ(count(lines, "::error title=orvel-compare,file="), 4);
    EXPECT_NE(lines.find("/gone]]>.png::gone]]>: missing: expected, but not there\n"),
              std::string::npos)
        << lines;
    EXPECT_NE(lines.find("two\\nlines.bmp::two\\nlines: unexpected"), std::string::npos);
    EXPECT_EQ(count(on_host("TF_BUILD"), "##vso[task.logissue type=error;sourcepath="), 4);
    EXPECT_EQ(on_host("SOMETHING_ELSE"), "");
}

TEST_F(CompareResults, AnnotationsAreTenAtTheMost) {
    for (int i = 0; i < 30; ++i) save(actual + "/n" + std::to_string(i) + ".png", screen(2, 2));
    const std::string lines = on_host("GITHUB_ACTIONS");
    EXPECT_EQ(count(lines, "::error "), 11);
    EXPECT_NE(lines.find("::24 more failures\n"), std::string::npos) << lines;
}

}  // namespace
