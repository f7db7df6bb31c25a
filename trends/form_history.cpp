// SPDX-License-Identifier: GPL-3.0-or-later
#include "trends/form_history.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "core/files.h"
#include "core/numbers.h"
#include "display/drawing_export.h"
#include "history/civil_day.h"
#include "program/make_form.h"
#include "program/rack_place.h"
#include "program/report_fault.h"
#include "program/station_line.h"
#include "program/tuner.h"
#include "trends/history_table.h"
#include "trends/history_words.h"

namespace hmonitor {

using namespace display;

namespace {

constexpr const char* kChoiceFile = "history.set";
constexpr std::array<std::int64_t, 5> kSpans = {kHourMs, kDayMs, 7 * kDayMs, 30 * kDayMs,
                                                365 * kDayMs};
/// An edge that is as near to now as this part of the range goes on with it.
constexpr std::int64_t kNearNow = 200;
constexpr std::int64_t kSlowestAsk = 60'000;

}  // namespace

Form_History::Form_History(Program& itsProgram) : ProgramForm(itsProgram, "Form_History") {
    looksOn = true;
    bindKeys();
    bindPlots();
    bindHandle(TitleStrip.onMouseDown, TitleStrip.onMouseMove, {this});
    TimerLive.onTick = [this] { tick(); };
}

void Form_History::bindKeys() {
    for (std::size_t i = 0; i < kSpans.size(); ++i)
        Command_Span[i].onClick = [this, i] { showSpan(kSpans.at(i)); };
    Command_Now.onClick = [this] { showNow(); };
    Combo_Station.onClick = [this] { chooseStation(); };
    for (std::size_t i = 0; i < figures::kCount; ++i)
        Check_Figure[i].onClick = [this, i] { chooseFigure(i, Check_Figure[i].checked); };
    for (std::size_t i = 0; i < FigureChoice::kSets; ++i)
        Command_Set[i].onClick = [this, i] { pressSet(i); };
    Command_Keep.onClick = [this] {
        keeping_ = !keeping_;
        showChecks();
    };
    Command_Export.onClick = [this] { saveAll(); };
    Command_Again.onClick = [this] { compareAgain(); };
    Command_Close.onClick = [this] { close(); };
}

void Form_History::bindPlots() {
    for (std::size_t i = 0; i < FigureChoice::kMost; ++i) {
        Plot& plot = Plot_Figure[i];
        plot.onLook = [this, &plot] { lookedBy(plot); };
        plot.onMark = [this, &plot] { markedBy(plot); };
        plot.tell = [this, i](double ms) { return tellAt(i, ms); };
        plot.reading = [this, i] { return read(i); };
        plot.numbers = [this] { return table(); };
    }
}

void Form_History::onLoad() {
    recallChoice();
    answered_ = false;
    following_ = true;
    const std::int64_t now = nowMs();
    look(now - kDayMs, now);
    showAll();
}

void Form_History::activated() {
    if (!placed_) takePlace();
    placed_ = true;
    TimerLive.enabled = true;
    Plot_Figure[0].takeFocus();
    tick();
    ask();
}

/// Where the user put it at another time, else over the rack; on the screen as it is now.
void Form_History::takePlace() {
    placeOverRack(*this, program);
    if (keptPlace_) {
        left = keptPlace_->left;
        top = keptPlace_->top;
    }
    const Box room = desktop().room(*this);
    if (room.width > 0) {
        left = std::max(std::min(left.get(), room.right() - width), room.left);
        top = std::max(std::min(top.get(), room.bottom() - height), room.top);
    }
    given_ = where();
}

void Form_History::open() {
    if (visible) hide();
    show();
}

void Form_History::close() {
    TimerLive.enabled = false;
    keepChoice();
    hide();
}

// What the hand does.

void Form_History::chooseFigure(std::size_t figure, bool on) {
    if (syncing_) return;
    choice_.choose(figure, on);
    showAll();
    ask();
}

void Form_History::pressSet(std::size_t which) {
    if (keeping_) {
        choice_.keep(which);
        keepChoice();
    } else {
        choice_.recall(which);
    }
    keeping_ = false;
    showAll();
    ask();
}

void Form_History::showSpan(std::int64_t ms) {
    const std::int64_t now = nowMs();
    if (following_) {
        look(now - ms, now);
    } else {
        const auto mark = Plot_Figure[0].mark(0);
        const bool seen =
            mark && *mark >= static_cast<double>(fromMs_) && *mark <= static_cast<double>(toMs_);
        const std::int64_t middle =
            seen ? static_cast<std::int64_t>(*mark) : fromMs_ + spanMs() / 2;
        const std::int64_t to = std::min(middle + ms / 2, now);
        look(to - ms, to);
    }
    showAll();
    ask();
}

void Form_History::showNow() {
    const std::int64_t now = nowMs();
    look(now - spanMs(), now);
    showAll();
    ask();
}

void Form_History::chooseStation() {
    const int row = Combo_Station.list.selected();
    if (syncing_ || row < 0 || row >= static_cast<int>(view_.stations.size())) return;
    station_ = view_.stations[static_cast<std::size_t>(row)];
    ask();
}

void Form_History::compareAgain() {
    again_ = !again_;
    Command_Again.lit = again_;
    ask();
}

void Form_History::saveAll() {
    // A dialog would hold the run that holds the thread.
    if (desktop().queue().running()) {
        desktop().beep();
        return;
    }
    saveDrawing(Plot_Figure[0]);
}

// The shown time.

std::int64_t Form_History::nowMs() const {
    return desktop().wallTime().utc.time_since_epoch().count();
}

void Form_History::look(std::int64_t fromMs, std::int64_t toMs) {
    fromMs_ = fromMs;
    toMs_ = toMs;
    following_ = nowMs() - toMs <= spanMs() / kNearNow;
    for (Plot& plot : Plot_Figure)
        plot.x =
            PlotAxis{AxisKind::Moments, static_cast<double>(fromMs), static_cast<double>(toMs)};
    setReach();
    for (std::size_t i = 0; i < kSpans.size(); ++i) Command_Span[i].lit = spanMs() == kSpans.at(i);
    Command_Now.lit = following_;
}

void Form_History::setReach() {
    const std::int64_t now = nowMs();
    const std::int64_t first = view_.firstMs.value_or(now - kDayMs);
    for (Plot& plot : Plot_Figure) {
        plot.reach = Plot::Reach{static_cast<double>(now - kLongestView), static_cast<double>(now),
                                 static_cast<double>(kShortestView),
                                 static_cast<double>(kLongestView), static_cast<double>(first)};
    }
}

void Form_History::lookedBy(const Plot& plot) {
    look(static_cast<std::int64_t>(plot.x.get().lowest),
         static_cast<std::int64_t>(plot.x.get().highest));
    showAll();
    ask();
}

void Form_History::markedBy(const Plot& plot) {
    for (Plot& other : Plot_Figure) {
        for (std::size_t i = 0; i < Plot::kMarks; ++i) other.mark(i, plot.mark(i));
    }
    showValues();
}

/// Goes on with the time while the right edge is now.
void Form_History::tick() {
    const std::int64_t now = nowMs();
    if (!following_) {
        setReach();
        return;
    }
    look(now - spanMs(), now);
    const std::int64_t each = askedRange(fromMs_, toMs_).eachMs;
    if (now - askedMs_ >= std::min(each, kSlowestAsk) || now < askedMs_) ask();
}

// What is read of the store.

HistoryQuestion Form_History::question() const {
    constexpr double kKhzPerTenth = 100;
    HistoryQuestion question;
    question.folder = desktop().folder() / "history";
    question.station = station_;
    question.tuned = program.tuner ? toWhole(program.tuner->TunedFreq * kKhzPerTenth) : 0;
    question.figures = choice_.shown();
    question.range = askedRange(fromMs_, toMs_);
    question.againMs = again_ ? weekBefore() : 0;
    question.nowMs = nowMs();
    return question;
}

/// Seven days by the clock on the wall: an hour more or less across a change of the clock.
std::int64_t Form_History::weekBefore() const {
    const std::int64_t t = toMs_ / 1000;
    const std::int64_t week = 7 * kDayMs / 1000;
    return (week - history::zoneOffset(t) + history::zoneOffset(t - week)) * 1000;
}

void Form_History::ask() {
    if (asking_) {
        askAgain_ = true;
        return;
    }
    asking_ = true;
    askAgain_ = false;
    askedMs_ = nowMs();
    desktop().work([asked = question()] { return readHistory(asked); },
                   [this](HistoryView view) {
                       asking_ = false;
                       take(std::move(view));
                       if (askAgain_ && visible) ask();
                   });
}

void Form_History::take(HistoryView view) {
    if (!loaded()) return;
    view_ = std::move(view);
    answered_ = true;
    setReach();
    showAll();
}

NumberTable Form_History::table() const {
    constexpr double kKhzPerMhz = 1000;
    const bool tuned = view_.station == view_.asked.tuned;
    const std::string day = localStamp(fromMs_).substr(0, 10);
    const std::string station =
        view_.station == 0 ? day
                           : stationLine(tuned ? StationState.RadioName.view() : std::string_view(),
                                         view_.station / kKhzPerMhz, day);
    return historyTable(view_, fromMs_, toMs_, station, language);
}

// What is kept from one time to the next.

void Form_History::recallChoice() {
    const auto text = program.files.read(kChoiceFile);
    if (!program.files.exists(kChoiceFile) || !text) return;
    choice_.read(*text);
    keptText_ = *text;
    const std::size_t place = text->find("place ");
    if (place == std::string::npos) return;
    const std::string_view numbers = std::string_view(*text).substr(place + 6);
    const std::string_view second = numbers.substr(std::min(numbers.find(' '), numbers.size()));
    keptPlace_ = Place{static_cast<float>(valueOf(numbers)), static_cast<float>(valueOf(second))};
}

void Form_History::keepChoice() {
    if (placed_ && where() != given_) keptPlace_ = where();
    std::string text = choice_.text();
    if (keptPlace_) {
        text += "place " + shortText(keptPlace_->left).str() + " " +
                shortText(keptPlace_->top).str() + "\r\n";
    }
    // What was never chosen otherwise needs no file.
    if (text == (keptText_.empty() ? FigureChoice().text() : keptText_)) return;
    keptText_ = text;
    warn(desktop(), program.files.rewrite(kChoiceFile, text));
}

template MadeForm makeForm(Program&, Slot<Form_History>&);

}  // namespace hmonitor
