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

bool is_large_file(const std::string& path) {
    std::error_code failed;
    const std::uintmax_t size = path == "-" ? 0 : std::filesystem::file_size(path, failed);
    return !failed && size > kLargeFile;
}

/// What one thread works with, pair after pair. Large pictures are compared one pair at a time in
/// all threads: memory is bounded by the largest pair, not by the number of processors.
struct Desk {
    explicit Desk(std::mutex& of_large) : large(of_large, std::defer_lock) {}

    Bytes before, now;
    Picture expected, actual;
    std::unique_lock<std::mutex> large;

    void lock_when(bool is_large) {
        if (is_large && !large.owns_lock()) large.lock();
    }
    void clear() {
        if (!large.owns_lock()) return;
        before = now = Bytes();
        expected = actual = Picture();
        large.unlock();
    }
};

/// Reads both pictures, or the first one alone when the files are the same; null when they cannot
/// be read, else the second one.
const Picture* read_both(const Pair& pair, Desk& desk, std::string& error) {
    desk.lock_when(is_large_file(pair.expected) || is_large_file(pair.actual));
    if (!read_picture_bytes(pair.expected, desk.before, error)) return nullptr;
    if (!read_picture_bytes(pair.actual, desk.now, error)) return nullptr;
    desk.lock_when(std::max(claimed_pixels(desk.before), claimed_pixels(desk.now)) > kLargePicture);
    const auto decode = [&error](const Bytes& bytes, const std::string& path, Picture& picture) {
        return decode_picture(bytes, shown_path(path, "standard input"), picture, error);
    };
    if (!decode(desk.before, pair.expected, desk.expected)) return nullptr;
    if (desk.before == desk.now) return &desk.expected;
    return decode(desk.now, pair.actual, desk.actual) ? &desk.actual : nullptr;
}

Result compare_files(const Pair& pair, std::vector<Mask> masks, Desk& desk) {
    Result result;
    result.pair = pair;
    result.masks = std::move(masks);
    try {
        const Picture* const actual = read_both(pair, desk, result.reason);
        if (!actual) {
            result.outcome = Outcome::unreadable;
            return result;
        }
        result.difference = difference(desk.expected, *actual, result.masks);
        result.outcome = result.difference.found() ? Outcome::different : Outcome::equal;
    } catch (const std::bad_alloc&) {
        result.outcome = Outcome::unreadable;
        result.reason = shown_path(pair.expected, "standard input") + ": too large for the memory";
    }
    return result;
}

/// Hands out the pairs to as many threads as there are processors.
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
        Desk desk(large_);
        for (std::size_t i = next_++; i < pairs_.size(); i = next_++) {
            results_[i] = one(pairs_[i], desk);
        }
    }

    Result one(const Pair& pair, Desk& desk) {
        std::vector<Mask> masks = masks_for(pair.name, masks_);
        if (pair.expected.empty() || pair.actual.empty()) {
            Result result;
            result.pair = pair;
            result.outcome = pair.expected.empty() ? Outcome::unexpected : Outcome::missing;
            return result;
        }
        Result result = compare_files(pair, std::move(masks), desk);
        desk.clear();
        return result;
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
