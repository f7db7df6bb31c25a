// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/int16.h"
#include "display/controls/pictures.h"
#include "display/controls/scroll_bar.h"
#include "display/family.h"
#include "panels/audio/held_figures.h"
#include "panels/audio/level_bar.h"
#include "panels/audio/phase_vector.h"
#include "program/limit_marks.h"
#include "program/program_form.h"
#include "program/tuner.h"
#include "program/tuning_panels.h"

namespace hmonitor {

/// The audio and stereo panel of the rack: level bars, phase vector, relative power, and every
/// tuning of the instrument.
class Form_B final : public ProgramForm {
 public:
    explicit Form_B(Program& program);
    ~Form_B() override;

    void InicioForm();         ///< selects the stored preset, which starts the rack
    void Command1();           ///< shows the station name
    void Command4(int digit);  ///< draws the units digit of the memory number
    void Command5();           ///< shows the memory number
    void Command9();           ///< loads the memory and tunes
    void Command11();          ///< takes the memory of the editor and tunes
    void Command13();          ///< shows the frequency
    /// Tunes as by a memory key, or as by a hand on the bar.
    void tuneTo(const WantedStation& station);
    void tuneMemory(int memory);            ///< 1 to 16; an empty one does nothing
    void cambfre();                         ///< retunes the frequency of the tuning bar
    void RefrescoFase();                    ///< phase digits
    void RefrescoPotencia(Int16 figure);    ///< relative power digits
    void Command_DibujoLCD_Potencia();      ///< draws one of them
    void DibujoPotencia(double powerHold);  ///< turns the relative power needle
    void GuardoModo_LR();                   ///< stores the audio mode L and R
    void GuardoModo_LmasR_LmenosR();        ///< stores the audio mode L+R and L-R

    display::Panel Faceplate{*this, "Faceplate"};
    display::Label Heading{*this, "Heading"};

    // Level bars: element i is at 5 + 45 i units.
    display::Label Label_AudioLevel{*this, "Label_AudioLevel"};
    display::Panel LevelWell{*this, "LevelWell"};
    display::Label LetterL{*this, "LetterL"};
    display::Label LetterR{*this, "LetterR"};
    display::Panel LevelBars{*this, "LevelBars"};
    display::Family<display::Line, 62> LineAudL{*this, "LineAudL"};
    display::Family<display::Line, 62> LineAudR{*this, "LineAudR"};
    display::Family<display::Label, 7> LevelNumber{*this, "LevelNumber"};
    display::Label PromL{*this, "PromL"};
    display::Label PromR{*this, "PromR"};

    // Relative power.
    display::Label Label_AudioProcessingRelativePower{*this, "Label_AudioProcessingRelativePower"};
    display::Panel PowerWell{*this, "PowerWell"};
    display::Panel PowerDial{*this, "PowerDial"};
    display::Family<display::Line, 21> PowerTick{*this, "PowerTick"};
    display::Family<display::Label, 6> PowerNumber{*this, "PowerNumber"};
    display::Line LinePo{*this, "LinePo"};
    display::Panel PowerDigits{*this, "PowerDigits"};
    SegmentDigit powerTens{*this, "Line", upFrom(30)};
    SegmentDigit powerUnits{*this, "Line", downFrom(43)};

    // Phase vector.
    display::Label Label_StereoPhaseVector{*this, "Label_StereoPhaseVector"};
    display::Panel PhaseWell{*this, "PhaseWell"};
    display::Panel PhaseDial{*this, "PhaseDial"};
    display::Family<display::Line, 37> PhaseTick{*this, "PhaseTick"};
    display::Family<display::Label, 7> PhaseNumber{*this, "PhaseNumber"};
    // The oldest trail line lies at the bottom.
    display::Line Line6{*this, "Line6"};
    display::Line Line5{*this, "Line5"};
    display::Line Line4{*this, "Line4"};
    display::Line Line3{*this, "Line3"};
    display::Line Line2{*this, "Line2"};
    display::Line Line1{*this, "Line1"};
    display::Panel PhaseDigits{*this, "PhaseDigits"};
    display::Line Line120{*this, "Line120"};
    display::Line Line121{*this, "Line121"};
    SegmentDigit phaseTens{*this, "Line", upFrom(124)};
    SegmentDigit phaseUnits{*this, "Line", upFrom(131)};
    display::Panel PhaseReadout{*this, "PhaseReadout"};
    display::Label Label_PhaseVector{*this, "Label_PhaseVector"};

    // Tuning.
    display::Panel FrequencyWell{*this, "FrequencyWell"};
    display::Label Label_FrecRadio{*this, "Label_FrecRadio"};
    display::Label Label_RadioName{*this, "Label_RadioName"};
    display::Label FrequencyUnit{*this, "FrequencyUnit"};
    display::Panel MemoryWell{*this, "MemoryWell"};
    display::Line Line46{*this, "Line46"};
    display::Line Line45{*this, "Line45"};
    SegmentDigit memoryUnits{*this, "Line", upFrom(22)};
    display::Label Label_MemoryNumber{*this, "Label_MemoryNumber"};
    display::Key SSCommand2{*this, "SSCommand2"};  ///< previous memory
    display::Key SSCommand1{*this, "SSCommand1"};  ///< next memory
    display::Picture Image3{*this, "Image3"};      ///< memory editor
    display::Picture Image4{*this, "Image4"};      ///< tuner keypad
    display::Picture Image1{*this, "Image1"};      ///< mode L and R
    display::Picture Image2{*this, "Image2"};      ///< mode L+R and L-R
    display::ScrollBar HScroll1{*this, "HScroll1"};

    LimitMarks limits{*this};
    PanelSign sign{*this, 6};

    display::Timer Timer2{*this, "Timer2"};  ///< heartbeat
    display::Timer Timer3{*this, "Timer3"};  ///< fall of the peak marks

    // The panel's state, which lives for the whole run. The state of tuning is the tuner's.
    double& TunedFreq = program.tuner->TunedFreq;
    int& ManualTune = program.tuner->ManualTune;
    int& PanelStarted = program.tuner->PanelStarted;
    int& ResponseSeen = program.tuner->ResponseSeen;
    SmallText& ButtonTune = program.tuner->ButtonTune;
    double Pi = 0;
    int MemoryNumber = 1;
    SmallText MemoryState = "cero";  ///< "cero" while the panel is on no memory
    SmallText RadioName;
    int OffMemory = 0;
    Int16 DemoTick = 0;
    Int16 WindowTicks = 0;
    display::Colour SegmentOnColour{0x2f2fff};
    LevelWindow WindowMaxL, WindowMaxR;
    LevelBar BarL, BarR;
    float PhaseNow = 0;  ///< degrees, clamped to 0 to 90
    float PhaseRaw = 0;  ///< degrees, as the unit said
    PhaseTrail trail;
    PhaseHold phaseHold;
    PowerFigure power;
    int PowerDigit = 0;
    int PowerPlace = 0;

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    class RackPanels;
    enum class Step { Next, Previous };

    void layOutLevels();
    void layOutPower();
    void layOutPhase();
    void layOutTuning();
    void bindReadings();
    struct Channel;
    void heartbeat();
    void takeLevel(const Channel& channel, float level);
    void handOffModulation(float peak);
    void showPhase(float phase);
    void dropPeakMarks();
    void drawNeedle(display::Line& needle, float phase);
    void stepMemory(Step step);
    bool memoriesAllEmpty() const;
    void tuneWhereTheBarStands();
    void tuneBarTo(int bar);
    void placeLevelElements();
    void leaveMemory();
    void openEditor();
    void openKeypad();
    void showFrequency(double frequency);

    static std::unique_ptr<TuningPanels> rackPanels(Program& program);
    std::unique_ptr<TuningPanels> panels_;
};

}  // namespace hmonitor
