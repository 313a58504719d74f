// Calls whose allocations fail, one by one and with all later ones.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <string>

#include "system/allocations.h"

namespace orvel_test {

template <typename Stage>
struct FailingRow {
    const char* functions;  // that are called, each followed by a blank
    int (*act)(Stage&);     // 0, or less for a failure
};

template <typename Row>
std::string name_of_row(const testing::TestParamInfo<Row>& row) {
    std::string name = row.param.functions;
    std::replace(name.begin(), name.end(), ' ', '_');
    return name + std::to_string(row.index);
}

struct Outcome {
    int status = 0;
    bool raised = false;
};

/// What comes of a call while the allocation of a number fails, 1 for the first: it alone, or with
/// all later ones.
template <typename Call>
Outcome while_failing(long number, bool alone, const Call& call) {
    static long s_left = 0;  // allocations that succeed before all others fail
    s_left = number - 1;
    Outcome outcome;
    const FailingAllocation one(alone ? number : 0);
    if (!alone) ask_before_allocating([] { return s_left-- <= 0; });
    try {
        outcome.status = call();
    } catch (...) {
        outcome.raised = true;
    }
    ask_before_allocating(nullptr);
    return outcome;
}

/// Expects a row for each function that a file lists, unless it needs none; how many those are.
template <typename Row, std::size_t size, typename Question>
int expect_rows_for(const std::string& exports, const Row (&rows)[size],
                    const Question& needs_none) {
    std::string called;
    for (const Row& row : rows) called += row.functions;
    std::ifstream names(exports);
    int count = 0;
    for (std::string name; std::getline(names, name); ++count) {
        const bool is_called = called.find(name + " ") != std::string::npos;
        EXPECT_TRUE(is_called || needs_none(name)) << name << " needs a row";
    }
    return count;
}

}  // namespace orvel_test
