// SPDX-License-Identifier: GPL-3.0-or-later
// The tool tips of every figure of the rack, from the registry of figures.
#include <gtest/gtest.h>

#include <string>

#include "base/figures.h"
#include "program/figure_tips.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using display::Language;

struct FigureTips : testing::Test {
    FigureTips() { bench.start(); }
    static std::string english(const display::Control& control) { return control.tip.english; }
    static std::string spanish(const display::Control& control) { return control.tip.spanish; }
    RackBench bench;
};

TEST_F(FigureTips, EveryPlaceOfTheRegistryIsOnTheRackAndHasItsTip) {
    int places = 0;
    for (const figures::Figure& figure : figures::all()) {
        EXPECT_FALSE(figure.shown.empty()) << figure.key;
        for (const figures::Place& place : figure.shown) {
            ++places;
            const display::Form* form = bench.desktop.find(place.form);
            ASSERT_NE(form, nullptr) << place.form;
            const display::Control* control = form->find(place.control);
            ASSERT_NE(control, nullptr) << place.control;
            EXPECT_NE(english(*control).find(figureTip(figure, place, Language::English)),
                      std::string::npos)
                << place.control;
            EXPECT_NE(spanish(*control).find(figureTip(figure, place, Language::Spanish)),
                      std::string::npos)
                << place.control;
        }
    }
    EXPECT_GT(places, 30);
}

TEST_F(FigureTips, EveryReadoutOfEveryWindowHasATipInBothLanguages) {
    int readouts = 0;
    for (display::Form* form : bench.desktop.forms()) {
        form->load();
        for (const display::Control* control : form->controls()) {
            const auto* label = dynamic_cast<const display::Label*>(control);
            const bool painted = label || dynamic_cast<const display::Panel*>(control);
            const bool measured = (label && label->readout) || (painted && control->reading);
            // Two labels show sentences: why a run was refused, and a folder's trouble.
            if (!measured || control->name() == "Refused" || control->name() == "Trouble") continue;
            ++readouts;
            const bool inWell = control->container && *control->container.get()->tip.english != 0;
            EXPECT_TRUE(!english(*control).empty() || inWell)
                << form->name() << "." << control->name();
            EXPECT_TRUE(!spanish(*control).empty() || inWell)
                << form->name() << "." << control->name();
        }
    }
    EXPECT_GT(readouts, 30);
}

TEST_F(FigureTips, SayWhatItIsItsUnitItsRangeAndWhatIsGood) {
    EXPECT_EQ(english(bench.form1.Label_FMod),
              "Peak deviation: highest distance from the carrier (ITU-R SM.1268)\n"
              "Range: 0 to 250 kHz\n"
              "Good: up to 75 kHz; 75 kHz are 100 %");
    EXPECT_EQ(spanish(bench.formC.Label_PilotLevel),
              "Nivel del piloto: su desviación, en parte de 75 kHz (ITU-R BS.450)\n"
              "Escala: 0 a 20 %\n"
              "Bueno: 8 a 10 %");
    EXPECT_EQ(english(bench.formC.Label_LeftNoise),
              "Left noise: what is left in the channel when the programme is silent\n"
              "Range: -110 to 0 dB\n"
              "Good: up to -60 dB; the digits never show better than the stored result");
}

TEST_F(FigureTips, StandInTheUnitOfTheirPlace) {
    EXPECT_NE(english(bench.form1.Label_FMod_Porcentaje).find("Range: 0 to 333 %\nGood: up to 100"),
              std::string::npos);
    EXPECT_NE(
        english(bench.form1.Label_CarrierDeviation).find("Range: -10 to 10 kHz\nGood: -2 to 2 kHz"),
        std::string::npos);
    EXPECT_NE(english(bench.formB.PowerDigits).find("Range: 0 to 200 %"), std::string::npos);
}

TEST_F(FigureTips, OfAWellTellAllThatStandsInIt) {
    const std::string wells = english(bench.formC.NoiseDigits);
    EXPECT_NE(wells.find("Left noise"), std::string::npos);
    EXPECT_NE(wells.find("Right noise"), std::string::npos);
    EXPECT_EQ(english(bench.form1.DeviationWell), english(bench.form1.Label_FMod));
    EXPECT_NE(english(bench.formC.SeparationWell).find("Right separation"), std::string::npos);
}

TEST_F(FigureTips, TheQualityFiguresShowTheUnitsOfTheRegistry) {
    Form_C& panel = bench.formC;
    struct Row {
        const char* key;
        const display::Label& unit;
        const display::Panel& well;
    };
    for (const Row& row : {Row{"pilot_error", panel.Error19Unit, panel.Error19Well},
                           Row{"pilot_level", panel.PilotUnit, panel.PilotWell},
                           Row{"noise_left", panel.NoiseUnit, panel.NoiseWell},
                           Row{"distortion", panel.DistortionUnit, panel.DistortionWell},
                           Row{"separation_left", panel.SeparationUnit, panel.SeparationWell},
                           Row{"rds_error", panel.Error57Unit, panel.Error57Well},
                           Row{"rds_level", panel.RdsUnit, panel.RdsWell}}) {
        EXPECT_EQ(row.unit.caption, figures::find(row.key)->unit) << row.key;
        EXPECT_EQ(row.unit.container.get(), &row.well) << row.key;
        EXPECT_EQ(row.unit.font.get(), bench.form1.DeviationUnit.font.get()) << row.key;
        EXPECT_EQ(row.unit.colour.get(), bench.form1.DeviationUnit.colour.get()) << row.key;
    }
}

}  // namespace
}  // namespace hmonitor::test
