// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "display/controls/pictures.h"
#include "display/controls/text_field.h"
#include "program/program_form.h"

namespace hmonitor {

class Class1;
struct ShownSpectrum;

/// The analyses panel of the rack: keys that open the long analyses, and small displays of the
/// tuned station.
class Form_D final : public ProgramForm {
 public:
    explicit Form_D(Program& program);
    ~Form_D() override;

    void respo();     ///< shows the stored response of the tuned frequency
    void resborra();  ///< shows the empty response
    void spect();     ///< shows the stored spectrum of the tuned frequency

    display::Panel Faceplate{*this, "Faceplate"};
    display::Label Heading{*this, "Heading"};

    // Keys that open the analyses.
    display::Picture Image1{*this, "Image1"};  ///< spectrum analyzer
    display::Picture Image2{*this, "Image2"};  ///< band scanner
    display::Picture Image6{*this, "Image6"};  ///< 3D analyzer
    display::Picture Image3{*this, "Image3"};  ///< frequency response
    display::Picture Image5{*this, "Image5"};  ///< the response switch
    display::Label Label_ResponseSwitch{*this, "Label_ResponseSwitch"};
    display::Picture Image4{*this, "Image4"};          ///< on-air performance
    display::Picture KeyHistory{*this, "KeyHistory"};  ///< what was recorded
    display::Picture KeyLimits{*this, "KeyLimits"};    ///< limits of the figures
    display::Label Label_SpectrumAnalyzer{*this, "Label_SpectrumAnalyzer"};
    display::Label Label_bandScanner{*this, "Label_bandScanner"};
    display::Label Label_SpectralZoom{*this, "Label_SpectralZoom"};
    display::Label Label_FrequencyResponse{*this, "Label_FrequencyResponse"};
    display::Label Label_OnAirPerformance{*this, "Label_OnAirPerformance"};

    // The last channel spectrum of the tuned frequency.
    display::Panel GraphWell{*this, "GraphWell"};
    display::PictureBox PictureGraph1{*this, "PictureGraph1"};

    // On-air figures.
    display::Label Label_RadiatedPower{*this, "Label_RadiatedPower"};
    display::Label Label_MaxModulation{*this, "Label_MaxModulation"};
    display::Label Label_3secSilence{*this, "Label_3secSilence"};
    display::Label Label_InvertedPhase{*this, "Label_InvertedPhase"};
    display::TextField Text1{*this, "Text1"};  ///< radiated power
    display::TextField Text2{*this, "Text2"};  ///< highest modulation
    display::TextField Text3{*this, "Text3"};  ///< silence
    display::TextField Text4{*this, "Text4"};  ///< inverted phase

    PanelSign sign{*this, 0};

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    void layOutDoors();
    void layOutFigures();
    void bindDoors();
    void makeGraph();
    void proveScanFile();
    void turnSwitch();
    void switchOff();
    void arm(const Readings& atArming);

    std::unique_ptr<Class1> graph_;
    std::unique_ptr<ShownSpectrum> shownSpectrum_;
};

}  // namespace hmonitor
