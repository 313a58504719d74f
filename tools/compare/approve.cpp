#include "compare/approve.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <system_error>

#include "names.h"

namespace orvel_tools {
namespace {

namespace fs = std::filesystem;

/// Writes beside @p path first, so that a failure leaves what was there.
bool replace(const Picture& picture, const fs::path& path, std::string& error) {
    std::error_code failed;
    if (path.has_parent_path()) fs::create_directories(path.parent_path(), failed);
    const std::string fresh = path.native() + ".new";
    if (!write_png(picture, fresh, error)) return false;
    fs::rename(fresh, path, failed);
    if (!failed) return true;
    error = shown_name(path.native()) + ": " + failed.message();
    fs::remove(fresh, failed);
    return false;
}

class Approver {
public:
    Approver(const Comparison& comparison, Approval& approval)
        : comparison_(comparison), approval_(approval) {}

    void take(const Result& result) {
        const Pair& pair = result.pair;
        const std::string target =
            comparison_.folders ? (fs::path(comparison_.expected) / pair.name).native() + ".png"
                                : comparison_.expected;
        std::string error;
        std::optional<Picture> picture;
        try {
            picture = read_picture(pair.actual, error);
            if (picture && replace(*picture, target, error)) {
                return tell(result, target);
            }
        } catch (const std::bad_alloc&) {
            error = shown_name(pair.actual) + ": too large for the memory";
        }
        approval_.trouble.push_back(error);
    }

    void forget(const Result& result, bool prune) {
        const std::string name = shown_name(result.pair.name);
        std::error_code failed;
        if (!prune) {
            ++approval_.kept;
            approval_.done += "kept " + name + ", which is gone; --prune deletes it\n";
        } else if (fs::remove(result.pair.expected, failed)) {
            approval_.done += "deleted " + name + "\n";
        } else {
            approval_.trouble.push_back(shown_name(result.pair.expected) + ": " + failed.message());
        }
    }

private:
    void tell(const Result& result, const std::string& target) {
        const std::string& old = result.pair.expected;
        approval_.done +=
            "approved " + shown_name(result.pair.name) + ", which was " +
            (result.outcome == Outcome::unexpected ? "new" : word_for(result.outcome));
        std::error_code failed;
        if (!old.empty() && !fs::equivalent(old, target, failed)) {
            fs::remove(old, failed);
            approval_.done += ", in place of " + shown_name(fs::path(old).filename().native());
        }
        approval_.done += "\n";
    }

    const Comparison& comparison_;
    Approval& approval_;
};

}  // namespace

Approval approve(const Comparison& comparison, bool prune) {
    Approval approval;
    approval.trouble = comparison.trouble;
    // What could not be looked at may only seem to be gone.
    const auto is_there = [](const Result& result) { return !result.pair.actual.empty(); };
    const auto& results = comparison.results;
    if (prune && std::none_of(results.begin(), results.end(), is_there)) {
        approval.trouble.push_back(shown_name(comparison.actual) +
                                   ": no pictures; none is deleted");
    }
    prune = prune && approval.trouble.empty();
    Approver approver(comparison, approval);
    for (const Result& result : comparison.results) {
        switch (result.outcome) {
        case Outcome::equal: break;
        case Outcome::missing: approver.forget(result, prune); break;
        case Outcome::different:
        case Outcome::unexpected:
        case Outcome::unreadable: approver.take(result); break;
        }
    }
    const int equal = comparison.count(Outcome::equal);
    if (equal > 0) approval.done += "unchanged: " + std::to_string(equal) + "\n";
    return approval;
}

}  // namespace orvel_tools
