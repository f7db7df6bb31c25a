// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "display/controls/pictures.h"
#include "panels/quality/quality_figures.h"
#include "program/limit_marks.h"
#include "program/program_form.h"

namespace hmonitor {

/// The quality panel of the rack: pilot, noise, distortion, separation and RDS. It has no timer of
/// its own; the modulation panel refreshes it ten times a second.
class Form_C final : public ProgramForm {
 public:
    explicit Form_C(Program& program);

    void Command1();   ///< labels and separation digits
    void Command4();   ///< 19 kHz error digits
    void Command6();   ///< pilot level digits
    void Command11();  ///< noise digits
    void Command13();  ///< distortion digits

    // Each writes one digit, at a place counted from the left. Some codes blank a place.
    void Command2(int place, int digit);      ///< separation, places 1 to 4
    void Command3(int place, int digit = 0);  ///< 19 kHz error; 22 blanks place 1, 33 place 2
    void Command5(int place, int digit = 0);  ///< pilot level; 11 blanks place 1, 22 place 2
    void Command10(int place, int digit);     ///< noise, places 1 to 4
    void Command12(int place, int digit);     ///< distortion, places 1 to 3

    display::Panel Faceplate{*this, "Faceplate"};
    display::Label Heading{*this, "Heading"};

    display::Label Label_ErrorFrecuencia19Khz{*this, "Label_ErrorFrecuencia19Khz"};
    display::Panel Error19Well{*this, "Error19Well"};
    display::Label Label_19K_FrecError{*this, "Label_19K_FrecError"};
    display::Label Error19Unit{*this, "Error19Unit"};
    display::Panel Error19Digits{*this, "Error19Digits"};
    display::Line Line148{*this, "Line148"};  ///< what makes it a plus
    display::Line Line147{*this, "Line147"};  ///< the minus
    std::array<SegmentDigit, 3> error19{
        SegmentDigit{*this, "Line", upFrom(36)},
        SegmentDigit{*this, "Line", {43, 44, 112, 113, 114, 115, 116}},
        SegmentDigit{*this, "Line", upFrom(139)}};
    display::Shape Error19Point{*this, "Error19Point"};

    display::Label Label_NivelPiloto{*this, "Label_NivelPiloto"};
    display::Panel PilotWell{*this, "PilotWell"};
    display::Label Label_PilotLevel{*this, "Label_PilotLevel"};
    display::Label PilotUnit{*this, "PilotUnit"};
    display::Panel PilotDigits{*this, "PilotDigits"};
    std::array<SegmentDigit, 3> pilot{SegmentDigit{*this, "Line", upFrom(117)},
                                      SegmentDigit{*this, "Line", upFrom(124)},
                                      SegmentDigit{*this, "Line", upFrom(131)}};
    display::Shape PilotPoint{*this, "PilotPoint"};

    display::Label Label_PisoDeRuido{*this, "Label_PisoDeRuido"};
    display::Picture Image_Reset1{*this, "Image_Reset1"};
    display::Panel NoiseWell{*this, "NoiseWell"};
    display::Label Label_LeftNoise{*this, "Label_LeftNoise"};
    display::Label Label_RightNoise{*this, "Label_RightNoise"};
    display::Label NoiseUnit{*this, "NoiseUnit"};
    display::Panel NoiseDigits{*this, "NoiseDigits"};
    std::array<SegmentDigit, 4> noise{
        SegmentDigit{*this, "Line", upFrom(61)}, SegmentDigit{*this, "Line", downFrom(74)},
        SegmentDigit{*this, "Line", downFrom(88)}, SegmentDigit{*this, "Line", upFrom(75)}};

    display::Label Label_DistorsionArmonica{*this, "Label_DistorsionArmonica"};
    display::Picture Image2{*this, "Image2"};
    display::Panel DistortionWell{*this, "DistortionWell"};
    display::Label Label_HarmonicDistortion{*this, "Label_HarmonicDistortion"};
    display::Label DistortionUnit{*this, "DistortionUnit"};
    display::Panel DistortionDigits{*this, "DistortionDigits"};
    std::array<SegmentDigit, 3> distortion{SegmentDigit{*this, "Line", downFrom(104)},
                                           SegmentDigit{*this, "Line", upFrom(91)},
                                           SegmentDigit{*this, "Line", downFrom(111)}};
    display::Shape DistortionPoint{*this, "DistortionPoint"};

    display::Label Label_SeparacionDeCanales{*this, "Label_SeparacionDeCanales"};
    display::Picture Image3{*this, "Image3"};
    display::Panel SeparationWell{*this, "SeparationWell"};
    display::Label Label_ChannelSep_Left{*this, "Label_ChannelSep_Left"};
    display::Label Label_ChannelSep_Right{*this, "Label_ChannelSep_Right"};
    display::Label SeparationUnit{*this, "SeparationUnit"};
    display::Panel SeparationDigits{*this, "SeparationDigits"};
    std::array<SegmentDigit, 4> separation{
        SegmentDigit{*this, "Line", upFrom(1)}, SegmentDigit{*this, "Line", downFrom(14)},
        SegmentDigit{*this, "Line", upFrom(15)}, SegmentDigit{*this, "Line", downFrom(28)}};

    display::Label Label_57KhzError{*this, "Label_57KhzError"};
    display::Panel Error57Well{*this, "Error57Well"};
    display::Label Label_57K_FrecError{*this, "Label_57K_FrecError"};
    display::Label Error57Unit{*this, "Error57Unit"};

    display::Label Label_NivelRDS{*this, "Label_NivelRDS"};
    display::Panel RdsWell{*this, "RdsWell"};
    display::Label Label_RDSLevel{*this, "Label_RDSLevel"};
    display::Label RdsUnit{*this, "RdsUnit"};

    // The station on the loudspeakers: visible only while a library plays it.
    display::Key SoundDown{*this, "SoundDown"};
    display::Panel SoundWell{*this, "SoundWell"};
    display::Label SoundVolume{*this, "SoundVolume"};
    display::Key SoundUp{*this, "SoundUp"};
    display::Key SoundMute{*this, "SoundMute"};

    LimitMarks limits{*this};
    PanelSign sign{*this, 12};

    // The panel's state lives for the run.
    float RdsLevel = 0;
    float Error57 = 0;
    float FrozenError19 = 0;
    float FrozenPilot = 0;
    display::Colour SegmentGreen{0x00ff00};

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    void layOutColumns();
    void layOutDigits();
    void layOutResets();
    void bindReadings();
    void layOutSound();
    void bindSound();
    void showSound();
    void reset(int code);
    void readFrozen();
    void showRds();
    void showSeparation(const Readings& readings);
};

}  // namespace hmonitor
