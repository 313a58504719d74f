// Live data: paths, templates, setting.
#include "screen/data.h"

#include <gtest/gtest.h>

namespace {

using kit::Kind;
using kit::Scope;
using kit::Value;

const char* const kData = R"({
    "now": {"temp": 20.83, "sky": "Fog", "rain": null, "wet": false, "tiny": 1e-07},
    "days": [{"name": "Sunday", "high": 23}, {"name": "Monday", "high": -0.5}],
    "battery": 9, "text": "12.50", "state": "unavailable", "temperature_2m": 3, "größe": "XL",
    "a-b": 1, "2x": 2, "On_Z": true})";

Value value_of(const std::string& text) {
    Value root;
    std::string why;
    EXPECT_TRUE(kit::read_document(text, "data", root, why)) << why;
    return root;
}

const Value& data() {
    static const Value value = value_of(kData);
    return value;
}

/// The text of a template, or the reason why there is none.
std::string filled(const std::string& source, const Scope& scope) {
    kit::Template read;
    std::string text, why;
    const bool done = kit::read_template(source, read, why) && kit::fill(read, scope, text, why);
    return done ? text : "! " + why;
}

std::string filled(const std::string& source) { return filled(source, {&data(), {}, nullptr}); }

/// The value of a template as JSON, or the reason why there is none.
std::string evaluated(const std::string& source) {
    kit::Template read;
    std::string why;
    Value room;
    if (!kit::read_template(source, read, why)) return "! " + why;
    const Value* value = kit::evaluate(read, {&data(), {}, nullptr}, room, why);
    return value ? kit::write_json(*value) : "! " + why;
}

TEST(DataTest, AReferenceShowsWhatItsPathLeadsTo) {
    EXPECT_EQ(filled("${now.temp}"), "20.83");
    EXPECT_EQ(filled("${now.sky}, ${now.wet}; ${days[1].name}!"), "Fog, false; Monday!");
    EXPECT_EQ(filled("${temperature_2m}${größe}${a-b}${2x}"), "3XL12");
    EXPECT_EQ(filled("${now.tiny}"), "1e-07");
    EXPECT_EQ(filled("${On_Z}"), "true");
    EXPECT_EQ(filled(""), "");
    EXPECT_EQ(filled("plain"), "plain");
}

TEST(DataTest, DecimalsRound) {
    EXPECT_EQ(filled("${now.temp:1}°"), "20.8°");
    EXPECT_EQ(filled("${now.temp:0} ${days[1].high:0} ${now.tiny:3}"), "21 -1 0.000");
    EXPECT_EQ(filled("${text:1}"), "12.5");  // numbers come as texts, too
    EXPECT_EQ(filled("${state:1}"), "! state is a text in the data, not a number");
    EXPECT_EQ(filled("${now.wet:1}"), "! now.wet is true or false in the data, not a number");
}

TEST(DataTest, AFallbackStandsForWhatIsMissingOrNull) {
    EXPECT_EQ(filled("${now.rain|dry}"), "dry");
    EXPECT_EQ(filled("${no.such[3].thing:1|–}"), "–");
    EXPECT_EQ(filled("${days[2].name|}"), "");
    EXPECT_EQ(filled("${state:1|n/a: or | so}"), "n/a: or | so");
    EXPECT_EQ(filled("${battery|none}"), "9");
}

TEST(DataTest, WhatIsMissingIsToldWithTheNameThatIsNear) {
    EXPECT_EQ(filled("${batery}"), "! there is no batery in the data; did you mean \"battery\"?");
    EXPECT_EQ(filled("${now.tmp}"), "! now has no tmp in the data; did you mean \"temp\"?");
    EXPECT_EQ(filled("${now.rain}"), "! now.rain is null in the data");
    EXPECT_EQ(filled("${now.rain.x}"), "! now.rain is null in the data, without a x");
    EXPECT_EQ(filled("${battery.x}"), "! battery is a number in the data, without a x");
    EXPECT_EQ(filled("${battery[0]}"), "! battery is a number in the data, not a list");
    EXPECT_EQ(filled("${days[2].name}"), "! days has only 2 items in the data");
    EXPECT_EQ(filled("${days[99999999999].name}"), "! days has only 2 items in the data");
    EXPECT_EQ(filled("${days}"), "! days is a list in the data, which has no text");
    EXPECT_EQ(filled("${now}"), "! now is an object in the data, which has no text");
    EXPECT_EQ(filled("${x}", {}), "! there is no x in the data");
    EXPECT_EQ(filled("${x}", {data().find("days"), {}, nullptr}), "! there is no x in the data");
    EXPECT_EQ(kit::look_up({}, {&data(), {}, nullptr}), nullptr);
}

TEST(DataTest, ADollarIsLiteralBeforeAnotherAndWithoutABrace) {
    EXPECT_EQ(filled("$${now.temp}"), "${now.temp}");
    EXPECT_EQ(filled("$5 $$ $$$${a} } {"), "$5 $$ $$${a} } {");
    EXPECT_EQ(filled("$$${battery}"), "$${battery}");
}

TEST(DataTest, ABadReferenceIsRefused) {
    for (const char* path : {"", ".", "a.", ".a", "a..b", "a[", "a[]", "a[x]", "a[1", "[0]", "a b",
                             "a[1]b", "a[-1]", "a[1x]", "a^b", "a+b", "a[1]]"}) {
        EXPECT_EQ(filled("${" + std::string(path) + "}"),
                  "! \"" + std::string(path) + "\" is no path like now.temp or days[2].name");
    }
    EXPECT_EQ(filled("a ${b"), "! found \"${b\" without a }; a literal ${ is written $${");
    for (const char* decimals : {"", "10", "x", "-1", "/", ":"}) {
        EXPECT_EQ(
            filled("${a:" + std::string(decimals) + "}"),
            "! found \"" + std::string(decimals) + "\" behind a colon, expected decimals, 0 to 9");
    }
    std::string deep = "a";
    for (int i = 1; i < 64; ++i) deep += ".a";
    EXPECT_EQ(filled("${" + deep + "|x}"), "x");
    EXPECT_NE(filled("${" + deep + ".a|x}").find("is no path"), std::string::npos);
}

TEST(DataTest, AWholeReferenceKeepsItsType) {
    EXPECT_EQ(evaluated("${battery}"), "9");
    EXPECT_EQ(evaluated("${now.wet}"), "false");
    EXPECT_EQ(evaluated("${days[0]}"), R"({"name":"Sunday","high":23})");
    EXPECT_EQ(evaluated("${now.temp:1}"), "20.8");
    EXPECT_EQ(evaluated("${text}"), "\"12.50\"");
    EXPECT_EQ(evaluated("${x|5}"), "5");
    EXPECT_EQ(evaluated("${x|true}"), "true");
    EXPECT_EQ(evaluated("${x|false}"), "false");
    EXPECT_EQ(evaluated("${x|05}"), "\"05\"");
    EXPECT_EQ(evaluated("${x|}"), "\"\"");
    EXPECT_EQ(evaluated("${battery} %"), "\"9 %\"");
    EXPECT_EQ(evaluated("${battery}${battery}"), "\"99\"");
    EXPECT_EQ(evaluated("5"), "\"5\"");
    EXPECT_EQ(evaluated(""), "\"\"");
    EXPECT_EQ(evaluated("${x}"), "! there is no x in the data");
    EXPECT_EQ(evaluated("a ${x}"), "! there is no x in the data");
}

TEST(DataTest, ANumberInRoomIsAlsoItsDouble) {
    kit::Template source;
    std::string why;
    Value room;
    ASSERT_TRUE(kit::read_template("${now.temp:1}", source, why));
    EXPECT_EQ(kit::evaluate(source, {&data(), {}, nullptr}, room, why)->number, 20.8);
}

TEST(DataTest, NamesOfARepetitionHideThoseFurtherOut) {
    const Value& days = *data().find("days");
    const Scope outer = {&data(), {}, nullptr};
    const Scope day = {&days.items[0], "day", &outer};
    EXPECT_EQ(filled("${day.name} ${battery}", day), "Sunday 9");
    const Scope other = {&days.items[1], "day", &day};
    EXPECT_EQ(filled("${day.name}", other), "Monday");
    const Scope number = {data().find("battery"), "now", &other};
    EXPECT_EQ(filled("${now}", number), "9");
    EXPECT_EQ(filled("${now.temp}", number), "! now is a number in the data, without a temp");
    EXPECT_EQ(filled("${dya}", number), "! there is no dya in the data; did you mean \"day\"?");
}

TEST(DataTest, ATextIsBounded) {
    const Value long_text = value_of("{\"t\": \"" + std::string(kit::kMostText, 'x') + "\"}");
    const Scope scope = {&long_text, {}, nullptr};
    EXPECT_EQ(filled("${t}", scope).size(), kit::kMostText);
    EXPECT_EQ(filled("${t}.", scope), "! found a text of more than 65536 bytes");
}

TEST(DataTest, ATemplateKnowsWhetherItHasReferences) {
    kit::Template source;
    std::string why;
    for (const char* plain : {"", "a", "$${a}"}) {
        ASSERT_TRUE(kit::read_template(plain, source, why));
        EXPECT_TRUE(source.plain()) << plain;
        EXPECT_EQ(source.whole(), nullptr) << plain;
    }
    for (const char* mixed : {" ${a}", "${a} ", "${a}${b}"}) {
        ASSERT_TRUE(kit::read_template(mixed, source, why));
        EXPECT_FALSE(source.plain()) << mixed;
        EXPECT_EQ(source.whole(), nullptr) << mixed;
    }
    ASSERT_TRUE(kit::read_template("${a.b:2|c}", source, why));
    ASSERT_NE(source.whole(), nullptr);
    EXPECT_EQ(source.whole()->written, "a.b");
    EXPECT_EQ(source.whole()->decimals, 2);
    EXPECT_EQ(source.whole()->fallback, "c");
}

/// The data after setting, or the reason why it did not change.
std::string after_setting(const std::string& root, const std::string& path,
                          const std::string& json) {
    Value value = value_of(root);
    std::string why;
    if (kit::set_json(value, path, json, why)) return kit::write_json(value);
    EXPECT_EQ(kit::write_json(value), root);
    return "! " + why;
}

TEST(DataTest, ValuesAreSetByTheirPaths) {
    EXPECT_EQ(after_setting(R"({"a":1})", "a", "2"), R"({"a":2})");
    EXPECT_EQ(after_setting(R"({"a":1})", "b", "[1,{}]"), R"({"a":1,"b":[1,{}]})");
    EXPECT_EQ(after_setting("{}", "a.b[0].c", "\"x\""), R"({"a":{"b":[{"c":"x"}]}})");
    EXPECT_EQ(after_setting(R"({"a":[1,2]})", "a[1]", "9"), R"({"a":[1,9]})");
    EXPECT_EQ(after_setting(R"({"a":[1,2]})", "a[2].b", "9"), R"({"a":[1,2,{"b":9}]})");
    EXPECT_EQ(after_setting(R"({"a":null})", "a[0]", "9"), R"({"a":[9]})");
    EXPECT_EQ(after_setting(R"({"a":null})", "a.b", "null"), R"({"a":{"b":null}})");
    EXPECT_EQ(after_setting(R"({"a":{"b":{"c":1}}})", "a.b", "true"), R"({"a":{"b":true}})");
}

TEST(DataTest, WhatCannotBeSetChangesNothing) {
    EXPECT_EQ(after_setting(R"({"a":1})", "a.b", "2"), "! a is a number, not an object");
    EXPECT_EQ(after_setting(R"({"a":{}})", "a[0]", "2"), "! a is an object, not a list");
    EXPECT_EQ(after_setting("{}", "a[1]", "2"), "! a is missing, not a list");
    EXPECT_EQ(after_setting(R"({"a":[1]})", "a[2]", "2"), "! a has only 1 items");
    EXPECT_EQ(after_setting("[]", "a", "2"), "! the data is a list, not an object");
    EXPECT_EQ(after_setting("{}", "a b", "2"),
              "! \"a b\" is no path like now.temp or days[2].name");
    EXPECT_EQ(after_setting("{}", "a", "tru"), "! a:1:1: found \"tru\", expected a value");
    const std::string deep = std::string(63, '[') + std::string(63, ']');
    EXPECT_EQ(after_setting("{}", "a", deep), "{\"a\":" + deep + "}");
    EXPECT_EQ(after_setting("{}", "a.b", deep), "! a.b would lie too deep");
}

TEST(DataTest, AValueCanBeSetFromTheSameData) {
    Value root = value_of(R"({"a":{"b":[1]}})");
    std::string why;
    kit::Path path;
    ASSERT_TRUE(kit::read_path("a.b[1]", path, why));
    ASSERT_TRUE(kit::set_value(root, path, *root.find("a"), why));
    EXPECT_EQ(kit::write_json(root), R"({"a":{"b":[1,{"b":[1]}]}})");
    ASSERT_TRUE(kit::read_path("a", path, why));
    ASSERT_TRUE(kit::set_value(root, path, Value(root.find("a")->find("b")->items[1]), why));
    EXPECT_EQ(kit::write_json(root), R"({"a":{"b":[1]}})");
}

}  // namespace
