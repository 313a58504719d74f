#include "sound/tone_samples.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

#include "core/bytes.h"
#include "core/numbers.h"
#include "core/sine.h"

namespace orvel {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr int kFadeSamples = 441;  // 10 ms
constexpr double kAmplitude = 19660.2;

double gain_at(int i, int count) {
    // Deliberate: the fade-in is tested first; a tone of at most 441 samples has no fade-out.
    if (i < kFadeSamples) return i / 441.0;
    if (i <= count - kFadeSamples) return 1.0;
    return (count - i) / 441.0;
}

/// The values that are computed here are this near to those of the rule: docs/tones.md adds it up.
constexpr double kMargin = 1.0 / (1 << 26);

int sample(double phase, int i, int count) {
    const double gain = gain_at(i, count);
    const double about = (direction(phase).sine * kAmplitude) * gain;
    const int low = trunc(about - kMargin), high = trunc(about + kMargin);
    return low == high ? low : trunc((sine(phase) * kAmplitude) * gain);
}

/// Samples from one phase on, each further by the same step.
struct Run {
    double phase, step;
    int first, count;  // among all of the tone's

    double phase_at(int k) const { return phase + k * step; }  // exact
};

double from_bits(std::uint64_t bits) {
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

/// How many samples from @p phase on are further by the same amount each, and that amount.
///
/// Between two powers of two, phases are multiples of one unit. So each sum is rounded by the same
/// amount, unless the step lies halfway between two multiples.
Run run_from(double phase, double step, int first) {
    std::uint64_t bits;
    std::memcpy(&bits, &phase, sizeof bits);
    const double unit = from_bits(bits + 1) - phase;
    const double end = from_bits((bits | 0xfffffffffffff) + 1);  // the next power of two
    const double next = phase + step, grown = next - phase;
    const double lost = grown < step ? step - grown : grown - step;
    if (!(next < end && end <= kLargest) || lost == unit / 2) return {phase, step, first, 1};
    return {phase, grown, first, std::max(1, trunc((end - phase) / grown) - 1)};
}

constexpr int kLanes = 8, kBlock = 512;

Direction turned(Direction from, Direction by) {
    return {from.sine * by.cosine + from.cosine * by.sine,
            from.cosine * by.cosine - from.sine * by.sine};
}

/// Turns eight directions at a time, one after the other in the phases of a run.
class Wheel {
public:
    explicit Wheel(double step)
        : one_(direction(step)),
          two_(direction(2 * step)),
          four_(direction(4 * step)),
          eight_(direction(8 * step)) {}

    /// Writes the samples from a phase on that have the gains @p gain, @p gain + @p rise, ...;
    /// whether all are decided.
    bool write(double phase, double gain, double rise, int count, int* values) const {
        double s[kLanes], c[kLanes], gains[kLanes];
        start(phase, s, c);
        for (int lane = 0; lane < kLanes; ++lane) gains[lane] = (gain + lane * rise) * kAmplitude;
        const double more = kLanes * rise * kAmplitude;
        const Direction by = eight_;
        unsigned undecided[kLanes] = {};
        for (int i = 0; i < count; i += kLanes) {
            for (int lane = 0; lane < kLanes; ++lane) {
                const double about = s[lane] * gains[lane];
                const int low = static_cast<int>(about - kMargin);
                const int high = static_cast<int>(about + kMargin);
                values[i + lane] = low;
                undecided[lane] |= static_cast<unsigned>(low ^ high);
                gains[lane] += more;
                const double sine = s[lane] * by.cosine + c[lane] * by.sine;
                c[lane] = c[lane] * by.cosine - s[lane] * by.sine;
                s[lane] = sine;
            }
        }
        return std::all_of(undecided, undecided + kLanes, [](unsigned bits) { return bits == 0; });
    }

private:
    void start(double phase, double* s, double* c) const {
        Direction lanes[kLanes] = {direction(phase)};
        lanes[1] = turned(lanes[0], one_);
        for (int lane = 2; lane < 4; ++lane) lanes[lane] = turned(lanes[lane - 2], two_);
        for (int lane = 4; lane < 8; ++lane) lanes[lane] = turned(lanes[lane - 4], four_);
        for (int lane = 0; lane < kLanes; ++lane) {
            s[lane] = lanes[lane].sine;
            c[lane] = lanes[lane].cosine;
        }
    }

    Direction one_, two_, four_, eight_;
};

/// The number of samples from @p i on over which the gain rises, stays or falls.
int same_slope(int i, int count) {
    if (i < kFadeSamples) return kFadeSamples - i;
    const int fade_out = count - kFadeSamples + 1;
    return i < fade_out ? fade_out - i : count - i;
}

void put_run(unsigned char* samples, int count, const Run& run) {
    const Wheel wheel(run.step);
    int values[kBlock];
    for (int done = 0; done < run.count;) {
        const int i = run.first + done;
        const int length = std::min({kBlock, run.count - done, same_slope(i, count)});
        const double gain = gain_at(i, count);
        const double rise = i + 1 < count ? gain_at(i + 1, count) - gain : 0.0;
        if (!wheel.write(run.phase_at(done), gain, length > 1 ? rise : 0.0, length, values)) {
            for (int k = 0; k < length; ++k) {
                values[k] = sample(run.phase_at(done + k), i + k, count);
            }
        }
        for (int k = 0; k < length; ++k) {
            put_u16(samples + 2 * (i + k), static_cast<std::uint32_t>(values[k]));
        }
        done += length;
    }
}

}  // namespace

void put_tone(unsigned char* samples, int count, double step) {
    double phase = 0.0;
    for (int i = 0; i < count;) {
        Run run = run_from(phase, step, i);
        run.count = std::min(run.count, count - i);
        if (run.count < 2 * kLanes) {
            put_u16(samples + 2 * i, static_cast<std::uint32_t>(sample(phase, i, count)));
            phase += step;  // Deliberate: accumulated, never formed anew from i.
            ++i;
        } else {
            put_run(samples, count, run);
            phase = run.phase_at(run.count);
            i += run.count;
        }
    }
}

}  // namespace orvel
