// Every function with the numbers at which formulas break: all extremes of int for every parameter,
// one by one and in pairs; and for every double what is no number, no finite one or hardly one.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <new>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "models/shapes_model.h"
#include "support/cases.h"
#include "support/child.h"
#include "support/picture.h"
#include "support/random.h"
#include "support/sanitizers.h"
#include "whole/interface_models.h"
#include "whole/interface_test.h"

namespace {

using namespace orvel_test;

constexpr int kExtremes[] = {INT_MIN,   INT_MIN + 1, -1,          0,      1,
                             kSide - 1, kSide,       INT_MAX - 1, INT_MAX};

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kOddDoubles[] = {
    kNan,         -kNan,    kInfinity,           -kInfinity,      DBL_MAX, -DBL_MAX,
    DBL_MIN,      -DBL_MIN, DBL_TRUE_MIN,        -DBL_TRUE_MIN,   0.0,     -0.0,
    1.0,          -1.0,     1 - DBL_EPSILON / 2, 1 + DBL_EPSILON, 1e300,   -1e300,
    2147483648.0, 0.5};

using Visit = std::function<void(const HostArguments&)>;

/// The usual arguments with every int in turn at every extreme, and with every two of them.
void with_extremes(const HostFunction& function, const Visit& visit) {
    for (std::size_t i = 0; i < function.ints; ++i) {
        for (const int first : kExtremes) {
            HostArguments arguments = function.usual;
            arguments.ints[i] = first;
            visit(arguments);
            for (std::size_t j = i + 1; j < function.ints; ++j) {
                for (const int second : kExtremes) {
                    arguments.ints[j] = second;
                    visit(arguments);
                }
                arguments.ints[j] = function.usual.ints[j];
            }
        }
    }
}

std::vector<std::string> names_of(const std::function<bool(const HostFunction&)>& chosen) {
    std::vector<std::string> names;
    for (const HostFunction& function : host_functions()) {
        if (chosen(function)) names.push_back(function.name);
    }
    return names;
}

std::string name_of(const testing::TestParamInfo<std::string>& name) { return name.param; }

TEST(InterfaceTableTest, HoldsEveryExportedFunctionOnce) {
    std::set<std::string> names, exported;
    std::set<void (*)()> addresses;
    for (const HostFunction& function : host_functions()) {
        names.insert(function.name);
        addresses.insert(function.address);
    }
    std::istringstream lines(read_file(ORVEL_SOURCE_DIR "/tests/whole/exports.txt"));
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("orvel_", 0) == 0) exported.insert(line);  // the others are C++
    }
    EXPECT_EQ(names, exported);
    EXPECT_EQ(names.size(), host_functions().size());
    EXPECT_EQ(addresses.size(), host_functions().size());
}

TEST(InterfaceTableTest, HasAUsualArgumentForEveryParameter) {
    for (const HostFunction& function : host_functions()) {
        EXPECT_EQ(function.usual.ints.size(), function.ints) << function.name;
        EXPECT_EQ(function.usual.doubles.size(), function.doubles) << function.name;
        EXPECT_EQ(function.usual.texts.size(), function.texts) << function.name;
    }
}

class ExtremesTest : public InterfaceTest {};

class ExtremeInts : public ExtremesTest, public testing::WithParamInterface<std::string> {};

TEST_P(ExtremeInts, OneByOneAndInPairsGiveWhatTheModelsDo) {
    const HostFunction& function = host_function(GetParam());
    ASSERT_EQ(difference_of_any_kind(function, function.usual), "");
    with_extremes(function, [&](const HostArguments& arguments) {
        if (HasFailure()) return;
        const bool is_count = GetParam() == "orvel_widget_set_data";
        if (is_count && arguments.ints[0] > static_cast<int>(data.size())) return;  // a host's lie
        EXPECT_EQ(difference_of_any_kind(function, arguments), "");
    });
    expect_checksum("ints of " + GetParam());
}

INSTANTIATE_TEST_SUITE_P(Extremes, ExtremeInts,
                         testing::ValuesIn(names_of([](const HostFunction& function) {
                             return function.ints > 0 &&
                                    function.name != std::string("orvel_canvas_create");
                         })),
                         name_of);

TEST_F(ExtremesTest, EveryIconIsDrawnAsTheModelDrawsIt) {
    const HostFunction& function = host_function("orvel_draw_icon_ex");
    int count = 0;
    const char** const names = orvel_icon_list(&count);
    for (int i = 0; i < count; ++i) {
        with_extremes(function, [&](HostArguments arguments) {
            if (HasFailure()) return;
            arguments.texts[0] = names[i];
            EXPECT_EQ(difference(function, arguments), "");
        });
        expect_checksum(std::string("ints up to ") + names[i]);
    }
}

TEST_F(ExtremesTest, ResultsAreTheDocumentedOnes) {
    const std::map<std::string, std::size_t> sizes = {
        {"orvel_draw_icon", 2}, {"orvel_draw_icon_ex", 2}, {"orvel_play_tone", 0}};
    for (const auto& [name, parameter] : sizes) {
        const HostFunction& function = host_function(name);
        for (const int extreme : kExtremes) {
            HostArguments arguments = function.usual;
            arguments.ints[parameter] = extreme;
            EXPECT_EQ(difference(function, arguments), "");
            EXPECT_EQ(status, extreme < 1 ? -1 : 0) << name << ' ' << extreme;
        }
    }
    with_extremes(host_function("orvel_icon_draw_bitmap"), [this](const HostArguments& arguments) {
        difference(host_function("orvel_icon_draw_bitmap"), arguments);
        EXPECT_EQ(status, 0);
    });
    with_extremes(host_function("orvel_canvas_pixel_get"), [this](const HostArguments& arguments) {
        difference(host_function("orvel_canvas_pixel_get"), arguments);
        const int x = arguments.ints[0], y = arguments.ints[1];
        const bool is_inside = x >= 0 && x < kSide && y >= 0 && y < kSide;
        EXPECT_EQ(color.a, is_inside && !(x == 3 && y == 4) ? 255 : 0) << x << ' ' << y;
    });
}

// The model of a line asks every pixel; the older one walks, and cannot go as far.
TEST_F(ExtremesTest, BothModelsOfALineAreTheSame) {
    const HostFunction& function = host_function("orvel_canvas_line");
    for (const std::uint64_t number : cases(5000)) {
        Random random(number);
        HostArguments arguments = function.usual;
        for (int& end : arguments.ints) end = random.between(-15, kSide + 15);
        const CanvasPtr asked = make_canvas(kSide, kSide);
        model::Canvas walked(kSide, kSide);
        const Stage stage = {asked.get(), nullptr, nullptr, {}, {kInk, {}, {}}};
        draw_by_model(function, stage, arguments, asked.get());
        const std::vector<int>& n = arguments.ints;
        model::line(walked, n[0], n[1], n[2], n[3], kInk);
        for (int at = 0; at < kSide * kSide; ++at) {
            const int x = at % kSide, y = at / kSide;
            ASSERT_EQ(orvel_canvas_pixel_get(asked.get(), x, y), walked.at(x, y)) << number;
        }
    }
}

class OddDoubles : public ExtremesTest, public testing::WithParamInterface<std::string> {};

TEST_P(OddDoubles, AloneAndWithEveryExtremeOfIntGiveWhatTheModelsDo) {
    const HostFunction& function = host_function(GetParam());
    for (const double odd : kOddDoubles) {
        HostArguments arguments = function.usual;
        arguments.doubles[0] = odd;
        EXPECT_EQ(difference_of_any_kind(function, arguments), "");
        if (GetParam() == "orvel_play_tone") {
            EXPECT_EQ(status, odd <= 0 ? -1 : 0) << odd;
            continue;  // its only int is a length, which costs time
        }
        with_extremes(function, [&](HostArguments both) {
            if (HasFailure()) return;
            both.doubles[0] = odd;
            EXPECT_EQ(difference(function, both), "");
        });
    }
    expect_checksum("doubles of " + GetParam());
}

INSTANTIATE_TEST_SUITE_P(Extremes, OddDoubles,
                         testing::ValuesIn(names_of([](const HostFunction& function) {
                             return function.doubles > 0;
                         })),
                         name_of);

TEST_F(ExtremesTest, OddDoublesInAChartGiveWhatTheModelDoes) {
    const HostFunction& function = host_function("orvel_widget_set_data");
    HostArguments all = function.usual;
    data.assign(std::begin(kOddDoubles), std::end(kOddDoubles));
    all.ints[0] = static_cast<int>(data.size());
    EXPECT_EQ(difference_of_any_kind(function, all), "");
    for (const double odd : kOddDoubles) {
        data = {odd, 0.5, odd};
        EXPECT_EQ(difference_of_any_kind(function, function.usual), "");
    }
    expect_checksum("doubles in a chart");
}

/// What became of a canvas of that size: a picture, null, or a failure that a C++ host can catch.
std::string made(int width, int height) {
    try {
        const CanvasPtr canvas = make_canvas(width, height);
        if (!canvas) return "null";
        const bool is_right = orvel_canvas_width(canvas.get()) == width &&
                              orvel_canvas_height(canvas.get()) == height;
        return is_right ? "canvas" : "another canvas";
    } catch (const std::bad_alloc&) {
        return "failure";
    }
}

void limit_memory() {
    constexpr rlim_t kLimit = rlim_t{1} << 30;
    const rlimit limit = {kLimit, kLimit};
    setrlimit(RLIMIT_AS, &limit);
}

TEST(ExtremeCanvasTest, ASizeIsNullOrACanvasOrMoreThanThereIsMemory) {
    if (kAddressSanitizer) GTEST_SKIP() << "the sanitizer maps more than any limit on memory";
    const int wrong = in_child([] {
        limit_memory();
        int differences = 0;
        for (const int width : kExtremes) {
            for (const int height : kExtremes) {
                const bool is_large = width > kSide || height > kSide;
                const char* const expected = width < 1 || height < 1 ? "null"
                                             : is_large              ? "failure"
                                                                     : "canvas";
                differences += made(width, height) != expected;
            }
        }
        return differences;
    });
    EXPECT_EQ(wrong, 0);
}

TEST(ExtremeCanvasTest, MorePixelsThanMemoryAreAFailureAfterWhichTheHostGoesOn) {
    if (kAddressSanitizer) GTEST_SKIP() << "the sanitizer maps more than any limit on memory";
    const int status = in_child([] {
        limit_memory();
        for (int i = 0; i < 100; ++i) {
            if (made(65536, 65536) != "failure") return 1;
            if (made(1024, 1024) != "canvas") return 2;
        }
        return 0;
    });
    EXPECT_EQ(status, 0);
}

}  // namespace
