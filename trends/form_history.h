// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "display/controls/buttons.h"
#include "display/controls/lists.h"
#include "display/controls/plot.h"
#include "display/family.h"
#include "program/program_form.h"
#include "trends/figure_choice.h"
#include "trends/history_view.h"

namespace hmonitor {

/// The window that looks back: up to four figures over one time axis, from ten years to ten
/// seconds. It only looks on. It takes no unit, disables nothing and stays open while an analysis
/// runs; what it shows it reads from the store beside the program's thread.
class Form_History final : public ProgramForm {
 public:
    explicit Form_History(Program& program);

    /// Shows it, in front if it stands already.
    void open();
    void closeRequested() override { Command_Close.press(); }
    void activated() override;

    display::Panel Faceplate{*this, "Faceplate"};
    display::Panel TitleStrip{*this, "TitleStrip"};  ///< moves the window
    display::Label Label_Title{*this, "Label_Title"};
    display::Family<display::Key, 5> Command_Span{*this, "Command_Span"};
    display::Key Command_Now{*this, "Command_Now"};
    display::ComboBox Combo_Station{*this, "Combo_Station"};
    display::Label Label_Known{*this, "Label_Known"};

    display::Label Label_Figures{*this, "Label_Figures"};
    display::Family<display::Shape, figures::kCount> Swatch{*this, "Swatch"};
    display::Family<display::CheckBox, figures::kCount> Check_Figure{*this, "Check_Figure"};
    display::Label Label_Sets{*this, "Label_Sets"};
    display::Family<display::Key, FigureChoice::kSets> Command_Set{*this, "Command_Set"};
    display::Key Command_Keep{*this, "Command_Keep"};

    display::Family<display::Panel, FigureChoice::kMost> Well{*this, "Well"};
    display::Family<display::Plot, FigureChoice::kMost> Plot_Figure{*this, "Plot_Figure"};

    /// How good each part of the shown time was, under its axis.
    static constexpr std::size_t kParts = 24;
    display::Family<display::Shape, kParts> Part{*this, "Part"};

    display::Label Label_Time{*this, "Label_Time"};
    display::Label Label_Date{*this, "Label_Date"};
    display::Label Label_Between{*this, "Label_Between"};  ///< from one mark to the other
    display::Family<display::Label, FigureChoice::kMost> Label_Value{*this, "Label_Value"};
    display::Family<display::Label, FigureChoice::kMost> Label_Band{*this, "Label_Band"};
    display::Family<display::Label, FigureChoice::kMost> Label_Step{*this, "Label_Step"};
    static constexpr std::size_t kCauses = 6;
    display::Family<display::Shape, kCauses> CauseSwatch{*this, "CauseSwatch"};
    display::Family<display::Label, kCauses> Label_Cause{*this, "Label_Cause"};

    display::Key Command_Export{*this, "Command_Export"};
    display::Key Command_Again{*this, "Command_Again"};  ///< the same day last week
    display::Label Label_Hint{*this, "Label_Hint"};
    display::Key Command_Close{*this, "Command_Close"};

    display::Timer TimerLive{*this, "TimerLive"};

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    // Layout.
    void layOutHead();
    void layOutFigures();
    void layOutPlots();
    void layOutValues();
    void layOutFoot();
    /// Gives the plots that are shown the room there is.
    void sharePlots();

    // What the hand does.
    void bindKeys();
    void bindPlots();
    void chooseFigure(std::size_t figure, bool on);
    void pressSet(std::size_t which);
    void showSpan(std::int64_t ms);
    void showNow();
    void chooseStation();
    void compareAgain();
    void saveAll();
    void close();

    // The shown time.
    std::int64_t nowMs() const;
    std::int64_t spanMs() const { return toMs_ - fromMs_; }
    void look(std::int64_t fromMs, std::int64_t toMs);
    void lookedBy(const display::Plot& plot);
    void markedBy(const display::Plot& plot);
    void tick();
    void setReach();

    // What is read of the store.
    void ask();
    HistoryQuestion question() const;
    std::int64_t weekBefore() const;
    void take(HistoryView view);

    // What is shown.
    void showAll();
    void showChecks();
    void showStations();
    void showPlot(std::size_t which);
    void showNote();
    void showValues();
    void showValue(std::size_t which, std::optional<std::size_t> column);
    void showCauses();
    void showKnown();
    void showParts();
    display::Colour partColour(std::int64_t fromMs, std::int64_t toMs) const;
    std::optional<std::size_t> columnOfMark(std::size_t mark) const;
    std::optional<std::size_t> latestColumn() const;
    std::optional<std::size_t> shownColumn() const;
    const history::Band* bandAt(std::size_t which, std::optional<std::size_t> column) const;
    std::string bandWords(std::size_t which, const history::Band& band) const;
    std::string tellAt(std::size_t which, double ms) const;
    std::string read(std::size_t which) const;
    display::NumberTable table() const;
    std::string_view in(const display::Words& words) const { return wordsIn(language, words); }

    // What is kept from one time to the next.
    void recallChoice();
    void keepChoice();

    FigureChoice choice_;
    HistoryView view_;
    bool answered_ = false;  ///< the store was read at least once
    bool asking_ = false;
    bool askAgain_ = false;  ///< something changed while it was read
    std::int64_t askedMs_ = 0;
    std::int64_t fromMs_ = 0, toMs_ = 0;
    bool following_ = true;  ///< the right edge is now
    bool again_ = false;     ///< last week's curve is wanted
    bool keeping_ = false;   ///< the next set key keeps what is shown
    bool syncing_ = false;   ///< controls are set by the program
    int station_ = 0;        ///< kHz; 0 for the tuned one
    /// Its corner, in twips of the screen.
    struct Place {
        float left = 0;
        float top = 0;
        bool operator==(const Place&) const = default;
    };
    Place where() const { return {left, top}; }
    void takePlace();
    bool placed_ = false;             ///< was shown before; from then on the user decides its place
    Place given_;                     ///< where it stood when it was shown first
    std::optional<Place> keptPlace_;  ///< where the user put it
    std::string keptText_;
};

}  // namespace hmonitor
