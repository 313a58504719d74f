// What is said of a comparison in words.
#include "compare/comparison.h"
#include "names.h"

namespace orvel_tools {
namespace {

std::string size(int width, int height) {
    return std::to_string(width) + " x " + std::to_string(height);
}

std::string masked(const Difference& found) {
    if (found.masked == 0) return "";
    return "; " + std::to_string(found.masked) + " masked, of which " +
           std::to_string(found.masked_differing) + " differ";
}

std::string counted(const Difference& found, long long all, const std::string& which) {
    std::string text = std::to_string(found.count) + " of " + std::to_string(all) + which;
    if (found.count == 0) return text;
    const Box& box = found.box;
    text += ", inside the " + size(box.width, box.height) + " box at (" + std::to_string(box.left) +
            ", " + std::to_string(box.top) + "), by ";
    text += found.steps > 1 ? "up to " + std::to_string(found.steps) + " steps" : "1 step";
    return text + (found.alpha_only ? " of alpha alone" : " of a channel");
}

std::string about_difference(const Difference& found) {
    const std::string before = size(found.width, found.height);
    const long long all = static_cast<long long>(std::min(found.width, found.actual_width)) *
                          std::min(found.height, found.actual_height);
    if (found.sizes_differ()) {
        return "sizes differ: " + before + " and " + size(found.actual_width, found.actual_height) +
               "; " + counted(found, all, " pixels that both have differ") + masked(found);
    }
    if (found.count > 0) return counted(found, all, " pixels differ") + masked(found);
    return "equal: " + before + ", all " + std::to_string(all) + " pixels" + masked(found);
}

}  // namespace

const char* word_for(Outcome outcome) {
    switch (outcome) {
    case Outcome::equal: return "equal";
    case Outcome::different: return "different";
    case Outcome::missing: return "missing";
    case Outcome::unexpected: return "unexpected";
    case Outcome::unreadable: return "unreadable";
    }
    return "";
}

std::string sentence(const Result& result) {
    switch (result.outcome) {
    case Outcome::equal:
    case Outcome::different: return about_difference(result.difference);
    case Outcome::missing: return "missing: expected, but not there";
    case Outcome::unexpected: return "unexpected: there, but not expected";
    case Outcome::unreadable: return "unreadable: " + result.reason;
    }
    return "";
}

std::string summary(const Comparison& comparison) {
    const auto all = comparison.results.size();
    std::string text = std::to_string(all) + (all == 1 ? " picture: " : " pictures: ") +
                       std::to_string(comparison.count(Outcome::equal)) + " equal";
    for (const Outcome outcome :
         {Outcome::different, Outcome::missing, Outcome::unexpected, Outcome::unreadable}) {
        const int count = comparison.count(outcome);
        if (count > 0) text += ", " + std::to_string(count) + " " + word_for(outcome);
    }
    return text;
}

}  // namespace orvel_tools
