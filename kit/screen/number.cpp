#include "screen/number.h"

#include <algorithm>

namespace kit {
namespace {

constexpr long long kFarAway = 1000000000;  // exponents beyond it act alike

bool is_digit(char letter) { return letter >= '0' && letter <= '9'; }

std::size_t digits_length(std::string_view text) {
    const auto end = std::find_if_not(text.begin(), text.end(), is_digit);
    return static_cast<std::size_t>(end - text.begin());
}

/// 0.DIGITS times ten to the power of `exponent`; the first digit is not 0, nor is the last one.
struct Decimal {
    bool negative = false;
    std::string digits;  // none: zero
    long long exponent = 0;
};

long long exponent_of(std::string_view text) {
    const bool negative = text.front() == '-';
    if (!is_digit(text.front())) text.remove_prefix(1);
    long long exponent = 0;
    for (const char digit : text) exponent = std::min(10 * exponent + (digit - '0'), kFarAway);
    return negative ? -exponent : exponent;
}

Decimal decimal_of(std::string_view number) {
    Decimal result;
    const std::size_t power = number.find_first_of("eE");
    if (power != std::string_view::npos) result.exponent = exponent_of(number.substr(power + 1));
    bool fraction = false;
    for (const char letter : number.substr(0, power)) {
        if (letter == '-') {
            result.negative = true;
        } else if (letter == '.') {
            fraction = true;
        } else {
            const bool leads = letter == '0' && result.digits.empty();
            if (!leads) result.digits += letter;
            result.exponent += fraction ? (leads ? -1 : 0) : (leads ? 0 : 1);
        }
    }
    while (!result.digits.empty() && result.digits.back() == '0') result.digits.pop_back();
    if (result.digits.empty()) result = {};
    return result;
}

/// Adds one to the last of the digits, which may then be one more.
void increase(std::string& digits) {
    auto at = digits.end();
    while (at != digits.begin() && *(at - 1) == '9') *--at = '0';
    if (at == digits.begin()) {
        digits.insert(digits.begin(), '1');
    } else {
        ++*(at - 1);
    }
}

}  // namespace

std::size_t number_length(std::string_view text) {
    std::size_t at = !text.empty() && text[0] == '-' ? 1 : 0;
    const std::size_t whole = digits_length(text.substr(at));
    if (whole == 0) return 0;
    at += text[at] == '0' ? 1 : whole;
    if (at < text.size() && text[at] == '.') {
        const std::size_t decimals = digits_length(text.substr(at + 1));
        if (decimals == 0) return 0;
        at += 1 + decimals;
    }
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        std::size_t sign = at + 1;
        if (sign < text.size() && (text[sign] == '+' || text[sign] == '-')) ++sign;
        const std::size_t power = digits_length(text.substr(sign));
        if (power == 0) return 0;
        at = sign + power;
    }
    return at;
}

bool is_number(std::string_view text) {
    constexpr std::size_t kLongest = 400;
    constexpr long long kLargest = 309;  // digits before the point
    if (text.empty() || text.size() > kLongest || number_length(text) != text.size()) return false;
    return decimal_of(text).exponent <= kLargest;
}

std::string rounded(std::string_view number, int decimals) {
    const Decimal value = decimal_of(number);
    // Its digits in units of the last decimal: those before the cut, and one more when the first
    // behind it is 5 or above.
    const long long kept = value.exponent + decimals;
    const long long given = static_cast<long long>(value.digits.size());
    std::string units;
    if (kept > 0) units = value.digits.substr(0, static_cast<std::size_t>(std::min(kept, given)));
    if (kept >= 0 && kept < given && value.digits[static_cast<std::size_t>(kept)] >= '5') {
        increase(units);
    }
    // Numbers within double's range have no more than 309 digits before the point.
    if (kept > given) units.append(static_cast<std::size_t>(kept - given), '0');
    const bool negative = value.negative && !units.empty();
    const auto room = static_cast<std::size_t>(decimals);
    if (units.size() <= room) units.insert(0, room + 1 - units.size(), '0');
    if (room > 0) units.insert(units.size() - room, ".");
    return negative ? '-' + units : units;
}

int decimals_of(std::string_view number) {
    const Decimal value = decimal_of(number);
    const long long behind = static_cast<long long>(value.digits.size()) - value.exponent;
    return static_cast<int>(std::clamp<long long>(behind, 0, kFarAway));
}

bool count_units(std::string_view number, int decimals, long long most, long long& units) {
    constexpr long long kMostDigits = 18;
    const Decimal value = decimal_of(number);
    const long long digits = value.exponent + decimals;
    if (value.digits.empty()) {
        units = 0;
        return true;
    }
    if (digits < static_cast<long long>(value.digits.size()) || digits > kMostDigits) return false;
    units = 0;
    for (long long i = 0; i < digits; ++i) {
        const auto at = static_cast<std::size_t>(i);
        units = 10 * units + (at < value.digits.size() ? value.digits[at] - '0' : 0);
    }
    if (units > most) return false;
    if (value.negative) units = -units;
    return true;
}

int compare_numbers(std::string_view a, std::string_view b) {
    const Decimal one = decimal_of(a), other = decimal_of(b);
    const auto sign = [](const Decimal& of) {
        return of.digits.empty() ? 0 : of.negative ? -1 : 1;
    };
    if (sign(one) != sign(other)) return sign(one) - sign(other);
    if (one.exponent != other.exponent) {
        return one.exponent < other.exponent ? -sign(one) : sign(one);
    }
    const int order = one.digits.compare(other.digits);
    if (order == 0) return 0;
    return order > 0 ? sign(one) : -sign(one);
}

}  // namespace kit
