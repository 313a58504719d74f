// JSON as a tree of values with places.
#include "screen/document.h"

#include <gtest/gtest.h>

#include <clocale>

namespace {

using kit::Kind;
using kit::Value;

/// The value as JSON, or the reason why there is none.
std::string read(const std::string& text) {
    Value root;
    std::string why;
    return kit::read_document(text, "f", root, why) ? kit::write_json(root) : why;
}

Value value_of(const std::string& text) {
    Value root;
    std::string why;
    EXPECT_TRUE(kit::read_document(text, "f", root, why)) << why;
    return root;
}

std::string place_of(const kit::Place& place) {
    return std::to_string(place.line) + ":" + std::to_string(place.column);
}

TEST(DocumentTest, MembersKeepTheirOrderAndNumbersTheirText) {
    EXPECT_EQ(read(R"( {"z": 1.50e+3, "a": [-0, 0.10, 123456789012345678901234567890],
                        "m": {"": null, "t": true, "f": false}} )"),
              R"({"z":1.50e+3,"a":[-0,0.10,123456789012345678901234567890],)"
              R"("m":{"":null,"t":true,"f":false}})");
}

TEST(DocumentTest, TextsAreWrittenSoThatTheyReadTheSame) {
    EXPECT_EQ(read(R"(["\u00e9\ud83d\ude00 \"\\\/\b\n\t"])"),
              "[\"\u00e9\U0001F600 \\\"\\\\/\\u0008\\n\\u0009\"]");
    const std::string written = kit::write_json(value_of(R"(["\u001f\u007f\u2028"])"));
    EXPECT_EQ(read(written), written);
}

TEST(DocumentTest, PlacesCountCharactersFrom1) {
    const Value root =
        value_of("{\n  \"\u00e9\": \"\U0001F600\",  \"b\" :\t[ 1,\r\n22 , true,{} ] }");
    EXPECT_EQ(place_of(root.place), "1:1");
    EXPECT_EQ(place_of(root.find("\u00e9")->key_place), "2:3");
    EXPECT_EQ(place_of(root.find("\u00e9")->place), "2:8");
    const Value& list = *root.find("b");
    EXPECT_EQ(place_of(list.key_place), "2:14");
    EXPECT_EQ(place_of(list.place), "2:20");
    EXPECT_EQ(place_of(list.items[0].place), "2:22");
    EXPECT_EQ(place_of(list.items[1].place), "3:1");
    EXPECT_EQ(place_of(list.items[2].place), "3:6");
    EXPECT_EQ(place_of(list.items[3].place), "3:11");
}

TEST(DocumentTest, PlacesSeeThroughEscapesInTexts) {
    const Value root = value_of(R"(["a\"],\\", "\\", 5])");
    EXPECT_EQ(place_of(root.items[1].place), "1:13");
    EXPECT_EQ(place_of(root.items[2].place), "1:19");
}

TEST(DocumentTest, ANumberIsAlsoItsDouble) {
    const Value root = value_of("[-3, 18446744073709551615, 0.1, 1e-400, 2.5E2]");
    EXPECT_EQ(root.items[0].number, -3);
    EXPECT_EQ(root.items[1].number, 18446744073709551615.0);
    EXPECT_EQ(root.items[2].number, 0.1);
    EXPECT_EQ(root.items[3].number, 0);
    EXPECT_EQ(root.items[4].number, 250);
}

TEST(DocumentTest, MembersAreFoundAndMade) {
    Value root = value_of(R"({"b": 1, "a": 2, "c": 3})");
    EXPECT_EQ(root.find("a")->text, "2");
    EXPECT_EQ(root.find("d"), nullptr);
    EXPECT_EQ(root.find(""), nullptr);
    EXPECT_EQ(root.items[0].find("a"), nullptr);
    root.member("aa").kind = Kind::List;
    root.member("b").text = "9";
    EXPECT_EQ(kit::write_json(root), R"({"b":9,"a":2,"c":3,"aa":[]})");
    root.find("c")->text = "7";
    EXPECT_EQ(root.items[2].text, "7");
}

TEST(DocumentTest, AByteOrderMarkIsNoCharacter) {
    const Value root = value_of("\xEF\xBB\xBF[1]");
    EXPECT_EQ(place_of(root.place), "1:1");
    EXPECT_EQ(place_of(root.items[0].place), "1:2");
    EXPECT_EQ(read("\xEF\xBB\xBF\xEF\xBB\xBF[1]"),
              "f:1:1: found a second byte order mark, expected a value");
}

TEST(DocumentTest, WhatIsWrongIsToldWithItsPlace) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "f:1:1: found the end of the file, expected a value"},
        {" \n ", "f:2:2: found the end of the file, expected a value"},
        {"{\"a\" 1}", "f:1:6: found a number, expected \":\""},
        {"{\"a\"", "f:1:5: found the end of the file, expected \":\""},
        {"{\"a\":}", "f:1:6: found \"}\", expected a value"},
        {"{\"a\":1,}", "f:1:8: found \"}\", expected a key in quotes"},
        {"{\"a\":1", "f:1:7: found the end of the file, expected \",\" or \"}\""},
        {"{\"a\":1 \"b\":2}", "f:1:8: found a text, expected \",\" or \"}\""},
        {"{\"a\":1}}", "f:1:8: found \"}\", expected the end of the file"},
        {"{a:1}", "f:1:2: found \"a\", expected a key in quotes"},
        {"{'a':1}", "f:1:2: found \"'a'\", expected a key in quotes"},
        {"{,}", "f:1:2: found \",\", expected a key in quotes"},
        {"{1:2}", "f:1:2: found a number, expected a key in quotes"},
        {"[1,]", "f:1:4: found \"]\", expected a value"},
        {"[1,,2]", "f:1:4: found \",\", expected a value"},
        {"[1 2]", "f:1:4: found a number, expected \",\" or \"]\""},
        {"[1}", "f:1:3: found \"}\", expected \",\" or \"]\""},
        {"[", "f:1:2: found the end of the file, expected a value"},
        {"]", "f:1:1: found \"]\", expected a value"},
        {"1 2", "f:1:3: found a number, expected the end of the file"},
        {"[tru]", "f:1:2: found \"tru\", expected a value"},
        {"[truex]", "f:1:6: found \"x\", expected \",\" or \"]\""},
        {"[nan]", "f:1:2: found \"nan\", expected a value"},
        {"// hi", "f:1:1: found \"//\", expected a value"},
        {"\x1b", "f:1:1: found \"\\u001b\", expected a value"},
        {"[01]", "f:1:3: found a number, expected \",\" or \"]\""},
        {"[1x]", "f:1:3: found \"x\", expected \",\" or \"]\""},
        {"[0x10]", "f:1:3: found \"x10\", expected \",\" or \"]\""},
        {"[+1]", "f:1:2: found \"+1\", expected a value"},
        {"[.5]", "f:1:2: found \".5\", expected a value"},
        {"[-]", "f:1:2: found a number that is wrong: expected digit after '-'"},
        {"[1.]", "f:1:2: found a number that is wrong: expected digit after '.'"},
        {"[1e]", "f:1:2: found a number that is wrong: expected '+', '-', or digit after exponent"},
        {"[1e999]", "f:1:2: found a number that is too large"},
        {"[\"abc", "f:1:2: found a text that is wrong: missing closing quote"},
        {"[\"a\nb\"]",
         "f:1:2: found a text that is wrong: control character U+000A (LF) must be escaped to "
         "\\u000A or \\n"},
        {"[\"\\q\"]", "f:1:2: found a text that is wrong: forbidden character after backslash"},
        {"[\"\\u12g4\"]",
         "f:1:2: found a text that is wrong: '\\u' must be followed by 4 hex digits"},
        {"[\"\\ud800\"]",
         "f:1:2: found a text that is wrong: surrogate U+D800..U+DBFF must be followed by "
         "U+DC00..U+DFFF"},
        {"[\"\u00e9\",  x]", "f:1:8: found \"x\", expected a value"},
        {"[abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyz]",
         "f:1:2: found \"abcdefghijklmnopqrstuvwxyzabcdefghijklmn...\", expected a value"},
    };
    for (const auto& [text, reason] : cases) EXPECT_EQ(read(text), reason) << text;
}

TEST(DocumentTest, ARepeatedKeyIsRefused) {
    EXPECT_EQ(read("{\"a\": 1,\n \"b\": {\"a\": 2},\n \"a\": 3}"),
              "f:3:2: found the key \"a\" again; it is in line 1 already");
    EXPECT_EQ(read(R"({"a\nb": 1, "a\u000ab": 2})"),
              "f:1:13: found the key \"a\\nb\" again; it is in line 1 already");
    EXPECT_EQ(read(R"({"x": 1, "x": 2, "x": 3, "a": 1, "a": 2})"),
              "f:1:34: found the key \"a\" again; it is in line 1 already");
}

TEST(DocumentTest, TheCharacterZeroIsRefusedInAnyForm) {
    EXPECT_EQ(read(R"([1, "\u0000"])"),
              "f:1:5: found the character U+0000, which nothing can show");
    EXPECT_EQ(read(R"({"\u0000": 1})"),
              "f:1:2: found the character U+0000, which nothing can show");
    EXPECT_EQ(read(std::string("[1]\0", 4)), "f:1:4: found a zero byte");
}

TEST(DocumentTest, EveryIllFormedSequenceOfUtf8IsRefused) {
    const char* const bad[] = {"\x80",
                               "\xBF",
                               "\xC0\xAF",
                               "\xC1\xBF",
                               "\xC2",
                               "\xC2\x41",
                               "\xE0\x9F\xBF",
                               "\xED\xA0\x80",
                               "\xE1\x80",
                               "\xE1\x41\x80",
                               "\xE1\x80\x41",
                               "\xF0\x8F\xBF\xBF",
                               "\xF4\x90\x80\x80",
                               "\xF1\x80\x80",
                               "\xF1\x80\x41\x80",
                               "\xF1\x41\x80\x80",
                               "\xF5\x80\x80\x80",
                               "\xFF"};
    for (const std::string part : bad) {
        EXPECT_EQ(read("[\"\u00e9" + part + "\"]"), "f:1:4: found what is not UTF-8");
    }
    EXPECT_EQ(read("\"\xC2"), "f:1:2: found what is not UTF-8");
    const char* const good[] = {
        "\x7F",         "\xC2\x80",     "\xDF\xBF",         "\xE0\xA0\x80",     "\xED\x9F\xBF",
        "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF3\xBF\xBF\xBF", "\xF4\x8F\xBF\xBF"};
    for (const std::string part : good) EXPECT_EQ(read("\"" + part + "\""), "\"" + part + "\"");
}

std::string nested(std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); }

TEST(DocumentTest, DepthAndSizeAreBounded) {
    EXPECT_EQ(read(nested(64)), nested(64));
    EXPECT_EQ(read(nested(65)), "f:1:65: found more than 64 lists and objects in each other");
    EXPECT_EQ(read(std::string(1000000, '[')),
              "f:1:65: found more than 64 lists and objects in each other");
    EXPECT_EQ(read(std::string(16 << 20, ' ').replace(0, 1, "1")), "1");
    EXPECT_EQ(read(std::string((16 << 20) + 1, ' ')), "f: larger than 16 MiB");
    std::string many = "[0";
    for (int i = 2; i < 250000; ++i) many += ",0";
    EXPECT_EQ(value_of(many + "]").items.size(), 249999u);
    EXPECT_EQ(read(many + ",0]"), "f:1:500000: found more than 250000 values");
    for (const std::string item : {"true", "null", "\"\"", "[]", "{}"}) {
        std::string items = "[" + item;
        for (int i = 1; i < 250000; ++i) items += "," + item;
        EXPECT_NE(read(items + "]").find("found more than 250000 values"), std::string::npos);
    }
    EXPECT_EQ(read(std::string(400, '1') + "e-300"), "f:1:1: found too long a number");
    EXPECT_EQ(read("1." + std::string(398, '1')).size(), 400u);
    EXPECT_EQ(read("[1." + std::string(399, '1') + "]"), "f:1:2: found too long a number");
}

TEST(DocumentTest, ManyKeysTakeNoLongerThanTheySort) {
    std::string text = "{";
    for (int i = 0; i < 200000; ++i) text += "\"k" + std::to_string(i) + "\":0,";
    EXPECT_EQ(value_of(text + "\"\":1}").items.size(), 200001u);
}

TEST(DocumentTest, TheLocaleHasNoSay) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8"}) {
        if (std::setlocale(LC_ALL, name)) break;
    }
    EXPECT_EQ(value_of("2.5").number, 2.5);
    EXPECT_EQ(read("[1,5]"), "[1,5]");
    std::setlocale(LC_ALL, before.c_str());
}

TEST(DocumentTest, NamesThatAreNearAreOffered) {
    const std::vector<std::string_view> known = {"row", "column", "width", "gap", "align", "a"};
    EXPECT_EQ(kit::nearest("colum", known), "column");
    EXPECT_EQ(kit::nearest("wdith", known), "width");
    EXPECT_EQ(kit::nearest("Row", known), "row");
    EXPECT_EQ(kit::nearest("alling", known), "align");
    EXPECT_EQ(kit::nearest("height", known), "");
    EXPECT_EQ(kit::nearest("b", known), "");
    EXPECT_EQ(kit::nearest("", known), "");
    EXPECT_EQ(kit::nearest(std::string(41, 'a'), known), "");
    EXPECT_EQ(kit::nearest("aaa", {std::string_view("aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa")}),
              "");
    EXPECT_EQ(kit::nearest("xcolumns", {std::string_view(), "columns"}), "columns");
    EXPECT_EQ(kit::did_you_mean("rwo", known), "; did you mean \"row\"?");
    EXPECT_EQ(kit::did_you_mean("zzz", known), "");
}

TEST(DocumentTest, QuotedTextsAreOneLineCutBetweenCharacters) {
    EXPECT_EQ(kit::in_quotes("a\nb\"\x01"), "\"a\\nb\\\"\\u0001\"");
    EXPECT_EQ(kit::in_quotes(std::string(40, 'x')), "\"" + std::string(40, 'x') + "\"");
    EXPECT_EQ(kit::in_quotes(std::string(39, 'x') + "\u00e9"),
              "\"" + std::string(39, 'x') + "...\"");
}

TEST(DocumentTest, EveryKindHasAName) {
    EXPECT_STREQ(kit::name_of(Kind::Null), "null");
    EXPECT_STREQ(kit::name_of(Kind::Boolean), "true or false");
    EXPECT_STREQ(kit::name_of(Kind::Number), "a number");
    EXPECT_STREQ(kit::name_of(Kind::String), "a text");
    EXPECT_STREQ(kit::name_of(Kind::List), "a list");
    EXPECT_STREQ(kit::name_of(Kind::Object), "an object");
    EXPECT_EQ(kit::reason("a.json", {3, 14}, "found it"), "a.json:3:14: found it");
}

}  // namespace
