// SPDX-License-Identifier: GPL-3.0-or-later
// Three whole programs in one process, each with its own unit, folder and clock: each behaves as if
// it were alone.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <memory>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

/// What differs between the programs.
struct Own {
    int languageId;
    int bar;  ///< where it tunes to: steps of 100 kHz from 87.5 MHz
    float peak;
    float level;  ///< of each point of a scan
    unsigned seed;
};

constexpr std::array<Own, 3> kThree{{{RackBench::kEnglish, 31, 61.5f, 41, 7},
                                     {RackBench::kSpanish, 106, 88.25f, 57, 8},
                                     {RackBench::kPortuguese, 190, 103, 73, 9}}};

/// One program, and the user's acts on it, step by step.
class OneProgram {
 public:
    static constexpr int kSteps = 9;

    explicit OneProgram(const Own& own) : own_(own), bench_(own.languageId) {
        bench_.desktop.seedRandom(own.seed);
        bench_.driver.noteData = bench_.driver.noteFrames = true;
        bench_.readings.peakModulation = own.peak;
        bench_.readings.field = own.level;
        bench_.driver.superLevel = own.level;
        bench_.driver.duringSuper = [this](float) {
            if (meanwhile) meanwhile();
        };
    }

    void step(int number) {
        Form_BandSCanner& scanner = bench_.forms.formBandSCanner;
        switch (number) {
            case 0:
                return bench_.start();
            case 1:
                return bench_.advance(1s);
            case 2:
                bench_.set(bench_.formB.HScroll1, own_.bar);
                return bench_.advance(300ms);
            case 3:
                bench_.press(bench_.formB.Image2);
                return bench_.release(bench_.formB.Image2);
            case 4:
                bench_.driver.hardwareVersion = 1.5f;
                return bench_.click(bench_.formD.Image2);
            case 5:
                bench_.click(scanner.Command3D1);
                return bench_.advance(200ms);
            case 6:
                bench_.click(scanner.CommandClose);
                return bench_.advance(200ms);
            case 7:
                return bench_.set(bench_.formB.HScroll1, own_.bar + 3);
            default:
                return bench_.advance(3s);
        }
    }

    /// Called while each point is measured, with this program's handler running.
    std::function<void()> meanwhile;

    /// The results: all windows and calls in their order, all texts on the forms, all files.
    std::vector<std::string> journal() const { return bench_.desktop.journal; }
    std::map<std::string, std::string> texts() const {
        std::map<std::string, std::string> texts;
        for (const display::Form* form : bench_.desktop.forms()) {
            for (const display::Control* control : form->controls()) {
                if (const auto* label = dynamic_cast<const display::Label*>(control)) {
                    texts[form->name() + "." + control->name()] = std::string(label->caption.get());
                }
            }
        }
        return texts;
    }
    std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> files;
        for (const std::string& name : bench_.scratch.names()) files[name] = bench_.read(name);
        return files;
    }

 private:
    const Own own_;
    RackBench bench_;
};

std::unique_ptr<OneProgram> ranAlone(const Own& own) {
    auto program = std::make_unique<OneProgram>(own);
    for (int step = 0; step < OneProgram::kSteps; ++step) program->step(step);
    return program;
}

void expectSame(const OneProgram& program, const OneProgram& alone) {
    EXPECT_EQ(program.journal(), alone.journal());
    EXPECT_EQ(program.texts(), alone.texts());
    EXPECT_EQ(program.files(), alone.files());
}

TEST(ThreePrograms, InterleavedStepByStepDisturbNoneOfThem) {
    std::vector<std::unique_ptr<OneProgram>> programs;
    for (const Own& own : kThree) programs.push_back(std::make_unique<OneProgram>(own));
    for (int step = 0; step < OneProgram::kSteps; ++step) {
        for (auto& program : programs) program->step(step);
    }
    for (std::size_t i = 0; i < kThree.size(); ++i) {
        SCOPED_TRACE(i);
        expectSame(*programs[i], *ranAlone(kThree[i]));
    }
    // The three really differ.
    EXPECT_NE(programs[0]->texts(), programs[1]->texts());
    EXPECT_NE(programs[1]->journal(), programs[2]->journal());
    EXPECT_NE(programs[0]->files(), programs[1]->files());
}

TEST(ThreePrograms, TheOthersLiveOnWhileOneIsHeldByALongRun) {
    OneProgram scanning(kThree[0]);
    OneProgram second(kThree[1]);
    OneProgram third(kThree[2]);
    int points = 0;
    // The second program takes its steps within the points of the first, and the third within those
    // of the second.
    scanning.meanwhile = [&] {
        if (points < OneProgram::kSteps) second.step(points);
        ++points;
    };
    int inner = 0;
    second.meanwhile = [&] {
        if (inner < OneProgram::kSteps) third.step(inner);
        ++inner;
    };
    for (int step = 0; step < OneProgram::kSteps; ++step) scanning.step(step);
    EXPECT_GE(points, OneProgram::kSteps);
    EXPECT_GE(inner, OneProgram::kSteps);
    expectSame(scanning, *ranAlone(kThree[0]));
    expectSame(second, *ranAlone(kThree[1]));
    expectSame(third, *ranAlone(kThree[2]));
}

TEST(ThreePrograms, EndOneByOneAndLeaveTheOthersStanding) {
    std::vector<std::unique_ptr<OneProgram>> programs;
    for (const Own& own : kThree) programs.push_back(std::make_unique<OneProgram>(own));
    for (auto& program : programs) program->step(0);
    programs.erase(programs.begin() + 1);
    for (int step = 1; step < OneProgram::kSteps; ++step) {
        for (auto& program : programs) program->step(step);
    }
    expectSame(*programs[0], *ranAlone(kThree[0]));
    expectSame(*programs[1], *ranAlone(kThree[2]));
}

}  // namespace
}  // namespace hmonitor::test
