// Times the same work for every implementation, side by side, and prints a table.
#include <signal.h>
#include <sys/stat.h>
#include <time.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "implementation.h"

#ifdef ORVEL_BENCH_CALLGRIND
#include <valgrind/callgrind.h>
#endif

namespace bench {
namespace {

constexpr double kShortestBlock = 200e-6;  // seconds

struct Options {
    int rounds = 31;
    std::string only;    // part of the names of the workloads to run
    bool count = false;  // instructions under callgrind, not time
};

double thread_seconds() {
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double seconds_of(const std::function<void(int)>& run, int times) {
    const double start = thread_seconds();
    run(times);
    return thread_seconds() - start;
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

struct Contender {
    Implementation implementation;
    Job job;
    std::vector<double> seconds;  // of one block, round by round
};

/// How often a block repeats the work so that even the fastest contender is busy long enough.
int block_length(std::vector<Contender>& contenders) {
    for (int times = 1;; times *= 2) {
        double least = 1.0;
        for (Contender& contender : contenders) {
            least = std::min(least, seconds_of(contender.job.run, times));
        }
        if (least >= kShortestBlock) return times;
    }
}

/// Whether @p painted pixels are a picture that the same calls can have drawn. Text is drawn in
/// other fonts, and pictures with alpha are read in different ways.
bool plausible(const Workload& work, long painted, long ours) {
    if (ours == 0) return painted == 0;
    const bool loose = work.task != Task::draw || work.ops.front().shape >= Shape::text;
    return painted >= ours / 3 && painted <= (loose ? ours * 3 : ours * 3 / 2);
}

std::vector<Contender> contenders_for(const Workload& work) {
    std::vector<Contender> contenders;
    long ours = 0;
    bool shows_nothing = false;  // then there is nothing to store, and no limit
    for (const Implementation& implementation : implementations()) {
        if (implementation.role == Role::limit && shows_nothing) break;
        Contender contender = {implementation, implementation.prepare(work), {}};
        if (!contender.job.run) continue;
        contender.job.run(1);
        if (contender.job.painted) {
            const long painted = contender.job.painted();
            if (implementation.role == Role::ours) ours = painted;
            shows_nothing = ours == 0;
            if (!plausible(work, painted, ours)) {
                std::fprintf(stderr, "bench: left out: %s, %s: %ld pixels, ours %ld\n",
                             work.name.c_str(), implementation.name.c_str(), painted, ours);
                continue;
            }
        }
        contenders.push_back(std::move(contender));
    }
    return contenders;
}

/// The contenders take turns, each round beginning with another one. What is timed comes after a
/// pass that is not: the caches then hold what they can of the contender's own picture, as in a
/// host that draws one frame after the other, and not what the one before has left there.
void run_rounds(std::vector<Contender>& contenders, int times, int rounds) {
    const std::size_t count = contenders.size();
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t turn = 0; turn < count; ++turn) {
            Contender& contender = contenders[(turn + static_cast<std::size_t>(round)) % count];
            contender.job.run(1);
            contender.seconds.push_back(seconds_of(contender.job.run, times));
        }
    }
}

/// The median over the rounds of our time divided by the other's.
double ratio(const Contender& ours, const Contender& other) {
    std::vector<double> ratios;
    for (std::size_t round = 0; round < ours.seconds.size(); ++round) {
        ratios.push_back(ours.seconds[round] / other.seconds[round]);
    }
    return median(ratios);
}

/// The contender in @p role that ours compares worst with; null if there is none.
const Contender* best(const std::vector<Contender>& contenders, Role role) {
    const Contender* found = nullptr;
    for (const Contender& contender : contenders) {
        if (contender.implementation.role != role) continue;
        if (!found || ratio(contenders[0], contender) > ratio(contenders[0], *found)) {
            found = &contender;
        }
    }
    return found;
}

std::string time_text(double seconds) {
    const char* const units[] = {"ns", "µs", "ms"};
    double value = seconds * 1e9;
    int unit = 0;
    while (value >= 1000 && unit < 2) {
        value /= 1000;
        ++unit;
    }
    char text[32];
    const int decimals = value < 10 ? 2 : value < 100 ? 1 : 0;
    std::snprintf(text, sizeof text, "%.*f %s", decimals, value, units[unit]);
    return text;
}

/// A ratio, in bold when it misses its goal, which then follows.
std::string ratio_text(double value, double goal) {
    char text[64];
    if (goal > 0 && value > goal) {
        std::snprintf(text, sizeof text, "**%.2f** (> %.2g)", value, goal);
    } else {
        std::snprintf(text, sizeof text, "%.2f", value);
    }
    return text;
}

/// Collects what the summary under the table needs.
struct Summary {
    std::vector<double> peer_ratios, limit_ratios;
    int missed = 0;

    static double geometric_mean(const std::vector<double>& values) {
        double sum = 0;
        for (const double value : values) sum += std::log(value);
        return std::exp(sum / static_cast<double>(values.size()));
    }
};

void report(const Workload& work, const std::vector<Contender>& contenders, int times,
            Summary& summary) {
    const double calls = static_cast<double>(work.calls()) * times;
    const auto per_call = [&](const Contender& contender) {
        return time_text(median(contender.seconds) / calls);
    };
    std::printf("| %s | %s |", work.name.c_str(), per_call(contenders[0]).c_str());
    const Contender* const limit = best(contenders, Role::limit);
    if (const Contender* const peer = best(contenders, Role::peer)) {
        const double value = ratio(contenders[0], *peer);
        summary.peer_ratios.push_back(value);
        summary.missed += value > work.goal.peer;
        if (limit) summary.limit_ratios.push_back(ratio(contenders[0], *limit));
        std::printf(" %s (%s) | %s |", per_call(*peer).c_str(), peer->implementation.name.c_str(),
                    ratio_text(value, work.goal.peer).c_str());
    } else {
        std::printf(" – | – |");
    }
    if (limit) {
        const double value = ratio(contenders[0], *limit);
        summary.missed += work.goal.limit > 0 && value > work.goal.limit;
        std::printf(" %s | %s |\n", per_call(*limit).c_str(),
                    ratio_text(value, work.goal.limit).c_str());
    } else {
        std::printf(" – | – |\n");
    }
    std::fflush(stdout);
}

void time_all(const std::vector<Workload>& table, const Options& options) {
    Summary summary;
    std::printf(
        "| workload | ours | best peer | ratio | limit | ratio |\n|---|--:|--:|--:|--:|--:|\n");
    for (const Workload& work : table) {
        if (work.name.find(options.only) == std::string::npos) continue;
        std::vector<Contender> contenders = contenders_for(work);
        const int times = block_length(contenders);
        run_rounds(contenders, times, options.rounds);
        report(work, contenders, times, summary);
    }
    std::printf(
        "\nGeometric mean of the %zu rows with a peer: it needs %s of the fastest peer's time, ",
        summary.peer_ratios.size(),
        ratio_text(Summary::geometric_mean(summary.peer_ratios), 0.36).c_str());
    std::printf("%s of the limit's.\nGoals missed: %d.\n\nCompared: ",
                ratio_text(Summary::geometric_mean(summary.limit_ratios), 1.5).c_str(),
                summary.missed);
    const char* separator = "";
    for (const Implementation& implementation : implementations()) {
        if (implementation.role == Role::limit) continue;
        std::printf("%s%s", separator, implementation.name.c_str());
        separator = ", ";
    }
    std::printf("; %d rounds.\n", options.rounds);
}

/// Has callgrind write one profile for each contender of each counted workload.
void count_all(const std::vector<Workload>& table, const Options& options) {
#ifdef ORVEL_BENCH_CALLGRIND
    for (const Workload& work : table) {
        if (!work.counted || work.name.find(options.only) == std::string::npos) continue;
        for (Contender& contender : contenders_for(work)) {
            CALLGRIND_ZERO_STATS;
            CALLGRIND_TOGGLE_COLLECT;
            contender.job.run(1);
            CALLGRIND_TOGGLE_COLLECT;
            const char* const roles[] = {"ours", "peer", "limit"};
            const std::string label = work.name + "|" + contender.implementation.name + "|" +
                                      roles[static_cast<int>(contender.implementation.role)] + "|" +
                                      std::to_string(work.calls());
            CALLGRIND_DUMP_STATS_AT(label.c_str());
        }
    }
#else
    (void)table;
    (void)options;
    std::fprintf(stderr, "bench: built without valgrind's headers, cannot count instructions\n");
    std::exit(1);
#endif
}

Options options_of(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        if (argument == "--count") {
            options.count = true;
        } else if (argument == "--only" && i + 1 < count) {
            options.only = arguments[++i];
        } else if (argument == "--rounds" && i + 1 < count && std::atoi(arguments[i + 1]) > 0) {
            options.rounds = std::atoi(arguments[++i]);
        } else {
            std::fprintf(stderr,
                         "usage: orvel_bench [--rounds N] [--only PART-OF-NAME] [--count]\n");
            std::exit(2);
        }
    }
    return options;
}

/// A folder in memory where the system has one, so that no disk is timed when pictures are saved.
std::string make_folder() {
    struct stat status;
    char path[] = "/dev/shm/orvel-bench-XXXXXX";
    char other[] = "/tmp/orvel-bench-XXXXXX";
    const char* const made = mkdtemp(stat("/dev/shm", &status) == 0 ? path : other);
    if (made) return made;
    std::fprintf(stderr, "bench: cannot make a folder for the pictures\n");
    std::exit(1);
}

}  // namespace

std::vector<Implementation> implementations() {
    std::vector<Implementation> all = {ours()};
#ifdef ORVEL_BENCH_GD
    all.push_back(gd());
#endif
#ifdef ORVEL_BENCH_CAIRO
    all.push_back(cairo());
#endif
#ifdef ORVEL_BENCH_PIXMAN
    all.push_back(pixman());
#endif
#ifdef ORVEL_BENCH_SDL
    all.push_back(sdl());
#endif
#ifdef ORVEL_BENCH_SDL_TTF
    all.push_back(sdl_ttf());
#endif
#ifdef ORVEL_BENCH_SDL_GFX
    all.push_back(sdl_gfx());
#endif
#ifdef ORVEL_BENCH_QT
    all.push_back(qt());
#endif
#ifdef ORVEL_BENCH_IMLIB
    all.push_back(imlib());
#endif
    for (Implementation& limit : limits()) all.push_back(std::move(limit));
    return all;
}

}  // namespace bench

int main(int count, char** arguments) {
    const bench::Options options = bench::options_of(count, arguments);
    signal(SIGCHLD, SIG_IGN);  // players of tones are not waited for
    const std::string folder = bench::make_folder();
    const std::vector<bench::Workload> table = bench::workloads(folder);
    if (options.count) {
        bench::count_all(table, options);
    } else {
        bench::time_all(table, options);
    }
    std::filesystem::remove_all(folder);
}
