// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "core/int16.h"
#include "display/controls/pictures.h"
#include "display/number_table.h"
#include "program/frame_run.h"
#include "program/point_run.h"
#include "program/program_form.h"
#include "spectrum/bandwidth_curve.h"

namespace hmonitor {

/// The modulation bandwidth of the station: the highest levels at six frequencies up to 150 kHz
/// above the carrier, as a curve in percent of the carrier.
class FormD1a final : public ProgramForm, private LevelSink {
 public:
    explicit FormD1a(Program& program);

    void GraphClean();                  ///< draws the empty graph without its grid
    void GraphRepaint();                ///< draws the grid
    void GraficoMuestras(Int16 count);  ///< shows the count of samples
    /// Draws a straight ramp over 25 kHz from the end of the last ramp to y percent at x kHz.
    void Grafico(Int16 x, float y);
    /// Continues the curve to x kHz (0 starts it) and y percent. y is set to its distance from the
    /// top: the caller's variable changes.
    void GraphLine(Int16 x, float& y);

    void closeRequested() override;

    display::Panel Faceplate{*this, "Faceplate"};
    display::Panel SSPanel1{*this, "SSPanel1"};  ///< the handle of the window
    display::Label Heading{*this, "Heading"};
    display::Label Refused{*this, "Refused"};  ///< at which frequency the unit refused
    display::Label Station{*this, "Station"};
    display::Panel Sheet1{*this, "Sheet1"};
    display::PictureBox Picture1{*this, "Picture1"};
    display::Key Command3D1{*this, "Command3D1"};  ///< runs and stops
    display::Key Command3D2{*this, "Command3D2"};  ///< closes
    display::Key Command1{*this, "Command1"};      ///< test pattern
    display::Key SSCommand1{*this, "SSCommand1"};  ///< printed page

    display::Timer Timer1{*this, "Timer1"};  ///< takes frames or points

    // The state of the run, reset by loading.
    std::array<float, 8> PeakPercent{};  ///< highest percent at 0, 25 ... 175 kHz
    std::array<float, 7> Levels{};       ///< the reference, then the last levels at 25 ... 150 kHz
    Int16 SampleCount;
    Int16 FrameBusy;  ///< -1 while a tick is measuring
    float HardwareVersion = 0;

 protected:
    void layOut() override;
    void onLoad() override;
    void onUnload() override;

 private:
    /// Stopped, but a tick is still measuring and returns the unit at its end.
    enum class Run { None, Going, Stopped };

    void takeGeometry();
    void runOrStop();
    void start(float carrier);
    void announceStart();
    bool takeReference(float carrier);
    void startSampling();
    void stop();
    void giveUnitBack();
    void closeIfAsked();
    void tick();
    // Takes a sample: the levels at 25 ... 150 kHz above the carrier, from a frame or point by
    // point.
    int first() const override { return 1; }
    int last() const override;
    float frequency(int index) const override;
    void roundBegins() override;
    float before(int index, float lastLevel) override;
    void take(int index, float level) override;
    void refused(int index) override;
    void roundEnds() override;
    void endSample();
    bool holdPeaks();
    void drawCurve();
    void drawTestPattern();
    void openPage();
    display::NumberTable numbersShown() const;
    /// The height of a value, in percent from the top, on the canvas.
    float rowOf(float fromTop) const;
    void fillUnder(float x, float row);
    void printAt(float x, float y, std::string_view text);
    SmallText timeOfDay() const;

    // The graph on Picture1.
    int YPixels = 0;    ///< canvas units for a percent
    float XPixels = 0;  ///< canvas units for a kHz
    int BarHalf = 0;
    int BaseY = 0;
    int LastX = 0;
    int LastY = 0;
    float rampFrom_ = 0;
    Run run_ = Run::None;
    bool closeAfterRun_ = false;
    /// The numbers of the graph: percent at kHz from the carrier.
    struct Shown {
        int kHz;
        float percent;
    };
    std::vector<Shown> shown_;
    UnitLease lease_{program, *this};
    PointRun points_{program, lease_, {&Command3D1}};
    FrameRun frames_{program, Timer1, *this};
};

}  // namespace hmonitor
