// Numbers as the text that writes them.
#include "screen/number.h"

#include <gtest/gtest.h>

#include "support/cases.h"
#include "support/random.h"

namespace {

using kit::rounded;
using orvel_test::cases;
using orvel_test::Random;

TEST(NumberTest, RoundsHalfAwayFromZero) {
    EXPECT_EQ(rounded("20.83", 1), "20.8");
    EXPECT_EQ(rounded("20.85", 1), "20.9");
    EXPECT_EQ(rounded("2.675", 2), "2.68");  // of which the nearest double is less
    EXPECT_EQ(rounded("1.005", 2), "1.01");
    EXPECT_EQ(rounded("0.5", 0), "1");
    EXPECT_EQ(rounded("-0.5", 0), "-1");
    EXPECT_EQ(rounded("0.49999999999999999999", 0), "0");
    EXPECT_EQ(rounded("2.5", 0), "3");
    EXPECT_EQ(rounded("-2.5", 0), "-3");
    EXPECT_EQ(rounded("-2.4999", 0), "-2");
}

TEST(NumberTest, NinesCarry) {
    EXPECT_EQ(rounded("9.99", 1), "10.0");
    EXPECT_EQ(rounded("99.5", 0), "100");
    EXPECT_EQ(rounded("0.996", 2), "1.00");
    EXPECT_EQ(rounded("1999.95", 1), "2000.0");
}

TEST(NumberTest, ZeroHasNoSign) {
    EXPECT_EQ(rounded("-0", 0), "0");
    EXPECT_EQ(rounded("-0.0e5", 2), "0.00");
    EXPECT_EQ(rounded("-0.04", 1), "0.0");
    EXPECT_EQ(rounded("-0.05", 1), "-0.1");
    EXPECT_EQ(rounded("-1e-7", 3), "0.000");
}

TEST(NumberTest, ExponentsAreWrittenOut) {
    EXPECT_EQ(rounded("1e-7", 0), "0");
    EXPECT_EQ(rounded("1e-7", 7), "0.0000001");
    EXPECT_EQ(rounded("12.345e3", 1), "12345.0");
    EXPECT_EQ(rounded("12.345E+1", 1), "123.5");
    EXPECT_EQ(rounded("5e-1", 0), "1");
    EXPECT_EQ(rounded("4e-1", 0), "0");
    EXPECT_EQ(rounded("5e-2", 0), "0");
    EXPECT_EQ(rounded("1e3", 2), "1000.00");
    EXPECT_EQ(rounded("0.001e6", 0), "1000");
    EXPECT_EQ(rounded("9e-99999999999999999999", 2), "0.00");
    EXPECT_EQ(rounded("0e99999999999999999999", 2), "0.00");
    EXPECT_EQ(rounded("1e308", 0), "1" + std::string(308, '0'));
}

TEST(NumberTest, MissingDecimalsAreZeros) {
    EXPECT_EQ(rounded("7", 3), "7.000");
    EXPECT_EQ(rounded("0", 9), "0.000000000");
    EXPECT_EQ(rounded("100", 0), "100");
    EXPECT_EQ(rounded("0.05", 1), "0.1");
}

TEST(NumberTest, OnlyWhatJsonWritesIsANumber) {
    for (const char* good : {"0", "-0", "10", "0.50", "1e5", "1E-5", "-1.5e+10", "1e308"}) {
        EXPECT_TRUE(kit::is_number(good)) << good;
    }
    for (const char* bad : {"", "-", "+1", ".5", "1.", "01", "1e", "1e+", "0x1", "1 ", " 1", "nan",
                            "-.1", "1.e1", "1,5", "--1", "1e309", "1e99999999999999999999"}) {
        EXPECT_FALSE(kit::is_number(bad)) << bad;
    }
    EXPECT_TRUE(kit::is_number("0." + std::string(398, '1')));
    EXPECT_FALSE(kit::is_number("0." + std::string(399, '1')));
    EXPECT_EQ(kit::number_length("01"), 1u);
    EXPECT_EQ(kit::number_length("-12.5e3,"), 7u);
    EXPECT_EQ(kit::number_length("12-3"), 2u);
    EXPECT_EQ(kit::number_length(""), 0u);
    EXPECT_EQ(kit::number_length("true"), 0u);
}

int sign(int number) { return (number > 0) - (number < 0); }

TEST(NumberTest, ComparesExactly) {
    EXPECT_EQ(kit::compare_numbers("1", "1.0"), 0);
    EXPECT_EQ(kit::compare_numbers("1e2", "100"), 0);
    EXPECT_EQ(kit::compare_numbers("-0", "0e9"), 0);
    const char* const order[] = {"-1e9", "-20", "-3", "-0.5", "-1e-9", "0",
                                 "1e-9", "0.5", "3",  "20",   "20.1",  "1e9"};
    for (int i = 0; i < 12; ++i) {
        for (int j = 0; j < 12; ++j) {
            EXPECT_EQ(sign(kit::compare_numbers(order[i], order[j])), sign(i - j))
                << order[i] << " " << order[j];
        }
    }
    EXPECT_LT(kit::compare_numbers("9007199254740992", "9007199254740993"), 0);
    EXPECT_GT(kit::compare_numbers("-9007199254740992", "-9007199254740993"), 0);
}

/// @p value thousandths as a number, written in one of the many ways.
std::string thousandths(int value, Random& random) {
    const std::string digits =
        std::to_string(value < 0 ? -std::int64_t{value} : std::int64_t{value});
    std::string text = value < 0 ? "-" : "";
    switch (random.between(0, 2)) {
    case 0: return text + digits + "e-3";
    case 1: return text + digits + ".00E-03";
    default: break;
    }
    const std::string padded = std::string(digits.size() < 4 ? 4 - digits.size() : 0, '0') + digits;
    return text + padded.substr(0, padded.size() - 3) + "." + padded.substr(padded.size() - 3);
}

TEST(NumberTest, RandomNumbersRoundAsIntegersDo) {
    for (const std::uint64_t number : cases(20000)) {
        Random random(number);
        const int value = random.between(-200000, 200000);
        const std::string text = thousandths(value, random);
        const int size = value < 0 ? -value : value;
        const int whole = (size + 500) / 1000, tenths = (size + 50) / 100;
        const auto signed_text = [value](int units, const std::string& shown) {
            return value < 0 && units > 0 ? "-" + shown : shown;
        };
        EXPECT_EQ(rounded(text, 0), signed_text(whole, std::to_string(whole))) << text;
        EXPECT_EQ(rounded(text, 1), signed_text(tenths, std::to_string(tenths / 10) + "." +
                                                            std::to_string(tenths % 10)))
            << text;
    }
}

TEST(NumberTest, UnitsAreCountedWhereTheyFit) {
    long long units = 7;
    EXPECT_TRUE(kit::count_units("-2.50", 2, 1000, units));
    EXPECT_EQ(units, -250);
    EXPECT_TRUE(kit::count_units("0", 2, 1000, units));
    EXPECT_EQ(units, 0);
    EXPECT_FALSE(kit::count_units("0.25", 1, 1000, units));  // a decimal too many
    EXPECT_FALSE(kit::count_units("11", 2, 1000, units));
    EXPECT_FALSE(kit::count_units("1e18", 1, 1000, units));  // of which there are no long longs
}

}  // namespace
