// orvel-compare: are these the pictures that are expected, and if not, where do they differ?
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <new>
#include <system_error>

#include "command_line.h"
#include "compare/approve.h"
#include "compare/comparison.h"
#include "compare/machines.h"
#include "compare/report.h"
#include "file_bytes.h"
#include "names.h"

namespace {

namespace fs = std::filesystem;

using orvel_tools::CommandLine;
using orvel_tools::Comparison;
using orvel_tools::Mask;
using orvel_tools::Outcome;
using orvel_tools::Result;
using orvel_tools::shown_name;
using orvel_tools::write_bytes;

struct Given {
    std::string expected, actual, mask, diff, report, junit, json;
    bool approve = false, prune = false;

    /// Whether the standard output is for another program.
    bool taken() const { return report == "-" || junit == "-" || json == "-" || diff == "-"; }
};

/// Why the results cannot go where they shall; null when they can.
const char* misdirected(const Given& given) {
    int to_stdout = 0;
    for (const std::string& to : {given.report, given.junit, given.json, given.diff}) {
        if (to == "-") ++to_stdout;
        for (const std::string& from : {given.expected, given.actual, given.mask}) {
            std::error_code failed;
            if (!fs::equivalent(to, from, failed) || fs::is_character_file(to, failed)) continue;
            return "a result would be written over what is compared";
        }
    }
    return to_stdout > 1 ? "the standard output can take one result only" : nullptr;
}

/// What is wrong with the options beside each other; null when nothing is.
const char* contradiction(const Given& given) {
    if (const char* wrong = misdirected(given)) return wrong;
    if (given.prune && !given.approve) return "--prune is for --approve";
    if (!given.approve) return nullptr;
    std::error_code failed;
    if (given.expected == "-") return "--approve cannot write over the standard input";
    const bool folders =
        fs::is_directory(given.actual, failed) || fs::is_directory(given.expected, failed);
    const bool there = given.actual == "-" || fs::exists(given.actual, failed);
    if (there && !folders && fs::path(given.expected).extension() != ".png") {
        return "--approve writes PNG files: let the name of EXPECTED end in .png";
    }
    return nullptr;
}

bool read_masks(const std::string& path, std::vector<Mask>& masks, std::string& error) {
    if (path.empty()) return true;
    std::string text;
    if (!orvel_tools::read_text(path, text, error)) return false;
    if (orvel_tools::read_masks(text, masks, error)) return true;
    error = orvel_tools::shown_path(path, "standard input") + ":" + error;
    return false;
}

/// Whether a picture holds some of the mask; of one that was not compared, that is not known.
bool reaches(const Mask& mask, const Result& result) {
    const orvel_tools::Difference& sizes = result.difference;
    const bool compared = result.outcome == Outcome::equal || result.outcome == Outcome::different;
    return !compared || (mask.box.left < std::max(sizes.width, sizes.actual_width) &&
                         mask.box.top < std::max(sizes.height, sizes.actual_height));
}

/// Why a mask hides nothing, although it was meant to; empty when it does.
std::string why_unused(const Mask& mask, const Comparison& comparison) {
    bool called = false;
    for (const Result& result : comparison.results) {
        if (!orvel_tools::fits(mask.pattern, result.pair.name)) continue;
        if (reaches(mask, result)) return "";
        called = true;
    }
    return (called ? "it is outside of all pictures called " : "no picture is called ") +
           shown_name(mask.pattern);
}

void tell_unused(const CommandLine& program, const Given& given, const std::vector<Mask>& masks,
                 const Comparison& comparison) {
    for (const Mask& mask : masks) {
        const std::string why = why_unused(mask, comparison);
        if (why.empty()) continue;
        program.fail("note: " + orvel_tools::shown_path(given.mask, "standard input") + ":" +
                     std::to_string(mask.line) + ": " + why);
    }
}

std::string printed(const Comparison& comparison) {
    std::string text;
    for (const Result& result : comparison.results) {
        if (!comparison.folders && result.outcome != Outcome::unreadable) {
            return sentence(result) + "\n";
        }
        const bool masked = result.difference.masked > 0;
        if (result.outcome == Outcome::unreadable) continue;
        if (result.outcome != Outcome::equal || masked) {
            text += shown_name(result.pair.name) + ": " + sentence(result) + "\n";
        }
    }
    if (comparison.folders && !comparison.results.empty()) text += summary(comparison) + "\n";
    return text;
}

/// Writes a picture of every difference: into a folder, when folders are compared.
bool write_differences(const Comparison& comparison, const std::string& to, std::string& error) {
    for (const Result& result : comparison.results) {
        const bool wanted = result.outcome == Outcome::different ||
                            (!comparison.folders && result.outcome == Outcome::equal);
        if (!wanted) continue;
        const auto expected = orvel_tools::read_picture(result.pair.expected, error);
        if (!expected) return false;
        const auto actual = orvel_tools::read_picture(result.pair.actual, error);
        if (!actual) return false;
        std::string path = to;
        if (comparison.folders) {
            path = (fs::path(to) / result.pair.name).native() + ".png";
            std::error_code failed;
            fs::create_directories(fs::path(path).parent_path(), failed);
        }
        const auto drawn = orvel_tools::drawn_difference(*expected, *actual, result.masks);
        if (!orvel_tools::write_png(drawn, path, error)) return false;
    }
    return true;
}

bool write_all(const Given& given, const Comparison& comparison, std::string& error) {
    if (!given.diff.empty() && !write_differences(comparison, given.diff, error)) return false;
    if (!given.junit.empty() && !write_bytes(given.junit, junit(comparison), error)) return false;
    if (!given.json.empty() && !write_bytes(given.json, json(comparison), error)) return false;
    return given.report.empty() || orvel_tools::write_report(comparison, given.report, error);
}

int approve(const CommandLine& program, const Given& given, const Comparison& comparison) {
    const orvel_tools::Approval approval = orvel_tools::approve(comparison, given.prune);
    std::fputs(approval.done.c_str(), given.taken() ? stderr : stdout);
    for (const std::string& line : approval.trouble) program.fail(line);
    return !approval.trouble.empty() ? 2 : approval.kept > 0 ? 1 : 0;
}

int run(const CommandLine& program, const Given& given) {
    if (const char* wrong = contradiction(given)) return program.misused(wrong);
    std::string error;
    std::vector<Mask> masks;
    if (!read_masks(given.mask, masks, error)) return program.fail(error);
    const auto pairs = orvel_tools::find_pairs(given.expected, given.actual, given.approve);
    Comparison comparison = orvel_tools::compare(pairs, masks);
    comparison.expected = given.expected;
    comparison.actual = given.actual;
    tell_unused(program, given, masks, comparison);
    if (!write_all(given, comparison, error)) return program.fail(error);
    if (given.approve) return approve(program, given, comparison);
    if (!given.taken()) {
        std::fputs((printed(comparison) + annotations(comparison)).c_str(), stdout);
    }
    for (const std::string& line : comparison.trouble) program.fail(line);
    for (const Result& result : comparison.results) {
        if (result.outcome == Outcome::unreadable) program.fail(result.reason);
    }
    return comparison.status();
}

void declare(CommandLine& program, Given& given) {
    program.argument("EXPECTED", given.expected, "A picture or a folder of pictures");
    program.argument("ACTUAL", given.actual, "The same, to be compared with it");
    program.option("--mask", given.mask, "FILE",
                   "Leave rectangles out: lines of PICTURE LEFT TOP WIDTH HEIGHT REASON");
    program.option("--report", given.report, "FILE",
                   "Write an HTML page that shows every picture that fails");
    program.option("--junit", given.junit, "FILE", "Write the results as JUnit's XML");
    program.option("--json", given.json, "FILE", "Write the results as JSON");
    program.option("--diff", given.diff, "FILE",
                   "Write a PNG of the differing pixels, red on the faded expected picture; for "
                   "folders, a folder of these");
    program.flag("--approve", given.approve,
                 "Make what differs or is new in ACTUAL what is expected, as PNG");
    program.flag("--prune", given.prune, "With --approve, delete what is not in ACTUAL any more");
}

}  // namespace

int main(int argc, char** argv) {
    CommandLine program(
        "orvel-compare",
        "Compares pictures pixel by pixel, alpha included: two PNG or BMP files, or all of two "
        "folders. A picture that is missing or not expected is a difference. The name - is the "
        "standard input or output.",
        "0 when the pictures are equal, 1 when they differ, 2 on an error.");
    Given given;
    declare(program, given);
    if (const auto done = program.parse(argc, argv)) return *done;
    try {
        return program.end(run(program, given));
    } catch (const std::bad_alloc&) {
        return program.fail("too large for the memory");
    }
}
