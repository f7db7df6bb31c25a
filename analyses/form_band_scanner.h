// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analyses/scan_channels.h"
#include "analyses/scan_file.h"
#include "analyses/scan_legend.h"
#include "analyses/scanned_channels.h"
#include "analyses/station_list.h"
#include "display/chart.h"
#include "display/controls/lists.h"
#include "display/controls/scroll_bar.h"
#include "display/family.h"
#include "display/number_table.h"
#include "program/frame_run.h"
#include "program/point_run.h"
#include "program/program_form.h"

namespace hmonitor {

/// The band scanner: levels of all channels from 87 to 108 MHz as bars in rows of one MHz. A unit
/// that sweeps hands over frames of two MHz, any other is tuned to channel after channel.
class Form_BandSCanner final : public ProgramForm, private LevelSink {
 public:
    explicit Form_BandSCanner(Program& program);

    void closeRequested() override;

    /// The current choice of channels.
    const ScanOption& option() const;
    /// The levels that the chart shows, of this window and of its page.
    display::NumberTable numbersShown() const;

    display::Panel Faceplate{*this, "Faceplate"};
    display::Panel SSPanel1{*this, "SSPanel1"};  ///< moves the window
    display::Label Label9{*this, "Label9"};
    display::Label Refused{*this, "Refused"};  ///< at which channel the unit refused
    display::Label Station{*this, "Station"};
    display::Panel ChartWell{*this, "ChartWell"};
    display::Family<display::Label, 8> Scale{*this, "Label#",
                                             1};  ///< the level scale, from the top
    display::Label Label12{*this, "Label12"};
    display::Panel ChartView{*this, "ChartView"};  ///< the part of the chart that is seen
    display::Chart Graph1{*this, "Graph1"};
    display::ScrollBar HScroll1{*this, "HScroll1"};
    display::Key KeyWhole{*this, "KeyWhole"};  ///< the whole band in one view, and back
    display::Label Label_Channels{*this, "Label_Channels"};
    ScanLegend legend{*this};
    display::Line EarlierStroke{*this, "EarlierStroke"};
    display::Label EarlierWords{*this, "EarlierWords"};
    display::Option Option_All{*this, "Option_All"};
    display::Option Option_Pares{*this, "Option_Pares"};
    display::Option Option_Impares{*this, "Option_Impares"};
    display::Option Option_250Khz{*this, "Option_250Khz"};
    display::Key Command3D1{*this, "Command3D1"};      ///< new run, stop
    display::Key SSCommand1{*this, "SSCommand1"};      ///< print page
    display::Key CommandClose{*this, "CommandClose"};  ///< stop, close

    // The channels as a list, beside the chart.
    display::Key KeyByFrequency{*this, "KeyByFrequency"};
    display::Key KeyByLevel{*this, "KeyByLevel"};
    display::Label ListName{*this, "ListName"};
    display::ListBox Stations{*this, "Stations"};
    display::Label ListNote{*this, "ListNote"};  ///< why the list is empty
    display::Key KeyTune{*this, "KeyTune"};

    display::Timer Timer1{*this, "Timer1"};  ///< takes the frames of a sweep

 protected:
    void layOut() override;
    void onLoad() override;
    void onUnload() override;

 private:
    /// What the window is doing: nothing, a run, measuring the channels of an option, or that and
    /// closing the window afterwards.
    enum class Run { None, Points, Sweep, Fill, FillThenClose };
    static constexpr display::Words kCloseTip{"Cierra la ventana", "Closes the window"};

    void layOutChart();
    void layOutFoot();
    void layOutList();
    void placeChart();
    void bindStations();

    ScanSpacing spacing() const;
    display::Chart& twin();
    /// A level, and the channel that it was measured on.
    void write(const ScanCell& cell, std::string_view text, const ScannedChannels::Cell& from);
    std::int32_t shownLevel(float level) const;
    void showStored(const ScanFile& file);
    void nameStored(const ScanFile& file);
    void store(const ScanFile& file, const ScanChannels& channels);
    void showOption(const ScanOption& option);
    void showScrolled();
    struct ShownLevel {
        ScanCell cell;
        ScannedChannels::Cell channel;
        double level;
    };
    /// The cells that hold a level, in the order of the table.
    std::vector<ShownLevel> shownLevels() const;
    std::string tellCell(int row, int column) const;
    std::string tellStrongest() const;
    std::string channelText(const ScannedChannels::Cell& cell) const;

    void tellStation();
    void readPresets();
    void listStations();
    void orderBy(StationList::Order order);
    void showList();
    void pointAt(int hundredths);
    void scrollTo(const ScanCell& cell);
    void chooseRow();
    void pickLevel(std::size_t row);
    void tuneTo(int hundredths);
    void showWhole(bool whole);
    void keepScan();
    void showEarlier(const ScanChannels& channels, int columns);
    void hideEarlier();

    /// One line that says at which frequency, in units of 100 kHz, the unit refused to go on.
    void tellRefused(float tenths);

    void chooseOption();
    void fillOneByOne();
    enum class CloseKey { Ok, Wait };
    void closeKeySays(CloseKey what);
    void Command3D1_Click();
    void clearChart();
    void runOneByOne();
    void startSweep();
    void goOnSweeping();
    void endRun();
    void CommandClose_Click();
    void openPage();

    // Receives the levels of a series of channels and puts them into the chart's cells and into the
    // file.
    void beginRow(const ScanChannels& channels, int startColumn, int columns);
    int first() const override { return 0; }
    int last() const override { return channels_.count() - 1; }
    float frequency(int index) const override { return channels_.tenths(index); }
    void roundBegins() override;
    float before(int index, float lastLevel) override;
    void take(int index, float level) override;
    void refused(int index) override;
    void roundEnds() override;

    float hardwareVersion_ = 0;
    double levelOffset_ = 0;  ///< dB, of runs that are measured one by one
    int sweepLimit_ = 0;      ///< hundredths of a MHz, end of the part swept so far
    int sweepStepKhz_ = 0;
    Run run_ = Run::None;
    ScanChannels channels_;
    ScanWalk walk_{0, 1};
    ScanCell cell_;
    ScanFile file_;
    UnitLease lease_{program, *this};
    PointRun points_{program, lease_, {&CommandClose, &HScroll1}};
    FrameRun frames_{program, Timer1, *this};

    ScannedChannels scanned_;
    StationList list_;
    StationList::Order order_ = StationList::Order::Frequency;
    int chosen_ = 0;                      ///< hundredths of a MHz; 0: no channel is chosen
    bool whole_ = false;                  ///< the whole band is in view
    std::optional<display::Date> runAt_;  ///< when the shown run began; none is known
    /// The levels of the last whole run, by channel in hundredths of a MHz.
    std::map<int, int> lastScan_;
    // The channels of the file that this program stored last: the file itself does not tell them.
    // Kept when the window is unloaded.
    std::string storedBytes_;
    ScanChannels storedChannels_;
};

}  // namespace hmonitor
