// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/acts/life.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>

#include "display/controls/labels.h"
#include "display/controls/text_field.h"

namespace hmonitor::test {

namespace {

using namespace std::chrono_literals;

constexpr std::array kLanguages{RackBench::kEnglish, RackBench::kSpanish, RackBench::kPortuguese};
constexpr std::size_t kTold = 60;
/// After so many calls a run is stopped that would go on until somebody stops it.
constexpr int kLongRun = 400;
constexpr int kEndlessRun = 20000;

/// Whether a text shows a floating-point value that is no number.
bool saysNoNumber(std::string_view text) {
    for (const std::string_view odd : {"nan", "-nan", "inf", "-inf", "1.#IND", "1.#INF"}) {
        if (text == odd) return true;
        const std::string word = " " + std::string(odd);
        if (text.ends_with(word) || text.find(word + " ") != std::string_view::npos) return true;
    }
    return false;
}

}  // namespace

Life::Life(std::uint64_t seed) : random_(seed) {
    unit_ = kUnitKinds[static_cast<std::size_t>(draw(kUnitKinds.size()))];
    const int language = kLanguages[static_cast<std::size_t>(draw(kLanguages.size()))];
    bench_ = std::make_unique<RunBench>(unit_, language);
    bench_->desktop.seedRandom(static_cast<unsigned>(seed));
    damage_ = std::make_unique<FolderDamage>(bench_->scratch.path(), random_);
    bench_->called.inCall = [this](const char* call) { inCall(call); };
    bench_->desktop.duringBox = [this] { inBox(); };
}

Life::~Life() = default;

void Life::tell(std::string what) {
    told_.push_back(std::to_string(steps_) + ": " + std::move(what));
    if (told_.size() > kTold) told_.pop_front();
}

std::string Life::story() const {
    std::string all;
    for (const std::string& line : told_) all += line + "\n";
    return all;
}

void Life::actSomewhere() {
    const auto windows = bench_->windows();
    const bool onPanels = windows.empty() || one(4);
    const auto& panels = bench_->program.rack;
    display::Form* form =
        onPanels ? static_cast<display::Form*>(panels[static_cast<std::size_t>(draw(4))])
                 : windows[static_cast<std::size_t>(draw(static_cast<int>(windows.size())))];
    actOn(*form);
}

void Life::actOn(display::Form& form) {
    if (one(6) && typeInto(form)) return;
    auto& acts = acts_[&form];
    if (acts.empty()) acts = actsOn(form, bench_->hand);
    const Act& act = acts[static_cast<std::size_t>(draw(static_cast<int>(acts.size())))];
    // Rarely the power key, which ends the life.
    const bool ends = act.name.starts_with("Form1.Image_Power") || act.name == "Form1 close" ||
                      act.name == "Form1 escape";
    if (ends && !one(15)) return;
    tell(act.name);
    act.go();
}

bool Life::typeInto(display::Form& form) {
    static const std::array<std::string, 12> texts{
        "",    "0",     "-1",           "99999999999999999999",  "1e9",           "88.05", "87.5 ",
        "108", "x'\"<", "\xC3\xB1\xFF", std::string(70000, 'w'), "C:\\..\\../a/b"};
    std::vector<display::TextField*> fields;
    for (display::Control* control : form.controls()) {
        if (auto* field = dynamic_cast<display::TextField*>(control)) fields.push_back(field);
    }
    if (fields.empty()) return false;
    display::TextField& field =
        *fields[static_cast<std::size_t>(draw(static_cast<int>(fields.size())))];
    const std::string& text = texts[static_cast<std::size_t>(draw(texts.size()))];
    tell("type into " + form.name() + "." + field.name() + ": " + text.substr(0, 30));
    if (text.size() < 30 && one(2)) {
        bench_->hand.type(field, text);
    } else {
        bench_->hand.edit(field, text);
    }
    return true;
}

void Life::changeReadings() {
    constexpr float kOdd[] = {0,
                              -0.0f,
                              1,
                              -1,
                              28,
                              45,
                              90,
                              100,
                              -100,
                              9999,
                              1e9f,
                              -1e9f,
                              1e38f,
                              -1e38f,
                              1e-30f,
                              11583,
                              18,
                              -67.5f,
                              0.05f,
                              std::numeric_limits<float>::quiet_NaN(),
                              std::numeric_limits<float>::infinity(),
                              -std::numeric_limits<float>::infinity()};
    const int output = 1 + draw(18);
    const float said =
        one(2) ? kOdd[draw(std::size(kOdd))] : static_cast<float>(draw(20000)) / 100 - 50;
    tell("output " + std::to_string(output) + " is " + std::to_string(said));
    bench_->output(output) = said;
}

void Life::changeUnit() {
    ScriptedDriver& unit = bench_->called;
    constexpr float kVersions[] = {
        0, 1.5f, 1.7f, 1.8f, 1.99f, 2, -1, 1e9f, std::numeric_limits<float>::quiet_NaN()};
    constexpr float kLevels[] = {0,
                                 30,
                                 55,
                                 120,
                                 -200,
                                 1e9f,
                                 std::numeric_limits<float>::quiet_NaN(),
                                 std::numeric_limits<float>::infinity()};
    switch (draw(9)) {
        case 0:
            unit.hardwareVersion = kVersions[draw(std::size(kVersions))];
            tell("version " + std::to_string(unit.hardwareVersion));
            break;
        case 1:
            unit.superLevel = kLevels[draw(std::size(kLevels))];
            unit.floorLevel = kLevels[draw(std::size(kLevels))];
            tell("levels " + std::to_string(unit.superLevel));
            break;
        case 2:
            tell("single levels fail");
            for (int i = draw(6); i >= 0; --i) unit.superResults.push_back(1 + draw(3));
            break;
        case 3:
            slow_ = one(2) ? 0 : one(4) ? 7000 : 40;
            tell("calls take up to " + std::to_string(slow_) + " ms");
            break;
        case 4:
            unit.silent = one(2);
            tell(unit.silent ? "silent" : "not silent");
            break;
        case 5:
            for (int i = draw(8); i >= 0; --i) {
                const auto at = static_cast<std::size_t>(i);
                unit.response.frequency[at] = draw(3) ? draw(20000) : -draw(2000000000);
                unit.response.level[at] = draw(3) ? -draw(60) : draw(2000000000);
            }
            bench_->output(6) = 11583;
            bench_->output(7) = 18;
            tell("the end of a response");
            break;
        default:
            // More frames than anything else, because runs wait for them.
            for (int i = draw(20); i >= 0; --i) unit.frames.push_back(one(3) ? 0 : 1);
            tell("frames");
            break;
    }
}

void Life::changeFiles() {
    constexpr int kReasons[] = {ENOSPC, EACCES, EIO, EROFS, EDQUOT, ENAMETOOLONG};
    if (damage_->neededIsDamaged()) damage_->mendNeeded();
    if (one(3)) {
        if (bench_->disk.told) {
            bench_->disk.told = nullptr;
            tell("the disk is well");
        } else {
            const int reason = kReasons[draw(std::size(kReasons))];
            const int share = 1 + draw(12);
            bench_->disk.told = [this, reason, share](base::RewriteStep, base::StepMoment moment) {
                return moment == base::StepMoment::Before && one(share) ? reason : 0;
            };
            tell("the disk fails with " + std::to_string(reason));
        }
        return;
    }
    tell(damage_->damageOne());
}

void Life::changeClock() {
    display::Date& date = bench_->desktop.date;
    constexpr int kYears[] = {1970, 2000, 2024, 2026, 2027, 2099};
    date.year = kYears[draw(std::size(kYears))];
    date.month = 1 + draw(12);
    date.day = 1 + draw(28);
    date.weekday = draw(7);
    date.hour = draw(24);
    date.minute = draw(60);
    tell("the clock is set");
}

void Life::passTime() {
    constexpr int kTimes[] = {0, 0, 1, 7, 30, 30, 60, 100, 250, 500, 700, 1500};
    const int time = one(200) ? 61000 : kTimes[draw(std::size(kTimes))];
    bench_->wait(time);
}

void Life::stopRuns() {
    display::Hand& hand = bench_->hand;
    Forms& forms = bench_->forms;
    hand.click(forms.formSpectrumAnalizer.butPause_BW);
    hand.click(forms.formSpectrumAnalizer.butPause);
    if (forms.formBandSCanner.Command3D1.caption == "Stop")
        hand.click(forms.formBandSCanner.Command3D1);
    if (forms.formD1a.Command3D1.caption == "Stop") hand.click(forms.formD1a.Command3D1);
}

void Life::inCall(const char* call) {
    ++callsOfStep_;
    if (slow_ > 0 && one(20)) bench_->desktop.elapse(std::chrono::milliseconds(draw(slow_)));
    if (callsOfStep_ > kLongRun && callsOfStep_ % 16 == 0) stopRuns();
    if (callsOfStep_ == kEndlessRun) bench_->desktop.wantEnd();
    if (depth_ > 0 || !one(150)) return;
    ++depth_;
    tell(std::string("inside ") + call);
    if (one(4)) {
        changeReadings();
    } else {
        actSomewhere();
    }
    if (one(3000)) bench_->desktop.wantEnd();
    --depth_;
}

void Life::inBox() {
    lastBox_ = bench_->desktop.boxes.back().text;
    tell("box: " + lastBox_.substr(0, 80));
    if (depth_ > 3) return;
    ++depth_;
    if (one(3)) actSomewhere();
    bench_->desktop.elapse(std::chrono::milliseconds(draw(400)));
    bench_->desktop.queue().runBoxPass();
    --depth_;
}

void Life::forgetWhatIsShown() {
    display::HeadlessDesktop& desktop = bench_->desktop;
    desktop.journal.clear();
    desktop.boxes.clear();
    desktop.copiedPictures.clear();
    desktop.saveQuestions.clear();
    desktop.openQuestions.clear();
    desktop.writtenFiles.clear();
    desktop.printed.clear();
    desktop.printedSheets.clear();
    desktop.printedPages.clear();
    desktop.pdfPages.clear();
    auto& calls = bench_->called.calls;
    constexpr std::ptrdiff_t kKept = 100;
    if (std::ssize(calls) > 20 * kKept) calls.erase(calls.begin(), calls.end() - kKept);
    while (desktop.boxAnswers.size() < 4) desktop.boxAnswers.emplace_back(one(3) ? "Cancel" : "ok");
    while (desktop.saveAnswers.size() < 2)
        desktop.saveAnswers.emplace_back(one(3) ? "" : "/nowhere/a.png");
    if (one(40)) desktop.writeFault = one(2) ? "" : "/nowhere/a.png cannot be written: No space";
    if (one(40)) desktop.printerFault = one(2) ? "" : "No printer answers.";
}

std::string Life::oddTexts() const {
    for (const display::Form* form : bench_->desktop.forms()) {
        if (!form->visible) continue;
        for (const display::Control* control : form->controls()) {
            const auto* label = dynamic_cast<const display::Label*>(control);
            if (label && saysNoNumber(label->caption.get()))
                return form->name() + "." + label->name() + " says " +
                       std::string(label->caption.get());
        }
    }
    return {};
}

std::string Life::faultOfStep() {
    if (bench_->desktop.ended()) return faultOfTheEnd();
    if (callsOfStep_ >= kEndlessRun) return "a run never ends";
    if (bench_->desktop.queue().running()) return "a run still filters what passes";
    const auto& panels = bench_->program.rack;
    const auto enabled =
        std::ranges::count_if(panels, [](auto* panel) { return panel->enabled.get(); });
    if (enabled != 0 && enabled != std::ssize(panels)) return "the rack is half enabled";
    return steps_ % 8 == 0 ? oddTexts() : std::string();
}

std::string Life::faultOfTheEnd() {
    const std::string fault = faultOfEnd(*bench_);
    if (fault.empty()) return {};
    // A damaged file that the program needs must end it with a sentence, without a further call.
    if (damage_->neededIsDamaged()) {
        for (const char* name :
             {"hm-16.dat", "Hm-res.dat", "halden.dat", "normal.hm", "scan.dat"}) {
            if (lastBox_.find(name) != std::string::npos) return {};
        }
    }
    return "it ended out of order: " + fault + "; the last box: " + lastBox_;
}

void Life::setRight() {
    damage_->mendNeeded();
    bench_->disk.told = nullptr;
    ScriptedDriver& unit = bench_->called;
    unit.hardwareVersion = unit_.later;
    unit.superResults.clear();
    unit.superLevel = 55;
    unit.silent = false;
    slow_ = 0;
    bench_->output(6) = bench_->output(7) = 1;
}

std::string Life::faultWhenAllIsClosed() {
    setRight();
    bench_->desktop.duringBox = nullptr;
    bench_->called.inCall = [this](const char*) {
        ++callsOfStep_;
        if (callsOfStep_ > kLongRun && callsOfStep_ % 16 == 0) stopRuns();
    };
    callsOfStep_ = 0;
    const std::string open = closeAll(*bench_);
    bench_->called.inCall = nullptr;
    std::string fault;
    if (bench_->desktop.ended()) {
        fault = faultOfTheEnd();
    } else if (!open.empty()) {
        fault = "these stay open:" + open;
    } else {
        fault = faultOf(*bench_);
    }
    for (const std::string& name : bench_->scratch.names()) {
        if (name.starts_with(".hmonitor-")) fault += "; left over: " + name;
    }
    return fault;
}

void Life::step() {
    ++steps_;
    callsOfStep_ = 0;
    const int what = draw(100);
    if (what < 66) {
        actSomewhere();
    } else if (what < 76) {
        changeReadings();
    } else if (what < 90) {
        changeUnit();
    } else if (what < 94) {
        changeFiles();
    } else if (what < 95) {
        changeClock();
    } else if (what < 96 && one(30)) {
        tell("the end is wanted");
        bench_->desktop.wantEnd();
    }
    passTime();
}

std::string Life::live(int steps) {
    try {
        for (int i = 0; i < steps && !bench_->desktop.ended(); ++i) {
            forgetWhatIsShown();
            step();
            if (std::string fault = faultOfStep(); !fault.empty()) return fault;
        }
        return bench_->desktop.ended() ? std::string() : faultWhenAllIsClosed();
    } catch (const std::exception& thrown) {
        return std::string("thrown: ") + thrown.what();
    }
}

}  // namespace hmonitor::test
