#include "compare/machines.h"

#include <cstdlib>

#include "names.h"
#include "orvel_kit.h"

namespace orvel_tools {
namespace {

std::string attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + escaped_markup(value) + "\"";
}

std::string test_case(const Result& result) {
    std::string text = "    <testcase" + attribute("classname", "orvel-compare") +
                       attribute("name", shown_name(result.pair.name)) + " time=\"0\"";
    if (result.outcome == Outcome::equal) return text + "/>\n";
    const char* const element = result.outcome == Outcome::unreadable ? "error" : "failure";
    return text + ">\n      <" + element + attribute("type", word_for(result.outcome)) +
           attribute("message", sentence(result)) + "/>\n    </testcase>\n";
}

std::string numbers(const Comparison& comparison) {
    const auto count = [&](Outcome outcome) { return comparison.count(outcome); };
    const int failures =
        count(Outcome::different) + count(Outcome::missing) + count(Outcome::unexpected);
    const auto troubles = comparison.trouble.size();
    const auto errors = static_cast<std::size_t>(count(Outcome::unreadable)) + troubles;
    return attribute("tests", std::to_string(comparison.results.size() + troubles)) +
           attribute("failures", std::to_string(failures)) +
           attribute("errors", std::to_string(errors)) + " time=\"0\"";
}

/// Members of an object of JSON, in a line.
class Object {
public:
    Object& add(const char* name, const std::string& value) {
        text_ += (text_.empty() ? "" : ", ") + quoted_json(name) + ": " + value;
        return *this;
    }
    Object& add(const char* name, long long value) { return add(name, std::to_string(value)); }
    Object& text(const char* name, const std::string& value) {
        return add(name, quoted_json(value));
    }
    Object& path(const char* name, const std::string& value) {
        return value.empty() ? *this : text(name, shown_name(value));
    }
    std::string str() const { return "{" + text_ + "}"; }

private:
    std::string text_;
};

std::string list(std::initializer_list<int> values) {
    std::string text;
    for (const int value : values) text += (text.empty() ? "" : ", ") + std::to_string(value);
    return "[" + text + "]";
}

std::string list(const Box& box) { return list({box.left, box.top, box.width, box.height}); }

std::string masks_of(const Result& result) {
    std::string text;
    for (const Mask& mask : result.masks) {
        Object one;
        one.add("box", list(mask.box)).text("reason", shown_name(mask.reason));
        text += (text.empty() ? "" : ", ") + one.str();
    }
    return "[" + text + "]";
}

std::string picture(const Result& result) {
    Object one;
    one.text("name", shown_name(result.pair.name)).text("outcome", word_for(result.outcome));
    one.path("expected", result.pair.expected).path("actual", result.pair.actual);
    one.text("message", sentence(result));
    if (result.outcome != Outcome::equal && result.outcome != Outcome::different) return one.str();
    const Difference& found = result.difference;
    one.add("expected_size", list({found.width, found.height}));
    one.add("actual_size", list({found.actual_width, found.actual_height}));
    one.add("differing", found.count);
    if (found.count > 0) {
        one.add("box", list(found.box)).add("steps", found.steps);
        one.add("alpha_only", std::string(found.alpha_only ? "true" : "false"));
    }
    one.add("masked", found.masked).add("masked_differing", found.masked_differing);
    return one.add("masks", masks_of(result)).str();
}

/// @p text for a line of commands in which the @p special characters are numbers after a sign.
std::string numbered(const std::string& text, const std::string& special) {
    static const char* const digits = "0123456789ABCDEF";
    std::string result;
    for (const char letter : text) {
        const auto byte = static_cast<unsigned char>(letter);
        if (special.find(letter) == std::string::npos) {
            result += letter;
        } else {
            result += std::string("%") + digits[byte / 16] + digits[byte % 16];
        }
    }
    return result;
}

bool is_set(const char* variable) {
    const char* const value = std::getenv(variable);
    return value && *value;
}

/// A failure as the two kinds of hosts want it; none where neither runs this.
std::string annotation(const std::string& file, const std::string& message) {
    if (is_set("GITHUB_ACTIONS")) {
        return "::error title=orvel-compare,file=" + numbered(file, "%:,\r\n") +
               "::" + numbered(message, "%\r\n") + "\n";
    }
    if (is_set("TF_BUILD")) {
        return "##vso[task.logissue type=error;sourcepath=" + numbered(file, "%;]\r\n") + "]" +
               numbered(message, "%\r\n") + "\n";
    }
    return "";
}

}  // namespace

std::string junit(const Comparison& comparison) {
    const std::string counts = numbers(comparison);
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites" + counts +
                       ">\n  <testsuite name=\"orvel-compare\"" + counts + ">\n";
    for (const Result& result : comparison.results) text += test_case(result);
    for (const std::string& trouble : comparison.trouble) {
        text += "    <testcase classname=\"orvel-compare\"" + attribute("name", trouble) +
                " time=\"0\">\n      <error type=\"trouble\"" + attribute("message", trouble) +
                "/>\n    </testcase>\n";
    }
    return text + "  </testsuite>\n</testsuites>\n";
}

std::string json(const Comparison& comparison) {
    Object all;
    all.add("orvel_compare", 1).text("version", KIT_VERSION).add("status", comparison.status());
    all.path("expected", comparison.expected).path("actual", comparison.actual);
    for (const Outcome outcome : {Outcome::equal, Outcome::different, Outcome::missing,
                                  Outcome::unexpected, Outcome::unreadable}) {
        all.add(word_for(outcome), comparison.count(outcome));
    }
    std::string trouble, pictures;
    for (const std::string& line : comparison.trouble) {
        trouble += (trouble.empty() ? "" : ", ") + quoted_json(line);
    }
    for (const Result& result : comparison.results) {
        pictures += (pictures.empty() ? "\n  " : ",\n  ") + picture(result);
    }
    all.add("trouble", "[" + trouble + "]").add("pictures", "[" + pictures + "\n]");
    return all.str() + "\n";
}

std::string annotations(const Comparison& comparison) {
    // The hosts show few of one run.
    constexpr int kMost = 10;
    std::string text;
    int count = 0;
    for (const std::string& trouble : comparison.trouble) {
        if (count++ < kMost) text += annotation("", trouble);
    }
    for (const Result& result : comparison.results) {
        if (result.outcome == Outcome::equal || count++ >= kMost) continue;
        const Pair& pair = result.pair;
        const std::string file = shown_name(pair.expected.empty() ? pair.actual : pair.expected);
        text += annotation(file, shown_name(pair.name) + ": " + sentence(result));
    }
    if (count > kMost) text += annotation("", std::to_string(count - kMost) + " more failures");
    return text;
}

}  // namespace orvel_tools
