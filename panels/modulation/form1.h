// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/file_result.h"
#include "core/int16.h"
#include "display/controls/pictures.h"
#include "display/family.h"
#include "panels/modulation/carrier_deviation.h"
#include "panels/modulation/modulation_hold.h"
#include "panels/modulation/multipath_meter.h"
#include "program/limit_marks.h"
#include "program/program_form.h"

namespace hmonitor {

/// The modulation panel, the top of the rack: modulation bar and figures, field, multipath,
/// carrier deviation, and the keys of the rack.
class Form1 final : public ProgramForm {
 public:
    explicit Form1(Program& program);

    void ActualizarModulacion();           ///< moves the modulation bar; every heartbeat
    void ActualizarModulacion_Displays();  ///< numeric readouts; ten times a second
    void DrawMultyPath();                  ///< multipath meter
    void carrier1();                       ///< over-range lamp of the carrier deviation
    void RefrescoIntensidadDeCampo();      ///< field in tenths
    void respolee();                       ///< reads a finished frequency response run
    void Command9();                       ///< folds the rack
    /// The power key's steps for an end that nobody at the keyboard asked for: no box is shown.
    void endAsked();
    /// What such an end may lose is stored already when it is in the air.
    void saveAsked();

    void resized() override;
    void closeRequested() override;
    /// The keys 1 to 9 and 0 tune memories 1 to 10, with Shift 1 to 6 memories 11 to 16.
    void digitPressed(display::DigitKey key) override;
    bool raisesResizeAtShow() const override { return RackPhase == kStarting; }

    // The background.
    display::Panel Faceplate{*this, "Faceplate"};
    display::Picture Picture3{*this, "Picture3"};  ///< the handle of the rack
    display::Picture Brand{*this, "Brand"};
    display::Label Label1{*this, "Label1"};  ///< the other brand's word
    display::Label Product{*this, "Product"};
    display::Label Heading{*this, "Heading"};

    // The modulation bar. The panel's unit makes a percent 48 units wide.
    display::Label BarCaption{*this, "BarCaption"};
    display::Panel BarWell{*this, "BarWell"};
    display::Shape BarFill{*this, "BarFill"};
    display::Label Label10{*this, "Label10"};  ///< the leading end of the bar
    display::Family<display::Line, 81> BarTick{*this, "BarTick"};
    display::Family<display::Label, 17> BarNumber{*this, "BarNumber"};
    display::Picture Picture1{*this, "Picture1"};
    display::Picture Picture2{*this, "Picture2"};
    display::Line Line1{*this, "Line1"};  ///< the mark

    // Multipath.
    display::Label Label_Multipath{*this, "Label_Multipath"};
    display::Panel MultipathWell{*this, "MultipathWell"};
    display::Family<display::Picture, 5> multypath{*this, "multypath"};
    display::Label multygood{*this, "multygood"};
    display::Label multybad{*this, "multybad"};

    // Keys.
    display::Picture Image_Average{*this, "Image_Average"};
    display::Picture Image6{*this, "Image6"};  ///< peak detector
    display::Picture SSbAMmode{*this, "SSbAMmode"};
    display::Picture Image9{*this, "Image9"};  ///< print
    display::Picture KeyPdf{*this, "KeyPdf"};  ///< the same page as a file
    display::Picture Image7{*this, "Image7"};  ///< fold
    display::Picture Image_Power{*this, "Image_Power"};

    // Readouts.
    display::Label Label_NivelDeModulacion{*this, "Label_NivelDeModulacion"};
    display::Panel PercentWell{*this, "PercentWell"};
    display::Label Label_FMod_Porcentaje{*this, "Label_FMod_Porcentaje"};
    display::Label PercentUnit{*this, "PercentUnit"};
    display::Label Label_NivelModulacionFrecuencia{*this, "Label_NivelModulacionFrecuencia"};
    display::Panel DeviationWell{*this, "DeviationWell"};
    display::Label Label_FMod{*this, "Label_FMod"};
    display::Label DeviationUnit{*this, "DeviationUnit"};
    display::Label Label_PeakPerMinute{*this, "Label_PeakPerMinute"};
    display::Panel PeaksWell{*this, "PeaksWell"};
    display::Label Label_PicosPorMinuto{*this, "Label_PicosPorMinuto"};
    display::Label PeaksUnit{*this, "PeaksUnit"};
    display::Label Label_IntensidadDeCampo{*this, "Label_IntensidadDeCampo"};
    display::Panel FieldWell{*this, "FieldWell"};
    display::Label Label_FieldIntensity{*this, "Label_FieldIntensity"};
    display::Label FieldUnit{*this, "FieldUnit"};
    display::Label Label_DesviacionDePortadora{*this, "Label_DesviacionDePortadora"};
    display::Panel CarrierWell{*this, "CarrierWell"};
    display::Label Label_CarrierDeviation{*this, "Label_CarrierDeviation"};
    display::Label CarrierUnit{*this, "CarrierUnit"};
    display::Panel LampWell{*this, "LampWell"};
    display::Label Label_OVER{*this, "Label_OVER"};
    display::Label Label_Bad_CarrierDev{*this, "Label_Bad_CarrierDev"};

    display::Label Trouble{*this, "Trouble"};  ///< why nothing is stored, as long as it holds
    LimitMarks limits{*this};
    PanelSign sign{*this, 8};

    display::Timer Timer1{*this, "Timer1"};  ///< fall of the peak, relative power
    display::Timer Timer4{*this, "Timer4"};  ///< slow readouts and the quality panel
    display::Timer Timer5{*this, "Timer5"};  ///< reads the defaults of the analyses panel

    // The panel's state, which lives for the whole run.
    static constexpr int kStarting = 2;  ///< the next resize stacks the rack and starts it
    static constexpr int kFolding = 1;   ///< the next resize is the fold itself
    static constexpr int kFolded = 0;    ///< the next resize unfolds
    int RackPhase = kStarting;
    double PowerHold = 115;  ///< needle position of the relative power: 115 less the figure
    double Pi = 0;
    int RetuneOnMode = 1;
    ModulationBar bar;
    ModulationHold held;
    MultipathMeter meter;
    CarrierDeviation carrier;
    CarrierOver over;
    float FieldTenths = 0;             ///< tenths of a dB, at most 999
    std::array<int, 3> FieldDigits{};  ///< hundreds, tens, units; -1 for a cleared place
    SmallText FirstTick;               ///< "1" after the first tick of Timer4
    Int16 DecayTick = 0;
    display::Time troubleSeen{0};  ///< when it was last looked whether a trouble still holds

    /// Writes the current preset into the panel settings, as the power key does.
    std::optional<FileFault> storePreset() const;

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    void layOutHead();
    void layOutBar();
    void layOutMultipath();
    void layOutKeys();
    void layOutReadouts();
    void bindKeys();
    void bindReadings();
    void offerDemoMode();
    void readPresetAndCorrection();
    void takeCorrection(double correction);
    void refreshDefaults();
    void showCard();
    void stackRack();
    void showVersion();
    void powerOff();
    std::vector<const display::Form*> wholeRack() const;
    void printRack();
    void saveRack();
    void selectDetector(std::string_view line6);
    void takeSettings();
    void showRelativePower();
    void showBar(float percent);
    void showCarrierDeviation(float sample);
    void showMultipathFigure(int figure);
    void showMultipathBad();
    void tickPeak();
    void tickReadouts();
    void showSigns();
    void showTrouble();
    std::string troubleText() const;
    std::string noticeText() const;
    float correctedField(float field) const;
    int multipathLit() const;
};

}  // namespace hmonitor
