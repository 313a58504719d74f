#include "compare/comparison.h"

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>

namespace orvel_tools {
namespace {

constexpr std::uintmax_t kLargeFile = 1 << 22;
constexpr std::int64_t kLargePicture = 1 << 23;

/// Two pictures, of which the second is not there when its file has the bytes of the first.
bool read_both(const Pair& pair, Picture& expected, std::optional<Picture>& actual,
               std::string& error) {
    const auto before = read_picture_bytes(pair.expected, error);
    if (!before) return false;
    const auto now = read_picture_bytes(pair.actual, error);
    if (!now) return false;
    auto decoded = decode_picture(*before, shown_path(pair.expected, "standard input"), error);
    if (!decoded) return false;
    expected = std::move(*decoded);
    if (*before == *now) return true;
    actual = decode_picture(*now, shown_path(pair.actual, "standard input"), error);
    return actual.has_value();
}

Result compare_files(const Pair& pair, std::vector<Mask> masks) {
    Result result;
    result.pair = pair;
    result.masks = std::move(masks);
    Picture expected;
    std::optional<Picture> actual;
    try {
        if (!read_both(pair, expected, actual, result.reason)) {
            result.outcome = Outcome::unreadable;
            return result;
        }
        result.difference = difference(expected, actual ? *actual : expected, result.masks);
        result.outcome = result.difference.found() ? Outcome::different : Outcome::equal;
    } catch (const std::bad_alloc&) {
        result.outcome = Outcome::unreadable;
        result.reason = shown_path(pair.expected, "standard input") + ": too large for the memory";
    }
    return result;
}

/// Whether reading @p path may take so much memory that no other file should be read meanwhile.
bool is_large(const std::string& path) {
    std::error_code failed;
    const std::uintmax_t size = path == "-" ? 0 : std::filesystem::file_size(path, failed);
    return failed || size > kLargeFile || claimed_pixels(path) > kLargePicture;
}

/// Hands out the pairs to as many threads as there are processors. Large pictures are compared one
/// pair at a time: memory is bounded by the largest pair, not by the number of processors.
class Work {
public:
    Work(const Pairs& pairs, const std::vector<Mask>& masks)
        : pairs_(pairs.pairs), masks_(masks), results_(pairs.pairs.size()) {}

    std::vector<Result> run() {
        const std::size_t wanted = std::clamp(std::thread::hardware_concurrency(), 1u, 16u);
        std::vector<std::thread> others;
        for (std::size_t i = 1; i < std::min(wanted, pairs_.size()); ++i) {
            try {
                others.emplace_back([this] { take_all(); });
            } catch (const std::system_error&) {
                break;  // then those that run do it all
            }
        }
        take_all();
        for (std::thread& other : others) other.join();
        return std::move(results_);
    }

private:
    void take_all() {
        for (std::size_t i = next_++; i < pairs_.size(); i = next_++) results_[i] = one(pairs_[i]);
    }

    Result one(const Pair& pair) {
        std::vector<Mask> masks = masks_for(pair.name, masks_);
        if (pair.expected.empty() || pair.actual.empty()) {
            Result result;
            result.pair = pair;
            result.outcome = pair.expected.empty() ? Outcome::unexpected : Outcome::missing;
            return result;
        }
        std::unique_lock<std::mutex> alone(large_, std::defer_lock);
        if (pairs_.size() > 1 && (is_large(pair.expected) || is_large(pair.actual))) alone.lock();
        return compare_files(pair, std::move(masks));
    }

    const std::vector<Pair>& pairs_;
    const std::vector<Mask>& masks_;
    std::vector<Result> results_;
    std::atomic<std::size_t> next_{0};
    std::mutex large_;
};

}  // namespace

int Comparison::count(Outcome outcome) const {
    const auto is_it = [=](const Result& result) { return result.outcome == outcome; };
    return static_cast<int>(std::count_if(results.begin(), results.end(), is_it));
}

int Comparison::status() const {
    if (!trouble.empty() || count(Outcome::unreadable) > 0) return 2;
    return count(Outcome::equal) == static_cast<int>(results.size()) ? 0 : 1;
}

Comparison compare(const Pairs& pairs, const std::vector<Mask>& masks) {
    Comparison comparison;
    comparison.folders = pairs.folders;
    comparison.trouble = pairs.trouble;
    comparison.results = Work(pairs, masks).run();
    return comparison;
}

}  // namespace orvel_tools
