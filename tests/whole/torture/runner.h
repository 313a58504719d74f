// Runs scenarios with every call failing, one by one.
#pragma once

#include <map>
#include <set>
#include <string>

#include "whole/torture/scenario.h"

namespace orvel_test::torture {

/// What was run: the sites are the calls that can fail, counted once a scenario.
struct Totals {
    int scenarios = 0, sites = 0, runs = 0;
    std::map<Call, int> sites_by_call;

    void add(const Totals& others);
    std::string in_words() const;
};

/// Runs all @p scenarios without a failure; the calls that they make.
std::set<Call> run(const Scenarios& scenarios, const std::string& root);

/// Runs all @p scenarios with every failure; every deviation from what they say is a failure of the
/// current test.
Totals fail_every_call(const Scenarios& scenarios, const std::string& root);

}  // namespace orvel_test::torture
