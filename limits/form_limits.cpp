// SPDX-License-Identifier: GPL-3.0-or-later
#include "limits/form_limits.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>

#include "base/number_text.h"
#include "program/limit_marks.h"
#include "program/make_form.h"
#include "program/report_fault.h"

namespace hmonitor {

namespace {

constexpr std::size_t kNewFigure = 0;

/// "deviation_peak", or with a number where a rule has that name already.
std::string freeName(const LimitsFile& limits, const std::string& wanted) {
    std::string name = wanted;
    for (int number = 2;
         std::ranges::find(limits.rules, name, &LimitRule::name) != limits.rules.end(); ++number) {
        name = wanted + " " + base::wholeText(number).str();
    }
    return name;
}

char32_t pointForComma(char32_t typed) {
    return typed == U',' ? U'.' : typed;
}

}  // namespace

FormLimits::FormLimits(Program& itsProgram) : ProgramForm(itsProgram, "FormLimits") {
    Rules.onClick = [this] {
        if (!filling_) showRule();
    };
    KeyNew.onClick = [this] { addRule(); };
    KeyDelete.onClick = [this] { deleteRule(); };
    KeyUsual.onClick = [this] {
        limits_ = LimitsFile::usual();
        choose(0);
    };
    KeyAccept.onClick = [this] { accept(); };
    KeyCancel.onClick = [this] { close(); };
    bindFields();
}

void FormLimits::bindFields() {
    FigureBox.onClick = [this] { takeOtherBounds(); };
    KindBox.onClick = [this] { takeOtherBounds(); };
    for (display::TextField* field : {&Lowest, &Highest, &Holds, &Release}) {
        field->onTyped = pointForComma;
        field->onChange = [this] { takeEntry(); };
    }
    Warning.onClick = [this] { takeEntry(); };
    Alarm.onClick = [this] { takeEntry(); };
}

void FormLimits::onLoad() {
    limits_ = program.limits.limits();
    for (const figures::Figure& figure : figures::all()) {
        FigureBox.list.add(wordsIn(language, {figure.name.spanish, figure.name.english}));
    }
    for (const display::Words& kind :
         {display::Words{"más de", "over"}, {"menos de", "below"}, {"fuera de", "outside"}}) {
        KindBox.list.add(wordsIn(language, kind));
    }
    choose(0);
    if (const auto& fault = program.limits.fault()) {
        say({fault->spanish.c_str(), fault->english.c_str()});
    }
}

LimitRule* FormLimits::chosen() {
    const int row = Rules.list.selected();
    const bool any = row >= 0 && row < static_cast<int>(limits_.rules.size());
    return any ? &limits_.rules[static_cast<std::size_t>(row)] : nullptr;
}

void FormLimits::list(int select) {
    filling_ = true;
    Rules.list.clear();
    for (const LimitRule& rule : limits_.rules) Rules.list.add(limitCondition(rule, language));
    const int last = static_cast<int>(limits_.rules.size()) - 1;
    Rules.select(std::min(select, last));
    filling_ = false;
}

void FormLimits::choose(int row) {
    list(row);
    showRule();
}

void FormLimits::showRule() {
    const LimitRule* rule = chosen();
    faulty_ = false;
    say({});
    if (rule) showEntry(entryOf(*rule));
    enableFields();
}

void FormLimits::showEntry(const LimitEntry& entry) {
    filling_ = true;
    FigureBox.select(static_cast<int>(entry.figure - figures::all().data()));
    KindBox.select(static_cast<int>(entry.kind));
    Lowest.text = entry.lowest;
    Highest.text = entry.highest;
    Holds.text = entry.holdsFor;
    Release.text = entry.release;
    (entry.severity == LimitSeverity::Alarm ? Alarm : Warning).choose();
    for (display::Label& unit : BoundUnit) unit.caption = entry.figure->unit;
    filling_ = false;
}

void FormLimits::enableFields() {
    const bool any = chosen() != nullptr;
    const LimitKind kind = any ? entered().kind : LimitKind::Above;
    for (display::Control* control : std::initializer_list<display::Control*>{
             &FigureBox, &KindBox, &Holds, &Release, &Warning, &Alarm, &KeyDelete}) {
        control->enabled = any;
    }
    Lowest.enabled = any && kind != LimitKind::Above;
    Highest.enabled = any && kind != LimitKind::Below;
    KeyNew.enabled = limits_.rules.size() < LimitsFile::kMostRules;
}

LimitEntry FormLimits::entered() const {
    const auto figure = static_cast<std::size_t>(std::max(FigureBox.list.selected(), 0));
    return {&figures::all()[figure],
            static_cast<LimitKind>(std::max(KindBox.list.selected(), 0)),
            Lowest.text.get(),
            Highest.text.get(),
            Holds.text.get(),
            Release.text.get(),
            Alarm.chosen ? LimitSeverity::Alarm : LimitSeverity::Warning};
}

void FormLimits::takeOtherBounds() {
    if (filling_ || !chosen()) return;
    LimitEntry entry = entered();
    offerBounds(entry);
    showEntry(entry);
    takeEntry();
    enableFields();
}

void FormLimits::takeEntry() {
    LimitRule* const rule = chosen();
    if (filling_ || !rule) return;
    const LimitEntry entry = entered();
    const display::Words fault = faultOf(entry);
    faulty_ = *fault.english != 0;
    say(fault);
    if (faulty_) return;
    *rule = ruleOf(entry, std::move(*rule));
    const int row = Rules.list.selected();
    if (Rules.list.rows()[static_cast<std::size_t>(row)] == limitCondition(*rule, language)) return;
    // The fields stay as they are being typed.
    list(row);
}

void FormLimits::say(const display::Words& words) {
    Note.caption = wordsIn(language, words);
}

void FormLimits::addRule() {
    const figures::Figure& figure = figures::all()[kNewFigure];
    LimitRule rule;
    rule.name = freeName(limits_, figure.key);
    rule.figure = &figure;
    rule.good = figure.good;
    limits_.rules.push_back(std::move(rule));
    choose(static_cast<int>(limits_.rules.size()) - 1);
    FigureBox.takeFocus();
}

void FormLimits::deleteRule() {
    if (!chosen()) return;
    const int row = Rules.list.selected();
    limits_.rules.erase(limits_.rules.begin() + row);
    choose(row);
}

void FormLimits::accept() {
    // The note says what is wrong.
    if (faulty_) return;
    if (const auto fault = program.limits.store(program.files, limits_)) {
        warn(desktop(), fault);
        return;
    }
    close();
}

void FormLimits::close() {
    program.enableRack();
    unload();
}

template MadeForm makeForm(Program&, Slot<FormLimits>&);

}  // namespace hmonitor
