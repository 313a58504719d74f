// What is wrong with a scene is told with its line, column and path, what was found and expected.
#include <cstring>

#include "screens.h"

namespace {

using namespace orvel_test;

struct Row {
    const char* scene;
    const char* why;
};

const Row kRows[] = {
    {R"({"orvel":1,"root":{"column":[{"text":"a"},{"text":"b"},
 {"buton":"c"}]}})",
     R"(scene:2:3: root.column[2].buton: unknown kind; did you mean "button"?)"},
    {R"({"orvel":2,"root":{"row":[]}})",
     "scene:1:10: orvel: found 2, expected 1, the version of the format"},
    {R"({"root":{"row":[]}})", R"(scene:1:1: found no "orvel": 1, which every scene has)"},
    {R"({"orvel":1})", R"(scene:1:1: found no "root", a node)"},
    {"[]", "scene:1:1: found [], expected a scene, an object"},
    {R"({"orvel":1,"root":null})", "scene:1:19: root: found null, expected a node"},
    {R"({"orvel":1,"root":"x"})", R"(scene:1:19: root: found "x", expected a node)"},
    {R"({"orvel":1,"root":{"gap":3}})",
     R"(scene:1:19: root: found a node without a kind, like "row")"},
    {R"({"orvel":1,"root":{"row":[],"text":"x"}})",
     R"(scene:1:29: root.text: found a second kind beside "row")"},
    {R"({"orvel":1,"root":{"row":[],"gpa":1}})",
     R"(scene:1:29: root.gpa: unknown key of a row; did you mean "gap"?)"},
    {R"({"orvel":1,"root":{"row":[],"icon":"home"}})",
     R"(scene:1:29: root.icon: found a second kind beside "row")"},
    {R"({"orvel":1,"rot":{"row":[]},"root":{"row":[]}})",
     R"(scene:1:12: rot: unknown key of a scene; did you mean "root"?)"},
    {R"({"orvel":1,"size":[0,3],"root":{"row":[]}})",
     "scene:1:19: size: found [0,3], expected [width, height], 1 to 32767 each"},
    {R"({"orvel":1,"sample":3,"root":{"row":[]}})",
     "scene:1:21: sample: found 3, expected an object"},
    {R"({"orvel":1,"theme":"drak","root":{"row":[]}})",
     R"(scene:1:20: theme: there is no theme "drak"; did you mean "dark"?)"},
    {R"({"orvel":1,"face":"sans 13","root":{"row":[]}})",
     R"(scene:1:19: face: there is no face "sans 13"; did you mean "sans 11"?)"},
    {R"({"orvel":1,"root":{"if":"a","row":[]}})", "scene:1:20: root.if: the root is there once"},
    {R"({"orvel":1,"root":{"row":[],"as":"y"}})", R"(scene:1:29: root: found "as" without "each")"},
    {R"({"orvel":1,"root":{"row":3}})", "scene:1:26: root.row: found 3, expected a list of nodes"},
    {R"({"orvel":1,"root":{"panel":3}})",
     "scene:1:28: root.panel: found 3, expected a node or null"},
    {R"({"orvel":1,"root":{"separator":false}})",
     "scene:1:32: root.separator: found false, expected null or true"},
    {R"({"orvel":1,"root":{"space":-1}})",
     "scene:1:28: root.space: found -1, expected 0 to 32767 pixels or null"},
    {R"({"orvel":1,"root":{"text":[]}})", "scene:1:27: root.text: found [], expected a text"},
    {R"({"orvel":1,"root":{"menu":["a",
"b|c"]}})",
     R"(scene:2:1: root.menu[1]: found "b|c", expected a text without "|")"},
    {R"({"orvel":1,"root":{"bars":[1,null,"2"]}})",
     R"(scene:1:35: root.bars[2]: found "2", expected a number or null)"},
    {R"({"orvel":1,"root":{"menu":3}})",
     R"(scene:1:27: root.menu: found 3, expected a list of texts without "|")"},
    {R"({"orvel":1,"root":{"bars":3}})",
     "scene:1:27: root.bars: found 3, expected a list of numbers"},
    {R"({"orvel":1,"root":{"slider":"x"}})",
     R"(scene:1:29: root.slider: found "x", expected a number)"},
    {R"({"orvel":1,"root":{"toggle":1}})",
     "scene:1:29: root.toggle: found 1, expected true or false"},
    {R"({"orvel":1,"root":{"row":[],"width":70000}})",
     "scene:1:37: root.width: found 70000, expected 0 to 32767 pixels"},
    {R"({"orvel":1,"root":{"row":[],"width":2.5}})",
     "scene:1:37: root.width: found 2.5, expected 0 to 32767 pixels"},
    {R"({"orvel":1,"root":{"row":[],"grow":-1}})",
     "scene:1:36: root.grow: found -1, expected 0 to 32767"},
    {R"({"orvel":1,"root":{"text":"","wrap":true,"lines":0}})",
     "scene:1:50: root.lines: found 0, expected 1 to 32767"},
    {R"({"orvel":1,"root":{"menu":[],"selected":1.5}})",
     "scene:1:41: root.selected: found 1.5, expected a whole number"},
    {R"({"orvel":1,"root":{"row":[],"pad":[1,2,3]}})",
     "scene:1:35: root.pad: found [1,2,3], expected pixels: n, [vertical, horizontal] or [top, "
     "right, bottom, left]"},
    {R"({"orvel":1,"root":{"row":[],"gap":[1,2,3]}})",
     "scene:1:35: root.gap: found [1,2,3], expected pixels: n or [along, across]"},
    {R"({"orvel":1,"root":{"row":[],"min":[1]}})",
     "scene:1:35: root.min: found [1], expected pixels: n or [width, height]"},
    {R"({"orvel":1,"root":{"slider":1,"range":[3,1]}})",
     "scene:1:39: root.range: found [3,1], expected [low, high] or [low, high, step], low below "
     "high"},
    {R"({"orvel":1,"root":{"slider":1,"range":[1,3,0]}})",
     "scene:1:39: root.range: found [1,3,0], expected [low, high] or [low, high, step], low below "
     "high"},
    {R"({"orvel":1,"root":{"row":[],"ground":"surfce"}})",
     R"(scene:1:38: root.ground: found "surfce", expected a colour, "#rrggbb" or a role of the theme; did you mean "surface"?)"},
    {R"({"orvel":1,"root":{"row":[],"ground":"#12345g"}})",
     R"(scene:1:38: root.ground: found "#12345g", expected a colour, "#rrggbb" or a role of the theme)"},
    {R"({"orvel":1,"root":{"row":[],"theme":{"accnt":"#000000"}}})",
     R"(scene:1:38: root.theme.accnt: unknown role of a theme; did you mean "accent"?)"},
    {R"({"orvel":1,"root":{"row":[],"theme":{"accent":"red"}}})",
     R"(scene:1:47: root.theme.accent: found "red", expected a colour, "#rrggbb")"},
    {R"({"orvel":1,"root":{"row":[],"theme":{"text":"#000000","border":"#12"}}})",
     R"(scene:1:64: root.theme.border: found "#12", expected a colour, "#rrggbb")"},
    {R"({"orvel":1,"root":{"row":[],"theme":3}})",
     "scene:1:37: root.theme: found 3, expected the name of a theme, or an object of roles and "
     "colours"},
    {R"({"orvel":1,"root":{"row":[],"face":3}})",
     "scene:1:36: root.face: found 3, expected the name of a face"},
    {R"({"orvel":1,"root":{"icon":"hme"}})",
     R"(scene:1:27: root.icon: found "hme", expected the name of an icon; did you mean "home"?)"},
    {R"({"orvel":1,"root":{"row":[],"align":"centre"}})",
     R"(scene:1:37: root.align: found "centre", expected start, center, end or stretch; did you mean "center"?)"},
    {R"({"orvel":1,"root":{"text":"","align":"rihgt"}})",
     R"(scene:1:38: root.align: found "rihgt", expected left, center or right; did you mean "right"?)"},
    {R"({"orvel":1,"root":{"row":[],"justify":"stretch"}})",
     R"(scene:1:39: root.justify: found "stretch", expected start, center, end or between)"},
    {R"({"orvel":1,"root":{"row":[],"scroll":"far"}})",
     R"(scene:1:38: root.scroll: found "far", expected true, or the pixels that it is scrolled by)"},
    {R"({"orvel":1,"root":{"chart":"pie"}})",
     R"(scene:1:28: root.chart: found "pie", expected line, area, spark, bars, stacked or gauge)"},
    {R"({"orvel":1,"root":{"chart":"line","series":[{"name":"x"}]}})",
     R"(scene:1:45: root.series[0]: found a series without "values")"},
    {R"({"orvel":1,"root":{"chart":"line","series":[{"values":[1]},{"vales":[1]}]}})",
     R"(scene:1:61: root.series[1].vales: unknown key of a series; did you mean "values"?)"},
    {R"({"orvel":1,"root":{"chart":"line","series":[{"values":[1,"x"]}]}})",
     R"(scene:1:58: root.series[0].values[1]: found "x", expected a number or null)"},
    {R"({"orvel":1,"root":{"chart":"line","series":[{"values":3}]}})",
     "scene:1:55: root.series[0].values: found 3, expected a list of numbers"},
    {R"({"orvel":1,"root":{"chart":"line","series":[{"values":[],"name":true}]}})",
     "scene:1:65: root.series[0].name: found true, expected a text"},
    {R"({"orvel":1,"root":{"chart":"line","series":[{"values":[],"color":"acent"}]}})",
     R"(scene:1:66: root.series[0].color: found "acent", expected a colour, "#rrggbb" or a role of the theme; did you mean "accent"?)"},
    {R"({"orvel":1,"root":{"chart":"line","series":[{"values":[1],"colour":"text"}]}})",
     R"(scene:1:59: root.series[0].colour: unknown key of a series; did you mean "color"?)"},
    {R"({"orvel":1,"root":{"chart":"line","series":[3]}})",
     "scene:1:45: root.series[0]: found 3, expected an object with values, name and color"},
    {R"({"orvel":1,"root":{"chart":"line","series":3}})",
     "scene:1:44: root.series: found 3, expected a list of objects with values, name and color"},
    {R"({"orvel":1,"sample":{"s":[{"values":[1]},{"vale":[1]}]},"root":{"chart":"line","series":"${s}"}})",
     R"(scene:1:89: root.series[1].vale: unknown key of a series; did you mean "values"?)"},
    {R"({"orvel":1,"root":{"chart":"line","series":[{"values":[]}],"values":[1]}})",
     R"(scene:1:60: root: found "values" without effect beside "series")"},
    {R"({"orvel":1,"root":{"chart":"line","color":"text","series":[{"values":[]}]}})",
     R"(scene:1:35: root: found "color" without effect beside "series")"},
    {R"({"orvel":1,"root":{"chart":"line","values":[1],"decimals":10}})",
     "scene:1:59: root.decimals: found 10, expected 0 to 9"},
    {R"({"orvel":1,"root":{"text":"","lines":2}})",
     R"(scene:1:30: root: found "lines" without "wrap")"},
    {R"({"orvel":1,"root":{"row":[],"max":20,"min":30}})",
     R"(scene:1:44: root.min: found 30, which is more than the 20 of "max")"},
    {R"({"orvel":1,"root":{"row":[{"if":"a","row":[],"min":[null,3],"max":[1,2]}]}})",
     R"(scene:1:52: root.row[0].min: found 3, which is more than the 2 of "max")"},
    {R"({"orvel":1,"root":{"row":[{"row":[],"min":[3,null],"max":2}]}})",
     R"(scene:1:43: root.row[0].min: found 3, which is more than the 2 of "max")"},
    {R"({"orvel":1,"sample":{"a":8},"root":{"column":[{"row":[],"min":"${a}","max":[null,7]}]}})",
     R"(scene:1:63: root.column[0].min: found 8, which is more than the 7 of "max")"},
    {R"({"orvel":1,"root":{"row":[],"id":"a b"}})",
     R"(scene:1:34: root.id: found "a b", expected a name of letters, digits, "_" and "-")"},
    {R"({"orvel":1,"root":{"row":[{"each":3,"text":""}]}})",
     "scene:1:35: root.row[0].each: found 3, expected where a list is in the data, as days"},
    {R"({"orvel":1,"root":{"row":[{"each":"a b","text":""}]}})",
     R"(scene:1:35: root.row[0].each: "a b" is no path like now.temp or days[2].name)"},
    {R"({"orvel":1,"root":{"row":[{"each":"days","text":""}]}})",
     "scene:1:35: root.row[0].each: there is no days in the data"},
    {R"({"orvel":1,"sample":{"days":3},"root":{"row":[{"each":"days","text":""}]}})",
     "scene:1:55: root.row[0].each: days is a number in the data, not a list"},
    {R"({"orvel":1,"root":{"row":[{"if":"a <","text":""}]}})",
     R"(scene:1:33: root.row[0].if: found "", expected a number, 'a text', true, false or null)"},
    {R"({"orvel":1,"root":{"row":[{"if":"a < b","text":""}]}})",
     R"(scene:1:33: root.row[0].if: found "b", expected a number, 'a text', true, false or null)"},
    {R"({"orvel":1,"root":{"row":[{"if":3,"text":""}]}})",
     "scene:1:33: root.row[0].if: found 3, expected a name, or one compared with a value, as "
     "battery < 20"},
    {R"({"orvel":1,"root":{"text":"${now.temp"}})",
     "scene:1:27: root.text: found \"${now.temp\" without a }; a literal ${ is written $${"},
    {R"({"orvel":1,"root":{"text":"${now.temp}"}})",
     "scene:1:27: root.text: there is no now.temp in the data"},
    {R"({"orvel":1,"root":{"text":"A ${now.temp} B"}})",
     "scene:1:27: root.text: there is no now.temp in the data"},
    {R"({"orvel":1,"sample":{"now":{"tmp":1}},"root":{"row":[],"width":"${now.temp}"}})",
     R"(scene:1:64: root.width: now has no temp in the data; did you mean "tmp"?)"},
    {R"({"orvel":1,"sample":{"w":"x"},"root":{"row":[],"width":"${w}"}})",
     R"(scene:1:56: root.width: found "x", expected 0 to 32767 pixels)"},
    {R"({"orvel":1,"sample":{"w":[1,"x"]},"root":{"bars":"${w}"}})",
     R"(scene:1:50: root.bars[1]: found "x", expected a number or null)"},
    {R"({"orvel":1,"root":{"text":"","hint":"x"}})",
     "scene:1:30: root.hint: unknown key of a text"},
    {R"({"orvel":1,"root":{"include":"../x.json"}})",
     R"(scene:1:30: root.include: found "../x.json", expected the name of a file in this folder or below)"},
    {R"({"orvel":1,"root":{"include":"x.json"}})",
     R"(scene:1:30: root.include: there is no scene "x.json")"},
    {R"({"orvel":1,"root":{"image":"../x"}})",
     R"(scene:1:28: root.image: found "../x", expected the name of a file in this folder or below)"},
    {R"({"orvel":1,"size":[3],"root":{"row":[]}})",
     "scene:1:19: size: found [3], expected [width, height], 1 to 32767 each"},
    {R"({"orvel":1,"size":[3,0],"root":{"row":[]}})",
     "scene:1:19: size: found [3,0], expected [width, height], 1 to 32767 each"},
    {R"({"orvel":1,"root":{"gap":3,"one":1,"two":2}})", "scene:1:28: root.one: unknown kind"},
    {R"({"orvel":1,"root":{"vbox":[]}})",
     R"(scene:1:20: root.vbox: unknown kind; did you mean "column"?)"},
    {R"({"orvel":1,"root":{"text":"","font":"bold 12"}})",
     R"(scene:1:30: root.font: unknown key of a text; did you mean "face"?)"},
    {R"({"orvel":1,"root":{"row":[],"margin":3}})",
     R"(scene:1:29: root.margin: unknown key of a row; did you mean "pad"?)"},
    {R"({"orvel":1,"root":{"text":"","placeholder":"x"}})",
     "scene:1:30: root.placeholder: unknown key of a text"},
    {R"({"orvel":1,"root":{"space":true}})",
     "scene:1:28: root.space: found true, expected 0 to 32767 pixels or null"},
    {R"({"orvel":1,"root":{"separator":3}})",
     "scene:1:32: root.separator: found 3, expected null or true"},
    {R"({"orvel":1,"root":{"row":[],"pad":[1,"x"]}})",
     "scene:1:35: root.pad: found [1,\"x\"], expected pixels: n, [vertical, horizontal] or [top, "
     "right, bottom, left]"},
    {R"({"orvel":1,"root":{"row":[],"pad":"x"}})",
     "scene:1:35: root.pad: found \"x\", expected pixels: n, [vertical, horizontal] or [top, "
     "right, "
     "bottom, left]"},
    {R"({"orvel":1,"root":{"row":[],"gap":["x",1]}})",
     R"(scene:1:35: root.gap: found ["x",1], expected pixels: n or [along, across])"},
    {R"({"orvel":1,"root":{"row":[],"min":["x",1]}})",
     R"(scene:1:35: root.min: found ["x",1], expected pixels: n or [width, height])"},
    {R"({"orvel":1,"root":{"row":[],"max":"x"}})",
     R"(scene:1:35: root.max: found "x", expected pixels: n or [width, height])"},
    {R"({"orvel":1,"root":{"slider":1,"range":3}})",
     "scene:1:39: root.range: found 3, expected [low, high] or [low, high, step], low below high"},
    {R"({"orvel":1,"root":{"slider":1,"range":[3]}})",
     "scene:1:39: root.range: found [3], expected [low, high] or [low, high, step], low below "
     "high"},
    {R"({"orvel":1,"root":{"slider":1,"range":[1,2,3,4]}})",
     "scene:1:39: root.range: found [1,2,3,4], expected [low, high] or [low, high, step], low "
     "below "
     "high"},
    {R"({"orvel":1,"root":{"slider":1,"range":["a",1]}})",
     R"(scene:1:39: root.range: found ["a",1], expected [low, high] or [low, high, step], low below high)"},
    {R"({"orvel":1,"root":{"slider":1,"range":[-1.7e308,1.7e308]}})",
     "scene:1:39: root.range: found [-1.7e308,1.7e308], expected [low, high] or [low, high, step], "
     "low below high"},
    {R"({"orvel":1,"root":{"row":[],"ground":3}})",
     R"(scene:1:38: root.ground: found 3, expected a colour, "#rrggbb" or a role of the theme)"},
    {R"({"orvel":1,"root":{"row":[],"theme":{"accent":3}}})",
     R"(scene:1:47: root.theme.accent: found 3, expected a colour, "#rrggbb")"},
    {R"({"orvel":1,"root":{"menu":[[]]}})",
     R"(scene:1:28: root.menu[0]: found [], expected a text without "|")"},
    {R"({"orvel":1,"root":{"icon":3}})",
     "scene:1:27: root.icon: found 3, expected the name of an icon"},
    {R"({"orvel":1,"root":{"row":[],"id":3}})",
     R"(scene:1:34: root.id: found 3, expected a name of letters, digits, "_" and "-")"},
    {R"({"orvel":1,"root":{"include":3}})",
     "scene:1:30: root.include: found 3, expected the name of a file in this folder or below"},
    {R"({"orvel":1,"root":{"row":[],"align":3}})",
     "scene:1:37: root.align: found 3, expected start, center, end or stretch"},
    {R"({"orvel":1,"root":{"row":[{"if":"","text":""}]}})",
     R"(scene:1:33: root.row[0].if: found "", expected a name, alone, with ! before it, or compared with one value: battery < 20, !open, sky == 'Fog')"},
    {R"({"orvel":1,"root":{"row":[{"if":"a && b","text":""}]}})",
     R"(scene:1:33: root.row[0].if: found "a && b", expected a name, alone, with ! before it, or compared with one value: battery < 20, !open, sky == 'Fog')"},
    {R"({"orvel":1,"root":{"row":[{"if":"a == '","text":""}]}})",
     R"(scene:1:33: root.row[0].if: found "'", expected a number, 'a text', true, false or null)"},
    {R"({"orvel":1,"root":{"row":[{"if":"a == 'b","text":""}]}})",
     R"(scene:1:33: root.row[0].if: found "'b", expected a number, 'a text', true, false or null)"},
    {R"({"orvel":1,"root":{"row":[{"if":"a == 1e999","text":""}]}})",
     R"(scene:1:33: root.row[0].if: found "1e999", expected a number, 'a text', true, false or null)"},
    {R"({"orvel":1,"root":{"with":3,"include":"x"}})",
     "scene:1:27: root.with: found 3, expected an object of values"},
    {R"({"orvel":1,"root":{"row":"a text that is far longer than what a reason shows"}})",
     R"(scene:1:26: root.row: found "a text that is far longer than what a re...", expected a list of nodes)"},
    {R"({"orvel":1,"root":{"row":[],"gap":[1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18]}})",
     "scene:1:35: root.gap: found a list, expected pixels: n or [along, across]"},
};

class RefusalsTest : public testing::TestWithParam<Row> {};

INSTANTIATE_TEST_SUITE_P(, RefusalsTest, testing::ValuesIn(kRows),
                         [](const auto& row) { return "Row" + std::to_string(row.index); });

TEST_P(RefusalsTest, ToldExactly) { EXPECT_EQ(refusal(GetParam().scene), GetParam().why); }

TEST(RefusalsOfSeriesTest, NameHowManyThereMayBe) {
    const auto chart = [](int count) {
        std::string all;
        for (int i = 0; i < count; ++i) all += i > 0 ? R"(, {"values": []})" : R"({"values": []})";
        return scene(R"({"chart": "line", "series": [)" + all + "]}");
    };
    EXPECT_EQ(refusal(chart(32)), "");
    EXPECT_EQ(refusal(chart(33)), "scene:1:50: root.series: found 33 series, 32 are the most");
}

TEST(RefusalsOfBoundsTest, OnlyWhatCrossesIsRefused) {
    for (const char* bounds :
         {R"("min": 3, "max": 3)", R"("min": [3, 4], "max": [3, 4])",
          R"("min": [9, null], "max": [null, 3])", R"("min": 40)", R"("max": 0)"}) {
        EXPECT_EQ(refusal(scene(std::string(R"({"row": [{"row": [], )") + bounds + "}]}")), "");
    }
    // A number counts along the parent only.
    EXPECT_EQ(refusal(scene(R"({"row": [{"row": [], "min": 9, "max": [null, 3]}]})")), "");
}

TEST(RefusalsOfNamesTest, NameTheLettersOfNamesAndColours) {
    for (const char* id : {"", "a!", "a:", "a@", "a[", "a`", "a{"}) {
        EXPECT_NE(refusal(scene(std::string(R"({"row": [], "id": ")") + id + "\"}")), "") << id;
    }
    EXPECT_EQ(refusal(scene(R"({"row": [], "id": "aZ09_-é"})")), "");
    for (const char* color :
         {"#/00000", "#0:0000", "#00@000", "#000G00", "#0000`0", "#00000g", "#1"}) {
        const std::string node = std::string(R"({"rect": ")") + color + "\"}";
        EXPECT_NE(refusal(scene(node)), "") << color;
    }
    EXPECT_EQ(refusal(scene(R"({"rect": "#09afAF"})")), "");
}

TEST(RefusalsOfDataTest, TellWhereTheDataAreWrong) {
    const std::string text = scene(R"({"text": "${a}"})");
    EXPECT_EQ(refusal(text, "{\"a\": 1"),
              R"(data:1:8: found the end of the file, expected "," or "}")");
    EXPECT_EQ(refusal(text, "[1]"), "data:1:1: found [1], expected an object");
    EXPECT_EQ(refusal(text, "{\"a\": null}"), "scene:1:31: root.text: a is null in the data");
}

TEST(RefusalsCutTest, AreCutToTheBufferBetweenCharacters) {
    const std::string text = scene(R"({"row": [], "näme": 1})");
    char why[30];
    EXPECT_EQ(kit_screen_read(text.data(), text.size(), "s", nullptr, nullptr, why, 20), nullptr);
    EXPECT_STREQ(why, "s:1:34: root.näme:");
    EXPECT_EQ(kit_screen_read(text.data(), text.size(), "s", nullptr, nullptr, why, 16), nullptr);
    EXPECT_STREQ(why, "s:1:34: root.n");
    EXPECT_EQ(kit_screen_read(text.data(), text.size(), "s", nullptr, nullptr, why, 1), nullptr);
    EXPECT_STREQ(why, "");
    EXPECT_EQ(kit_screen_read(text.data(), text.size(), "s", nullptr, nullptr, why, 0), nullptr);
    EXPECT_EQ(kit_screen_read(text.data(), text.size(), "s", nullptr, nullptr, nullptr, 9),
              nullptr);
    EXPECT_EQ(kit_screen_read(nullptr, 9, "a\nb", nullptr, nullptr, why, 9), nullptr);
    EXPECT_EQ(std::strncmp(why, "a?b:1:1:", 8), 0) << why;
    EXPECT_EQ(kit_screen_read(nullptr, 9, "a\x7f", nullptr, nullptr, why, 3), nullptr);
    EXPECT_STREQ(why, "a?");
}

}  // namespace
