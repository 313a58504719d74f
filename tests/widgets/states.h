// The words in which the list of kinds writes states.
#pragma once

#include <cstddef>
#include <limits>
#include <utility>

#include "widgets/kinds.h"

namespace orvel_test {

inline void put(HostArguments& arguments, int number) { arguments.ints.push_back(number); }
inline void put(HostArguments& arguments, double number) { arguments.doubles.push_back(number); }
inline void put(HostArguments& arguments, const char* text) { arguments.texts.push_back(text); }
inline void put(HostArguments& arguments, std::nullptr_t) { arguments.texts.push_back(nullptr); }

/// The arguments of a call behind its canvas and theme.
template <typename... Values>
HostArguments with(Values... values) {
    HostArguments arguments;
    (put(arguments, values), ...);
    return arguments;
}

template <typename... Values>
KindState state(std::string name, int width, int height, Values... values) {
    return {std::move(name), width, height, with(values...)};
}

inline KindState hovered(KindState state) {
    state.hover = 1;
    return state;
}
inline KindState activated(KindState state) {
    state.active = 1;
    return state;
}
inline KindState filled(KindState state, std::vector<double> data) {
    state.data = std::move(data);
    return state;
}

using KindStates = std::vector<KindState>;

inline KindStates joined(const std::vector<KindStates>& lists) {
    KindStates all;
    for (const KindStates& list : lists) all.insert(all.end(), list.begin(), list.end());
    return all;
}

/// States that a flag, a fraction or a number makes, its words behind the name.
template <typename Make>
KindStates off_and_on(Make make) {
    return {make(" off", 0), make(" on", 1)};
}
template <typename Make>
KindStates fractions(Make make) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    return {make(" 0", 0.0), make(" 0.25", 0.25), make(" 0.5", 0.5), make(" 1", 1.0),
            make(" nan", nan)};
}
template <typename Make>
KindStates numbers(const std::vector<int>& all, Make make) {
    KindStates states;
    for (const int number : all) states.push_back(make(" " + std::to_string(number), number));
    return states;
}

}  // namespace orvel_test
