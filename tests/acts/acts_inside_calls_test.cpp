// SPDX-License-Identifier: GPL-3.0-or-later
// A table of all that can be done inside a driver call: kind of unit by kind of run by kind of call
// by act. Two calls are of one kind that find the same windows, controls, timers and run; of each
// kind the first two and the last are taken. However it goes, the rack measures afterwards and
// every key of it answers, or the program has ended in good order.
//
// Here a part of the table is walked, drawn by a seed; scripts/acts_inside_calls walks all of it.
// HMONITOR_ACTS_SHARE=1 takes every act, 25 one in 25, none given one in 300; HMONITOR_ACTS_SEED
// draws another part.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>

#include "tests/acts/acts.h"
#include "tests/acts/kinds_of_calls.h"
#include "tests/acts/rack_in_order.h"

namespace hmonitor::test {
namespace {

unsigned fromEnvironment(const char* name, unsigned otherwise) {
    const char* text = std::getenv(name);
    return text ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : otherwise;
}

/// The acts that are possible in the bench's present state.
std::vector<Act> actsInReach(RunBench& bench, const RunKind& run) {
    std::vector<Act> acts;
    for (display::Form* form : bench.desktop.forms()) {
        if (!form->visible) continue;
        for (Act& act : actsOn(*form, bench.hand)) acts.push_back(std::move(act));
    }
    acts.push_back({"the end is wanted", [&bench] { bench.desktop.wantEnd(); }});
    // The keys that begin and end the run, in every order inside one call.
    std::vector<Act> own;
    for (display::Control* key : run.ownKeys(bench)) {
        if (!key->form().visible) continue;
        for (const Act& act : acts) {
            const std::string name = key->form().name() + "." + key->name();
            if (act.name == name + " click" || act.name == name + " choose") own.push_back(act);
        }
    }
    if (own.empty()) return acts;
    for (const Act& act : acts) {
        for (const display::Control* key : run.ownKeys(bench)) {
            const std::string close = key->form().name() + " close";
            const std::string escape = key->form().name() + " escape";
            if (act.name != close && act.name != escape) continue;
            if (std::ranges::none_of(own, [&](const Act& had) { return had.name == act.name; }))
                own.push_back(act);
        }
    }
    for (Act& pair : pairsOf(own)) acts.push_back(std::move(pair));
    return acts;
}

/// Who walks so much of the table is told how far it is.
constexpr unsigned kToldShare = 20;

class ActsInsideCalls : public testing::TestWithParam<std::tuple<std::size_t, std::size_t>> {
 protected:
    const RunKind& run = runKinds()[std::get<0>(GetParam())];
    const UnitKind& unit = kUnitKinds[std::get<1>(GetParam())];

    /// Does the whole run, and calls `inside` within its call of that number.
    void goThrough(RunBench& bench, int at, const std::function<void()>& inside,
                   const std::function<void(const char*)>& told = {}) {
        int number = 0;
        bench.called.inCall = [&, at](const char* call) {
            if (told) told(call);
            if (number++ == at) inside();
            // A slow unit: timers come due during the call.
            if (std::string_view(call) == "HM_Super")
                bench.desktop.elapse(std::chrono::milliseconds(7));
        };
        run.go(bench);
        bench.called.inCall = nullptr;
    }

    std::string faultAfter(int at, std::size_t act) {
        RunBench bench(unit);
        goThrough(bench, at, [&] {
            const auto acts = actsInReach(bench, run);
            if (act < acts.size()) acts[act].go();
        });
        const std::string open = closeAll(bench);
        if (bench.desktop.ended()) return faultOfEnd(bench);
        if (!open.empty()) return "these stay open:" + open;
        return faultOf(bench);
    }

    struct Calls {
        std::vector<std::string> functions, kinds;
    };
    Calls callsOfRun() {
        RunBench bench(unit);
        Calls calls;
        goThrough(
            bench, -1, [] {},
            [&](const char* function) {
                calls.functions.emplace_back(function);
                calls.kinds.push_back(kindOfCall(bench, function));
            });
        EXPECT_EQ(closeAll(bench), "");
        EXPECT_EQ(faultOf(bench), "");
        return calls;
    }

    std::vector<std::string> actNames(int at) {
        RunBench bench(unit);
        std::vector<std::string> names;
        goThrough(bench, at, [&] {
            for (const Act& act : actsInReach(bench, run)) names.push_back(act.name);
        });
        return names;
    }
};

TEST_P(ActsInsideCalls, LeaveARackThatMeasuresAndAnswers) {
    const unsigned share = fromEnvironment("HMONITOR_ACTS_SHARE", 300);
    std::mt19937 draw(fromEnvironment("HMONITOR_ACTS_SEED", 18));
    const Calls calls = callsOfRun();
    const auto taken = callsOfEachKind(calls.kinds);
    int done = 0, faults = 0;
    for (const int at : taken) {
        const auto names = actNames(at);
        ASSERT_FALSE(names.empty());
        for (std::size_t act = 0; act < names.size(); ++act) {
            if (share > 1 && draw() % share != 0) continue;
            ++done;
            const std::string fault = faultAfter(at, act);
            if (fault.empty()) continue;
            ADD_FAILURE() << run.name << ", " << unit.name << " unit, call " << at << " ("
                          << calls.functions[static_cast<std::size_t>(at)] << "), " << names[act]
                          << ": " << fault;
            constexpr int kTold = 12;
            if (++faults >= kTold) return;
        }
    }
    RecordProperty("acts", done);
    if (share <= kToldShare) {
        const std::set<std::string> kinds(calls.kinds.begin(), calls.kinds.end());
        std::printf("%s, %s unit: %zu calls of %zu kinds, %zu taken: %d acts\n", run.name,
                    unit.name, calls.kinds.size(), kinds.size(), taken.size(), done);
        std::fflush(stdout);
    }
}

INSTANTIATE_TEST_SUITE_P(EachRunOnEachUnit, ActsInsideCalls,
                         testing::Combine(testing::Range<std::size_t>(0, runKinds().size()),
                                          testing::Range<std::size_t>(0, kUnitKinds.size())),
                         [](const auto& cell) {
                             return std::string(runKinds()[std::get<0>(cell.param)].name) +
                                    kUnitKinds[std::get<1>(cell.param)].name;
                         });

}  // namespace
}  // namespace hmonitor::test
