// Random trees with data in them, the same for the same number everywhere.
#pragma once

#include <string>

#include "support/random.h"

namespace orvel_test {

/// Writes scenes of all kinds that need no host. Their data are n0 to n3 (pixels), c0 to c3
/// (colours), t0 to t3 (texts), b0 to b3 (true or false) and l0 to l3 (lists of texts).
class RandomScreens {
public:
    explicit RandomScreens(std::uint64_t number) : random_(number) {}

    std::string scene() {
        nodes_ = 0;
        const std::string root = container(3);
        return "{\"orvel\": 1, \"size\": [" + between(1, 90) + ", " + between(1, 70) +
               "], \"root\": " + root + "}";
    }

    std::string data() {
        std::string text = "{";
        for (const char* kind : {"n", "c", "t", "b", "l"}) {
            for (int i = 0; i < 4; ++i) {
                text += text.size() > 1 ? ", \"" : "\"";
                text += kind + std::to_string(i) + "\": " + value(*kind);
            }
        }
        return text + "}";
    }

    /// A name among the data, and another value for it.
    void change(std::string& name, std::string& to) {
        const char kind = "nctbl"[random_.between(0, 4)];
        name = kind + between(0, 3);
        to = value(kind);
    }

private:
    std::string between(int low, int high) { return std::to_string(random_.between(low, high)); }

    std::string one_of(std::initializer_list<const char*> words) {
        const int number = random_.between(0, static_cast<int>(words.size()) - 1);
        return std::string("\"") + words.begin()[number] + "\"";
    }

    std::string value(char kind) {
        switch (kind) {
        case 'n': return between(0, 40);
        case 'c': return one_of({"accent", "error", "#123456", "quiet", "surface"});
        case 't': return one_of({"One", "Several words in a row", "Größe", "", "A\\nB", "21.5"});
        case 'b': return random_.one_in(2) ? "true" : "false";
        default: break;
        }
        std::string list = "[";
        for (int i = random_.between(0, 3); i > 0; --i) list += value('t') + (i > 1 ? ", " : "");
        return list + "]";
    }

    /// A value as it is, or a reference to one.
    std::string any(char kind) {
        if (random_.one_in(2)) return value(kind);
        return std::string("\"${") + kind + between(0, 3) + "}\"";
    }

    std::string maybe(int one_in, const std::string& key, const std::string& text) {
        return random_.one_in(one_in) ? ", \"" + key + "\": " + text : "";
    }

    std::string box() {
        return maybe(4, "width", any('n')) + maybe(4, "height", any('n')) +
               maybe(3, "grow", between(0, 3)) + bounds() + maybe(5, "pad", between(0, 5)) +
               maybe(6, "ground", any('c')) + maybe(8, "edge", any('c')) +
               maybe(12, "theme", one_of({"light", "dark"})) +
               maybe(12, "if", "\"b" + between(0, 3) + "\"");
    }

    /// The least and the most, which never cross, whatever the data are.
    std::string bounds() {
        switch (random_.between(0, 19)) {
        case 0:
        case 1: return ", \"min\": " + any('n');
        case 2:
        case 3: return ", \"max\": " + any('n');
        case 4: return ", \"min\": " + between(0, 20) + ", \"max\": " + between(20, 60);
        default: return "";
        }
    }

    /// A paragraph, of so many lines or of any number.
    std::string wrap() {
        if (random_.one_in(2)) return "";
        return ", \"wrap\": " + any('b') + maybe(4, "lines", between(1, 2));
    }

    std::string items() { return "[" + any('t') + ", " + any('t') + "]"; }

    std::string leaf() {
        switch (random_.between(0, 13)) {
        case 0: return "\"rect\": " + any('c');
        case 1: return "\"circle\": " + any('c') + maybe(2, "size", between(1, 20));
        case 2: return "\"line\": " + any('c') + maybe(2, "size", between(1, 3));
        case 3: return "\"space\": " + any('n');
        case 4:
            return "\"text\": " + any('t') + wrap() + maybe(3, "color", any('c')) +
                   maybe(3, "align", one_of({"left", "center", "right"}));
        case 5: return "\"icon\": " + one_of({"home", "settings", "mail", "power"});
        case 6: return "\"button\": " + any('t') + maybe(2, "icon", one_of({"mail", "home"}));
        case 7: return "\"slider\": " + any('n') + ", \"range\": [0, 40]";
        case 8: return "\"progress\": " + any('n') + ", \"range\": [0, 40]";
        case 9: return "\"toggle\": " + any('b');
        case 10: return "\"checkbox\": " + any('t') + maybe(2, "on", any('b'));
        case 11: return "\"tabs\": " + items() + maybe(2, "selected", between(-1, 2));
        case 12: return "\"badge\": " + any('n') + maybe(2, "disabled", any('b'));
        default:
            return "\"chart\": " + one_of({"line", "bars", "gauge"}) + ", \"values\": [1, " +
                   any('n') + ", 3]";
        }
    }

    std::string children(int depth) {
        std::string list = "[";
        for (int i = random_.between(0, 4); i > 0; --i) {
            list += (list.size() > 1 ? ", " : "") + node(depth);
        }
        return list + "]";
    }

    std::string container(int depth) {
        const std::string align = maybe(2, "align", one_of({"start", "center", "end", "stretch"}));
        const std::string lines =
            maybe(3, "gap", between(0, 6)) + align + maybe(6, "scroll", any('n')) +
            maybe(3, "justify", one_of({"start", "center", "end", "between"}));
        std::string text;
        switch (random_.between(0, 5)) {
        case 0:
        case 1: text = "\"row\": " + children(depth) + lines + maybe(4, "wrap", any('b')); break;
        case 2:
        case 3: text = "\"column\": " + children(depth) + lines; break;
        case 4:
            text = "\"stack\": " + children(depth) + align + maybe(4, "show", between(0, 3));
            break;
        default: text = one_of({"panel", "card", "window"}) + ": " + node(depth) + align; break;
        }
        return "{" + text + (depth < 3 ? box() : "") + "}";
    }

    std::string node(int depth) {
        if (depth > 0 && ++nodes_ < 30 && random_.one_in(2)) return container(depth - 1);
        const std::string each = random_.one_in(8) ? "\"each\": \"l" + between(0, 3) + "\", " : "";
        return "{" + each + leaf() + box() + "}";
    }

    Random random_;
    int nodes_ = 0;
};

}  // namespace orvel_test
