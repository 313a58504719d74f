#include "whole/torture/runner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "support/child.h"
#include "system/allocations.h"
#include "system/shared.h"
#include "system/system.h"

namespace orvel_test::torture {
namespace {

std::string counted(long number, const char* thing) {
    return number == 0 ? "" : "; " + std::to_string(number) + " " + thing + " left";
}

/// What the host tells in one run, and what the library leaves behind.
std::string outcome_of(const Scenario& scenario, const Plan& plan, const std::string& root,
                       Memory& memory) {
    std::string told(1000, ' ');  // not allocated within the run
    begin_anew("");
    machine().keeps_log = true;
    orvel_set_resource_path(root.c_str());
    const int descriptors = open_descriptors();
    const long live = allocations_live();
    begin_run(plan);
    {
        Host host(root, memory);
        scenario.act(host);
        told = host.told();
    }
    told += left_behind();
    orvel_stop_music();
    orvel_shutdown();
    clean_up();
    // A first run allocates what later ones are compared with.
    if (memory.complete) told += counted(allocations_live() - live, "allocation");
    memory.complete = true;
    return told + counted(open_descriptors() - descriptors, "unknown descriptor");
}

/// A run by @p plan, and the same once more without a failure.
struct Observed {
    std::string told, told_again;
    std::vector<Call> calls;
};

Observed observe_here(const Scenario& scenario, const Plan& plan, const std::string& root,
                      Memory& memory) {
    Observed observed;
    observed.told = outcome_of(scenario, plan, root, memory);
    observed.calls = calls_of_run();
    observed.told_again = outcome_of(scenario, {}, root, memory);
    return observed;
}

/// The same in a child, for what the library does once a process.
Observed observe_in_child(const Scenario& scenario, const Plan& plan, const std::string& root) {
    struct Texts {
        char told[1000], told_again[1000];
        int calls;
        Call call[1000];
    };
    static Texts& texts = shared<Texts>();
    texts = {};
    const int status = in_child([&] {
        Memory nothing_to_compare = {{}, true};
        const Observed observed = observe_here(scenario, plan, root, nothing_to_compare);
        std::snprintf(texts.told, sizeof texts.told, "%s", observed.told.c_str());
        std::snprintf(texts.told_again, sizeof texts.told_again, "%s", observed.told_again.c_str());
        if (observed.calls.size() > std::size(texts.call)) return 1;
        for (const Call call : observed.calls) texts.call[texts.calls++] = call;
        return 0;
    });
    EXPECT_EQ(status, 0);
    return {texts.told, texts.told_again, {texts.call, texts.call + texts.calls}};
}

Observed observe(const Scenario& scenario, const Plan& plan, const std::string& root,
                 Memory& memory) {
    return scenario.in_new_process ? observe_in_child(scenario, plan, root)
                                   : observe_here(scenario, plan, root, memory);
}

/// "read 2" for the second call of read.
std::string numbered(const std::vector<Call>& calls, const Plan& plan) {
    const auto here = calls.begin() + plan.first;
    return name_of(*here) + (" " + std::to_string(std::count(calls.begin(), here + 1, *here)));
}

/// The names by which rules can mean the call that a plan lets fail. A lease that ends is waited
/// for, and a call that was interrupted is made again: no rule is needed.
std::set<std::string> names_of(const std::vector<Call>& calls, const Plan& plan) {
    if ((plan.way == Way::leased || plan.way == Way::interrupted) && !plan.lasting) return {};
    const auto here = calls.begin() + plan.first;
    const std::string name = name_of(*here);
    std::set<std::string> names = {name, numbered(calls, plan)};
    if (std::find(here + 1, calls.end(), *here) == calls.end()) names.insert("last " + name);
    const std::set<std::string> plain = names;
    for (const std::string& each : plain) {
        if (plan.way != Way::fails) names.insert(each + " " + name_of(plan.way));
        if (is_partial(plan.way)) names.insert(each + " short");
    }
    return names;
}

std::string in_words(const std::vector<Call>& calls, const Plan& plan) {
    const bool otherwise = plan.way != Way::fails;
    return numbered(calls, plan) + (otherwise ? std::string(" ") + name_of(plan.way) : "") +
           (plan.lasting ? " and all later calls fail" : " fails");
}

class Victim {
public:
    Victim(const Scenario& scenario, const std::string& root) : scenario_(scenario), root_(root) {}

    Totals torture() {
        const Observed clean = observe(scenario_, {}, root_, memory_);
        EXPECT_EQ(clean.told, scenario_.told);
        EXPECT_EQ(clean.told_again, scenario_.told);
        Totals totals = {1, static_cast<int>(clean.calls.size()), 2, {}};
        for (const Call call : clean.calls) ++totals.sites_by_call[call];
        for (int first = 0; first < totals.sites; ++first) {
            const Call call = clean.calls[static_cast<std::size_t>(first)];
            for (const Way way : ways_of(call)) {
                for (const bool lasting : {false, true}) fail(clean.calls, {first, way, lasting});
                totals.runs += 4;
            }
        }
        for (const Rule& rule : scenario_.rules) {
            EXPECT_EQ(needed_.count(&rule), 1u) << "no call for the rule " << rule.call;
        }
        return totals;
    }

private:
    void fail(const std::vector<Call>& calls, const Plan& plan) {
        const std::set<std::string> names = names_of(calls, plan);
        SCOPED_TRACE(in_words(calls, plan));
        const Observed observed = observe(scenario_, plan, root_, memory_);
        EXPECT_EQ(observed.told, expected(names, plan.lasting));
        EXPECT_EQ(observed.told_again, scenario_.told) << "when nothing fails any more";
        const auto first = static_cast<std::size_t>(plan.first);
        ASSERT_GT(observed.calls.size(), first) << "the call was not made again";
        EXPECT_TRUE(
            std::equal(calls.begin(), calls.begin() + plan.first + 1, observed.calls.begin()))
            << "other calls came before it";
    }

    const std::string& expected(const std::set<std::string>& names, bool lasting) {
        for (const Rule& rule : scenario_.rules) {
            if (names.count(rule.call) == 0) continue;
            needed_.insert(&rule);
            return lasting && !rule.told_from_then.empty() ? rule.told_from_then : rule.told;
        }
        return scenario_.told;
    }

    const Scenario& scenario_;
    const std::string root_;
    Memory memory_;
    std::set<const Rule*> needed_;
};

}  // namespace

std::vector<Rule> with(std::vector<Rule> rules, const std::vector<Rule>& more) {
    rules.insert(rules.end(), more.begin(), more.end());
    return rules;
}

Scenarios joined(const std::vector<Scenarios>& lists) {
    Scenarios all;
    for (const Scenarios& list : lists) all.insert(all.end(), list.begin(), list.end());
    return all;
}

void Totals::add(const Totals& others) {
    scenarios += others.scenarios;
    sites += others.sites;
    runs += others.runs;
    for (const auto& [call, number] : others.sites_by_call) sites_by_call[call] += number;
}

std::string Totals::in_words() const {
    std::string calls;
    for (const auto& [call, number] : sites_by_call) {
        calls += (calls.empty() ? "" : ", ") + std::to_string(number) + " " + name_of(call);
    }
    return std::to_string(scenarios) + " scenarios, " + std::to_string(sites) + " sites (" + calls +
           "), " + std::to_string(runs) + " runs";
}

std::set<Call> run(const Scenarios& scenarios, const std::string& root) {
    std::set<Call> made;
    for (const Scenario& scenario : scenarios) {
        Memory memory;
        const std::vector<Call> calls = observe(scenario, {}, root, memory).calls;
        made.insert(calls.begin(), calls.end());
    }
    return made;
}

Totals fail_every_call(const Scenarios& scenarios, const std::string& root) {
    Totals totals;
    for (const Scenario& scenario : scenarios) {
        SCOPED_TRACE(scenario.name);
        totals.add(Victim(scenario, root).torture());
    }
    return totals;
}

}  // namespace orvel_test::torture
