// Recorded sessions as text: what is read, what is written, and what is refused.
#include "session.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/files.h"

namespace {

using orvel_test::write_file;
using orvel_tools::key_text;
using orvel_tools::read_key;
using orvel_tools::Session;
using orvel_tools::session_line;
using orvel_tools::SessionEvent;

class SessionTest : public testing::Test {
protected:
    orvel_test::TempFolder folder;
    const std::string file = folder / "session.jsonl";

    Session read(const std::string& lines) const {
        std::string error;
        write_file(file, lines);
        const auto session = orvel_tools::read_session(file, error);
        EXPECT_EQ(error, "");
        return session ? *session : Session();
    }

    std::string refusal(const std::string& lines) const {
        std::string error;
        write_file(file, lines);
        EXPECT_FALSE(orvel_tools::read_session(file, error));
        EXPECT_EQ(error.rfind(file + ":", 0), 0u) << error;
        return error.substr(std::min(error.size(), file.size() + 1));
    }
};

constexpr const char* kEveryKind = R"({"at":0,"size":[800,480]}
{"at":0}
{"at":5,"move":[10,-20]}
{"at":6,"press":[10,20]}
{"at":6,"press":[10,20],"button":1,"with":"ctrl+shift"}
{"at":7,"release":[10,20]}
{"at":7,"release":[10,20],"button":2}
{"at":8,"leave":true}
{"at":9,"wheel":[1,2],"by":[0,-120]}
{"at":10,"key":"ctrl+a"}
{"at":11,"text":"ü \"\\\n"}
{"at":12,"compose":"にほ","caret":3}
{"at":13,"paste":""}
{"at":14,"blur":true}
{"at":15,"focus":true}
{"at":16,"set":{"now.temp":-2.50}}
{"at":17,"set":{"":{"b":[1,{"c":null}],"a":"x"}}}
{"at":18,"picture":"the-end_2.b"}
)";

TEST_F(SessionTest, EveryKindOfEventIsReadAndWrittenAgain) {
    std::string again;
    for (const SessionEvent& event : read(kEveryKind)) again += session_line(event);
    EXPECT_EQ(again, kEveryKind);
}

TEST_F(SessionTest, ValuesFromAFileWithManyLinesAreOneLine) {
    SessionEvent event;
    event.kind = SessionEvent::kSet;
    event.json = "{\r\n  \"a\": [1,\n    \"b\\n\"]\r\n}\n";
    const std::string line = session_line(event);
    EXPECT_EQ(line.find('\n'), line.size() - 1);
    const Session again = read(line);
    ASSERT_EQ(again.size(), 1u);
    EXPECT_EQ(again[0].json, R"({"a":[1,"b\n"]})");
}

TEST_F(SessionTest, EventsHoldWhatTheLinesSay) {
    const Session session = read(kEveryKind);
    ASSERT_EQ(session.size(), 18u);
    EXPECT_EQ(session[0].kind, SessionEvent::kSize);
    EXPECT_EQ(session[0].width, 800);
    EXPECT_EQ(session[0].height, 480);
    EXPECT_EQ(session[1].input.kind, KIT_EVENT_TIME);
    EXPECT_EQ(session[2].input.kind, KIT_EVENT_MOVE);
    EXPECT_EQ(session[2].at, 5);
    EXPECT_EQ(session[2].input.y, -20);
    EXPECT_EQ(session[4].input.button, 1);
    EXPECT_EQ(session[4].input.modifiers, unsigned{KIT_MOD_CONTROL} | KIT_MOD_SHIFT);
    EXPECT_EQ(session[8].input.dy, -120);
    EXPECT_EQ(session[9].input.key, 'a');
    EXPECT_EQ(session[9].input.modifiers, unsigned{KIT_MOD_CONTROL});
    EXPECT_EQ(session[10].text, "ü \"\\\n");
    EXPECT_EQ(session[11].input.caret, 3);
    EXPECT_EQ(session[15].kind, SessionEvent::kSet);
    EXPECT_EQ(session[15].text, "now.temp");
    EXPECT_EQ(session[15].json, "-2.50");
    EXPECT_EQ(session[17].kind, SessionEvent::kPicture);
    EXPECT_EQ(session[17].line, 18);
}

TEST_F(SessionTest, ValuesSetTogetherAreSetInTheirOrder) {
    const Session session = read("\n{\"at\": 3, \"set\": {\"z\": 1, \"a\": true}}\r\n \n");
    ASSERT_EQ(session.size(), 2u);
    EXPECT_EQ(session[0].text, "z");
    EXPECT_EQ(session[1].text, "a");
    EXPECT_EQ(session[1].json, "true");
    EXPECT_EQ(session[1].at, 3);
    EXPECT_EQ(session[1].line, 2);
}

TEST_F(SessionTest, ValuesStayAsTheyAreWritten) {
    const Session session = read(
        R"( {"\u0073et" : {"a\":1,": [ 1.0, {"b" : 2e+05, "c": "} \" ,\\"} ] , "d": {}, "e": -0,)"
        R"( "f": "\u00e4, " , "g": 0.10}	, "at": 0 } )");
    std::string values;
    for (const SessionEvent& event : session) values += event.text + "=" + event.json + "\n";
    EXPECT_EQ(values,
              "a\":1,=[1.0,{\"b\":2e+05,\"c\":\"} \\\" ,\\\\\"}]\nd={}\ne=-0\n"
              "f=\"\\u00e4, \"\ng=0.10\n");
}

TEST_F(SessionTest, ACaretThatIsNotToldIsAtTheEnd) {
    EXPECT_EQ(read(R"({"at": 0, "compose": "né"})").at(0).input.caret, 3);
}

TEST_F(SessionTest, LinesThatAreNoneAreRefusedWithTheirPlace) {
    EXPECT_EQ(refusal("{\"at\": 0}\n{\"at\": 1,}\n"), "2: no JSON from column 10");
    EXPECT_EQ(refusal("{\"at\": 0} x"), "1: no JSON from column 11");
    EXPECT_EQ(refusal("{\"at\": 0, \"text\": \"\xFF\"}"), "1: no JSON from column 20");
    EXPECT_EQ(refusal("[1]"), "1: expected an object");
    EXPECT_EQ(refusal("{\"move\": [1, 2]}"), "1: \"at\" is missing, the time in milliseconds");
    EXPECT_EQ(refusal("{\"at\": 0, \"at\": 1}"), "1: the key \"at\" is there twice");
    EXPECT_EQ(refusal(R"({"at": 0, "set": {"a": {"b": 1, "b": 2}}})"),
              "1: the key \"b\" is there twice");
    EXPECT_EQ(refusal("{\"at\": 0, \"jump\": 1}"), "1: unknown key \"jump\"");
    EXPECT_EQ(refusal("{\"at\": 0, \"\": 1}"), "1: unknown key \"\"");
    EXPECT_EQ(refusal("{\"at\": 0, \"move\": [1, 2], \"button\": 1}"), "1: unknown key \"button\"");
    EXPECT_EQ(refusal("{\"at\": 0, \"move\": [1, 2], \"text\": \"a\"}"),
              "1: found \"move\" and \"text\", expected one of them");
    EXPECT_EQ(refusal(R"({"at": 0, "set": )" + std::string(200, '[') + std::string(200, ']') + "}"),
              "1: lists and objects lie too deep");
    EXPECT_EQ(refusal(R"({"at": 0, "set": {"a": 1e999}})"), "1: a number is too large");
}

TEST_F(SessionTest, TimesDoNotGoBack) {
    EXPECT_EQ(refusal("{\"at\": 9}\n\n{\"at\": 8}"), "3: \"at\": earlier than the line before");
    EXPECT_EQ(refusal("{\"at\": -1}"), "1: \"at\": expected a whole number from 0 to 1000000000");
    EXPECT_EQ(refusal("{\"at\": 1.5}"), "1: \"at\": expected a whole number from 0 to 1000000000");
    EXPECT_EQ(refusal("{\"at\": 18446744073709551615}"),
              "1: \"at\": expected a whole number from 0 to 1000000000");
}

TEST_F(SessionTest, ValuesOfAnotherKindAreRefused) {
    const auto with = [this](const std::string& what) {
        return refusal("{\"at\": 0, " + what + "}");
    };
    EXPECT_EQ(with("\"move\": 3"), "1: \"move\": expected two numbers, [x, y]");
    EXPECT_EQ(with("\"move\": [3]"), "1: \"move\": expected two numbers, [x, y]");
    EXPECT_EQ(with("\"move\": [3, 1000001]"),
              "1: \"move\": expected a whole number from -1000000 to 1000000");
    EXPECT_EQ(with("\"press\": [3, 3], \"button\": 32"),
              "1: \"button\": expected a whole number from 0 to 31");
    EXPECT_EQ(with("\"press\": [3, 3], \"with\": \"meta\""),
              "1: \"with\": expected ctrl, alt or shift, or several of them, \"ctrl+shift\"");
    EXPECT_EQ(with("\"leave\": 1"), "1: \"leave\": expected true");
    EXPECT_EQ(with("\"text\": 1"), "1: \"text\": expected a text without zeros");
    EXPECT_EQ(with("\"text\": \"\\u0000\""), "1: \"text\": expected a text without zeros");
    EXPECT_EQ(with("\"compose\": \"ab\", \"caret\": 3"),
              "1: \"caret\": expected a whole number from 0 to 2");
    EXPECT_EQ(with("\"key\": \"A\""),
              "1: \"key\": expected a character or a name, \"a\", \"ctrl+a\" or \"shift+tab\"");
    EXPECT_EQ(with("\"set\": 3"), "1: \"set\": expected an object of names and values");
    EXPECT_EQ(with("\"set\": {\"a\\u0000\": 3}"), "1: \"set\": a name with a zero");
    EXPECT_EQ(with("\"size\": [0, 3]"), "1: \"size\": expected a whole number from 1 to 32767");
    for (const std::string name : {"", "a/b", ".a", "a b"}) {
        EXPECT_EQ(with("\"picture\": \"" + name + "\""),
                  "1: \"picture\": expected a name of letters, digits, \"_\", \"-\" and dots");
    }
}

TEST_F(SessionTest, AFileThatIsNotThereIsNamed) {
    std::string error;
    EXPECT_FALSE(orvel_tools::read_session(folder / "none", error));
    EXPECT_EQ(error, folder / "none" + ": No such file or directory");
}

TEST(SessionKeys, AreWrittenAsPeopleCallThem) {
    EXPECT_EQ(key_text(KIT_KEY_TAB, KIT_MOD_SHIFT), "shift+tab");
    EXPECT_EQ(key_text('+', KIT_MOD_CONTROL | KIT_MOD_ALT | KIT_MOD_SHIFT), "ctrl+alt+shift++");
    EXPECT_EQ(key_text(' ', 0), "space");
    EXPECT_EQ(key_text(KIT_KEY_F12, 0), "f12");
    EXPECT_EQ(key_text(0xE4, 0), "ä");
    EXPECT_EQ(key_text(0x20AC, 0), "€");
    EXPECT_EQ(key_text(0x1F600, 0), "\U0001F600");
    EXPECT_EQ(key_text(0xD800, 0), "");
    EXPECT_EQ(key_text(KIT_KEY_F12 + 1, 0), "");
    EXPECT_EQ(key_text(7, KIT_MOD_CONTROL), "");
}

TEST(SessionKeys, AreReadAsTheyAreWritten) {
    for (unsigned modifiers = 0; modifiers < 8; ++modifiers) {
        for (const int key :
             {int{'a'}, int{'+'}, int{' '}, 0xE4, 0x20AC, 0x1F600, int{KIT_KEY_ENTER},
              int{KIT_KEY_PAGE_DOWN}, int{KIT_KEY_F1}, int{KIT_KEY_F12}}) {
            int read = 0;
            unsigned with = 0;
            EXPECT_TRUE(read_key(key_text(key, modifiers), read, with));
            EXPECT_EQ(read, key);
            EXPECT_EQ(with, modifiers);
        }
    }
    int key = 0;
    unsigned with = 0;
    for (const char* none : {"", "ctrl", "ctrl+", "shift+ctrl+a", "ab", "\n", "f13", " "}) {
        EXPECT_FALSE(read_key(none, key, with)) << none;
    }
}

TEST(SessionKeys, AreCalledAsScenesCallThem) {
    std::vector<int> keys = {' ', 'a', '+', 0xE4, 0x20AC, 0x1F600};
    for (int key = KIT_KEY_ENTER; key <= KIT_KEY_F12; ++key) keys.push_back(key);
    for (const int key : keys) {
        for (unsigned modifiers = 0; modifiers < 8; ++modifiers) {
            const std::string name = key_text(key, modifiers);
            const std::string text =
                R"({"orvel": 1, "root": {"button": "B", "id": "b", "key": ")" + name + "\"}}";
            kit_screen* const screen =
                kit_screen_read(text.data(), text.size(), "", nullptr, nullptr, nullptr, 0);
            ASSERT_NE(screen, nullptr) << name;
            kit_screen_event event = {};
            event.kind = KIT_EVENT_KEY;
            event.key = key;
            event.modifiers = modifiers;
            EXPECT_EQ(kit_screen_send(screen, &event, 0), 0);
            kit_change change = {};
            EXPECT_EQ(kit_screen_next(screen, &change), 1) << name;
            kit_screen_close(screen);
        }
    }
}

TEST(SessionChanges, AreLinesOfJson) {
    kit_change change = {};
    change.kind = KIT_CHANGE_VALUE;
    change.id = "day[2]";
    change.name = "days[2].on";
    change.value = "true";
    EXPECT_EQ(orvel_tools::change_line(change, 12),
              "{\"at\":12,\"change\":\"value\",\"id\":\"day[2]\",\"name\":\"days[2].on\","
              "\"value\":true}\n");
    std::string kinds;
    for (int kind = KIT_CHANGE_VALUE; kind <= KIT_CHANGE_SOUND; ++kind) {
        change.kind = kind;
        const std::string line = orvel_tools::change_line(change, 0);
        kinds += line.substr(18, line.find('"', 18) - 18) + " ";
    }
    EXPECT_EQ(kinds, "value press copy paste sound ");
}

TEST(SessionChanges, TheirTextsCanBeHad) {
    EXPECT_EQ(orvel_tools::text_of_json("\"a\\u00e4\\n\""), "aä\n");
    EXPECT_EQ(orvel_tools::text_of_json("3"), "");
    EXPECT_EQ(orvel_tools::text_of_json("\""), "");
}

}  // namespace
