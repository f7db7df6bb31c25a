// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "analyzer/density_colors.h"
#include "analyzer/measurement.h"
#include "analyzer/sparse_labels.h"
#include "core/int16.h"
#include "display/controls/lists.h"
#include "display/controls/pictures.h"
#include "display/controls/scroll_bar.h"
#include "display/family.h"
#include "display/number_table.h"
#include "program/frame_run.h"
#include "program/point_run.h"
#include "program/program_form.h"

namespace hmonitor {

class Class1;

/// The spectrum analyzer: it measures the band sweep after sweep and shows how often each level was
/// seen at each frequency as a map, or the last sweep as bars. Sessions are kept in files.
class frmSpectrumAnalizer final : public ProgramForm, private LevelSink {
 public:
    explicit frmSpectrumAnalizer(Program& program);
    ~frmSpectrumAnalizer() override;

    void closeRequested() override;

    // The session.
    void ListSessions();
    void SelectCurrentSession();
    bool LoadSession(std::string_view fileName);
    void SaveSession(std::string_view fileName);
    void ShowSessionInfo();
    std::string UniqueSessionName(std::string_view name) const { return folder.uniqueName(name); }
    void ClearDensity();
    /// The session's name, the damage of its file, and the unit that measures it.
    void showCondition();

    // The scan.
    void butStart_Click();
    void runScanOld();  ///< point by point; holds the thread until the scan ends
    void ToggleScan();
    void StopScan();

    // The views.
    void ShowSpectrum_3D();
    void UpdateSpectrogram();  ///< draws into the graph of ShowSpectrum_3D
    void ShowSpectrum_SpectralZoom(std::string_view fileName);
    void EscalaClean(Int16& columns, Int16& step);  ///< empty: a hook of the graphs

    Measurement measurement;
    SessionFolder folder;

    display::Panel Faceplate{*this, "Faceplate"};
    display::Label LabelMode{*this, "LabelMode"};  ///< names the view
    display::ComboBox cboCurrentMeasurementFile{*this, "cboCurrentMeasurementFile"};
    display::Picture picAddMeasurement{*this, "picAddMeasurement"};
    display::Picture picEditMeasurement{*this, "picEditMeasurement"};
    display::Picture picDelMeasurement{*this, "picDelMeasurement"};
    display::Label Label_Unit{*this, "Label_Unit"};  ///< unit, step and field correction

    display::Panel Panel3D1{*this, "Panel3D1"};
    display::PictureBox Picture3d{*this, "Picture3d"};      ///< the density map
    display::PictureBox PictureZoom{*this, "PictureZoom"};  ///< the last sweep
    /// The level scale: 100 at the top, then each 10 dB down to 30.
    display::Family<display::Label, 8> levels{*this,
                                              {"Label100", "Label090", "Label080", "Label070",
                                               "Label060", "Label050", "Label040", "Label030"}};
    display::ScrollBar HScroll1{*this, "HScroll1"};

    display::Key butSpecMode{*this, "butSpecMode"};  ///< the name of the view that the key opens
    display::Key btnDetail_Lower{*this, "btnDetail_Lower"};
    display::Key btnDetail_Higher{*this, "btnDetail_Higher"};
    display::Picture butStart{*this, "butStart"};
    display::Picture butStart_BW{*this, "butStart_BW"};
    display::Picture butPause{*this, "butPause"};
    display::Picture butPause_BW{*this, "butPause_BW"};
    display::Key SSCommand1{*this, "SSCommand1"};  ///< printed page

    display::Label FrameInfo{*this, "FrameInfo"};
    display::Label MeasurementNameLabel{*this, "MeasurementNameLabel"};
    display::Label MeasurementNameField{*this, "MeasurementNameField"};
    display::Label MeasurementCommentLabel{*this, "MeasurementCommentLabel"};
    display::Label MeasurementCommentField{*this, "MeasurementCommentField"};
    display::Label MeasurementStartFreqLabel{*this, "MeasurementStartFreqLabel"};
    display::Label MeasurementStartFreqField{*this, "MeasurementStartFreqField"};
    display::Label MeasurementStopFreqLabel{*this, "MeasurementStopFreqLabel"};
    display::Label MeasurementStopFreqField{*this, "MeasurementStopFreqField"};
    display::Label MeasurementAquisitonsLabel{*this, "MeasurementAquisitonsLabel"};
    display::Label MeasurementAquisitonsField{*this, "MeasurementAquisitonsField"};
    display::Label MeasurementTimeStampLabel{*this, "MeasurementTimeStampLabel"};
    display::Label MeasurementTimeStampField{*this, "MeasurementTimeStampField"};
    display::Label MeasurementLatLabel{*this, "MeasurementLatLabel"};
    display::Label MeasurementLatField{*this, "MeasurementLatField"};
    display::Label MeasurementLonLabel{*this, "MeasurementLonLabel"};
    display::Label MeasurementLonField{*this, "MeasurementLonField"};
    display::Label MeasurementAltLabel{*this, "MeasurementAltLabel"};
    display::Label MeasurementAltField{*this, "MeasurementAltField"};

    display::Label FrameStatus{*this, "FrameStatus"};
    display::Label Label_State{*this, "Label_State"};
    display::Label Label_Damaged{*this, "Label_Damaged"};
    display::Label Label_NotCounted{*this, "Label_NotCounted"};  ///< for a unit without sweeps

    display::Label Frame_Probabilidad{*this, "Frame_Probabilidad"};
    display::Family<display::Shape, 5> Swatch{*this, "Swatch"};
    display::Family<display::Label, 5> SwatchShare{*this, "SwatchShare"};
    display::Family<display::Shape, 5> Ramp{*this, "Ramp"};  ///< the whole table
    display::Label Label_Baja{*this, "Label_Baja"};
    display::Label Label_Alta{*this, "Label_Alta"};

    display::Timer Timer1{*this, "Timer1"};  ///< takes frames

    // Reset by loading.
    float HardwareVersion = 0;
    float ScanStartMHz = 0;
    float ScanStopMHz = 0;
    Int16 StepKHz;
    Int16 FrameBusy;  ///< -1 while a frame is processed

 protected:
    void layOut() override;
    void onLoad() override;
    void onUnload() override;

 private:
    enum class Running { No, Yes };
    /// The text height of the labels at the bars' axes.
    static constexpr float kZoomPoints = 6;

    void layOutHead();
    void layOutViews();
    void layOutKeys();
    void layOutInfo();
    void layOutLegend();
    void bindKeys();

    void loadRoutine();
    void chooseSession();
    void addSession();
    void editSession();
    void deleteSession();
    void showCount();
    void tellOnce(const std::optional<FileFault>& fault);

    bool zoomOnShow() const;
    std::string_view mode3D() const;
    std::string_view modeZoom() const;
    void showRunning(Running running);
    void blink();
    void changeCountColour();
    void tellRefused(int index);
    void butSpecMode_Click();
    void showZoomView();
    void openPage();
    void changeWidth(float times);
    void scrollPictures();

    // Says where a scan measures, and receives its levels.
    int first() const override { return sweep_.range().first(); }
    int last() const override { return sweep_.range().last(); }
    float frequency(int index) const override;
    void roundBegins() override;
    void take(int index, float raw) override;
    void refused(int index) override;
    void roundEnds() override;
    /// Prepares an empty graph for the bars of the next sweep.
    void openBars();
    void butPause_Click();
    void endScan();
    void saveWhatWasNot();
    void close();
    float fieldCorrection() const;
    display::NumberTable tableOf(std::string_view title) const;
    display::NumberTable numbersOfMap();
    display::NumberTable numbersOfBars();

    UnitLease lease_{program, *this};
    FrameRun frames_{program, Timer1, *this};
    PointRun points_{
        program,
        lease_,
        {&butPause, &butPause_BW, &btnDetail_Lower, &btnDetail_Higher, &HScroll1, &butSpecMode}};
    SweepCounter sweep_{measurement};
    SparseLabels zoomCanvas_{PictureZoom.drawing, kZoomPoints};
    std::unique_ptr<Class1> bars_;  ///< true while a sweep is drawn
    /// The level of each bar in dBuV, by the column it is drawn in.
    struct Bar {
        double mhz = 0;
        int level = 0;
    };
    std::map<int, Bar> shownBars_;
    Int16 shownColumns_ = 0;    ///< of the graph that they stand in
    Class1* map_ = nullptr;     ///< true while ShowSpectrum_3D draws
    bool toldFault_ = false;    ///< a failed save was reported in this scan
    bool unsaved_ = false;      ///< the last save of the session failed
    bool unsavedText_ = false;  ///< the last save of a frame's sweep failed
    bool closeAfterRun_ = false;
};

}  // namespace hmonitor
