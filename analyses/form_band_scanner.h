// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "analyses/scan_file.h"
#include "analyses/scan_legend.h"
#include "analyses/scanned_channels.h"
#include "core/program_form.h"
#include "display/chart.h"

namespace hmonitor {

/// The band scanner: levels of all channels from 87 to 108 MHz as bars in rows of one MHz. A unit
/// that sweeps hands over frames of two MHz, any other is tuned to channel after channel.
class Form_BandSCanner final : public ProgramForm {
 public:
    explicit Form_BandSCanner(Program& program);

    void closeRequested() override;

    /// The choice of channels that stands.
    const ScanOption& option() const;

    display::Panel Faceplate{*this, "Faceplate"};
    display::Panel SSPanel1{*this, "SSPanel1"};  ///< moves the window
    display::Label Label9{*this, "Label9"};
    display::Label Refused{*this, "Refused"};  ///< at which channel the unit refused
    display::Panel ChartWell{*this, "ChartWell"};
    Numbered<display::Label, 8> Scale{*this, "Label"};  ///< the level scale, from the top
    display::Label Label12{*this, "Label12"};
    display::Panel ChartView{*this, "ChartView"};  ///< the part of the chart that is seen
    display::Chart Graph1{*this, "Graph1"};
    display::ScrollBar HScroll1{*this, "HScroll1"};
    display::Label Label_Channels{*this, "Label_Channels"};
    ScanLegend legend{*this};
    display::Option Option_All{*this, "Option_All"};
    display::Option Option_Pares{*this, "Option_Pares"};
    display::Option Option_Impares{*this, "Option_Impares"};
    display::Option Option_250Khz{*this, "Option_250Khz"};
    display::Key Command3D1{*this, "Command3D1"};      ///< new run, stop
    display::Key SSCommand1{*this, "SSCommand1"};      ///< print page
    display::Key CommandClose{*this, "CommandClose"};  ///< stop, close

    display::Timer Timer1{*this, "Timer1"};  ///< takes the frames of a sweep

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    enum class Fill { Done, Broken };

    void layOutChart();
    void layOutFoot();

    ScanSpacing spacing() const;
    bool unitSweeps() const;
    display::Chart& twin();
    /// A level, and the channel that it was measured on.
    void write(const ScanCell& cell, std::string_view text, const ScannedChannels::Cell& from);
    std::int32_t shownLevel(float level) const;
    void showStored(const ScanFile& file);
    void nameStored(const ScanFile& file);
    void store(const ScanFile& file, const ScanChannels& channels);
    void showOption(const ScanOption& option);
    void showScrolled();
    std::string tellCell(int row, int column) const;
    std::string tellStrongest() const;
    std::string channelText(const ScannedChannels::Cell& cell) const;

    /// In one line: at which frequency, in units of 100 kHz, the unit refused to go on.
    void tellRefused(float tenths);

    void chooseOption();
    void fillFromSweep(const ScanOption& option);
    void fillOneByOne(const ScanOption& option);
    void Command3D1_Click();
    void clearChart();
    void runOneByOne();
    Fill measureChannels(ScanFile& file);
    void startSweep();
    /// Asks for the frame from there (hundredths of a MHz) up to the limit.
    void askForFrame(int low);
    void takeFrame();
    void drawSwept(ScanFile& file);
    void goOnSweeping();
    void finishSweep(const ScanFile& file);
    void returnUnit();
    void CommandClose_Click();
    void close();
    void datePage();

    float hardwareVersion_ = 0;
    double levelOffset_ = 0;  ///< dB, of runs that are measured one by one
    int sweepLow_ = 0;        ///< hundredths of a MHz, start of the frame that is awaited
    int sweepLimit_ = 0;      ///< hundredths of a MHz, end of the part swept so far
    int sweepStepKhz_ = 0;
    bool stop_ = false;      ///< asks a run that is measured one by one to end; the unit was halted
    bool busy_ = false;      ///< a tick works on a frame
    bool unitAway_ = false;  ///< the unit has left normal measuring and was not returned
    bool filling_ = false;   ///< an option fills the chart, channel by channel
    bool closeAfterFill_ = false;

    ScannedChannels scanned_;
    // What this program itself has stored last: its file cannot tell its channels. Outlives the
    // window's loads.
    std::string storedBytes_;
    ScanChannels storedChannels_;
};

}  // namespace hmonitor
