// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader finds of the live rack: each painted figure by its name with its value, on
// Qt's accessibility interface, in both languages.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>

#include "tests/display/qt/live_rack.h"

namespace hmonitor::test {
namespace {

using display::Form;

struct Figure {
    display::Words name;
    const char* value;
};

const Figure kModulation[] = {
    {{"Barra de modulación, %", "Modulation bar, %"}, "80.0"},
    {{"Porcentaje de modulacion [%]", "Modulation level [%]"}, "80.0"},
    {{"F-Mod [KHz]", "F-Mod [KHz]"}, "60.0"},
    {{"Picos por Minuto", "Peaks per Minute"}, "7"},
    {{"Intensidad de campo [dB/uV]", "Field intensity [db/uV]"}, "60.0"},
    {{"Multitrayecto, elementos encendidos de 5", "Multipath, elements lit of 5"}, "3"},
};

const Figure kAudio[] = {
    {{"Nivel izquierdo, dB", "Left level, dB"}, "-10"},
    {{"Nivel derecho, dB", "Right level, dB"}, "-12"},
    {{"Potencia relativa", "Relative power"}, "25"},
    {{"Fase estéreo, grados", "Stereo phase, degrees"}, "45.00"},
    {{"Fase estéreo retenida, grados", "Held stereo phase, degrees"}, "45"},
    {{"Frecuencia, MHz", "Frequency, MHz"}, "98.10"},
    {{"Estación", "Station"}, "RADIO UNO"},
    {{"Memoria", "Memory"}, "1"},
    {{"Memoria sintonizada", "Tuned memory"}, "1"},
};

const Figure kQuality[] = {
    {{"Error Frec. 19Khz", "19Khz Freq. Error"}, "+1.5"},
    {{"Dígitos del error de 19 kHz", "Digits of the 19 kHz error"}, "+1.5"},
    {{"Nivel tono piloto", "Pilot Level"}, "9.5"},
    {{"Dígitos del nivel de piloto", "Digits of the pilot level"}, "9.5"},
    {{"Piso de ruido, izquierdo", "Noise level, left"}, "-60.0"},
    {{"Piso de ruido, derecho", "Noise level, right"}, "-61.0"},
    {{"Dígitos del ruido, izquierdo y derecho", "Digits of the noise, left and right"}, "60 / 61"},
    {{"Distorsion armonica", "Harmonic distortion"}, "0.50"},
    {{"Dígitos de la distorsión", "Digits of the distortion"}, "0.50"},
    {{"Separación de canales, izquierdo", "Channel separation, left"}, "40.0"},
    {{"Separación de canales, derecho", "Channel separation, right"}, "41.0"},
    {{"Dígitos de la separación, izquierdo y derecho", "Digits of the separation, left and right"},
     "40 / 41"},
    {{"Error Frec. 57Khz", "57Khz Freq. Error"}, "-0.8"},
    {{"Nivel RDS", "RDS level"}, "4.2"},
};

class AccessibleRack : public testing::TestWithParam<const char*> {
 protected:
    bool spanish() const { return std::string_view(GetParam()).starts_with("es"); }
    const char* in(const display::Words& words) const {
        return spanish() ? words.spanish : words.english;
    }
    template <std::size_t Count>
    void expectAccessible(LiveRack& rack, const Form& form, const Figure (&figures)[Count]) {
        for (const Figure& figure : figures) {
            EXPECT_EQ(rack.value(form, in(figure.name)), figure.value) << in(figure.name);
        }
    }
};

TEST_P(AccessibleRack, EveryPaintedFigureHasItsNameAndValue) {
    LiveRack rack(GetParam());
    ASSERT_TRUE(rack.measures());
    expectAccessible(rack, rack.forms().form1, kModulation);
    expectAccessible(rack, rack.forms().formB, kAudio);
    expectAccessible(rack, rack.forms().formC, kQuality);
    const std::string deviation = rack.value(
        rack.forms().form1, in({"Desviacion de portadora [KHz]", "Carrier deviation [KHz]"}));
    // The mean needs ten seconds; here it is still settling.
    EXPECT_EQ(deviation, rack.forms().form1.Label_CarrierDeviation.caption.get());
    EXPECT_NE(deviation, "");
    const std::string good =
        rack.value(rack.forms().form1, in({"Multitrayecto bueno", "Multipath good"}));
    EXPECT_EQ(good, spanish() ? "encendido" : "lit");
}

TEST_P(AccessibleRack, HiddenLampsAreInvisible) {
    LiveRack rack(GetParam());
    ASSERT_TRUE(rack.measures());
    QAccessibleInterface* bad =
        rack.child(rack.forms().form1, in({"Multitrayecto malo", "Multipath bad"}));
    ASSERT_NE(bad, nullptr);
    EXPECT_TRUE(bad->state().invisible);
    rack.driver.readings.multipath = 40;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !bad->state().invisible; }, 5000));
}

TEST_P(AccessibleRack, PanelsAreToldApartByTheirHeadings) {
    LiveRack rack(GetParam());
    ASSERT_TRUE(rack.measures());
    const std::pair<const Form*, display::Words> panels[] = {
        {&rack.forms().form1, {"RF / MODULACION", "RF / MODULATION"}},
        {&rack.forms().formB, {"AUDIO / STEREO", "AUDIO / STEREO"}},
        {&rack.forms().formC, {"CALIDAD", "QUALITY"}},
        {&rack.forms().formD, {"ANALISIS", "ANALYSES"}}};
    for (const auto& [form, heading] : panels) {
        QAccessibleInterface* panel = QAccessible::queryAccessibleInterface(&rack.view(*form));
        EXPECT_EQ(panel->text(QAccessible::Name).toStdString(), in(heading));
    }
}

TEST_P(AccessibleRack, ACaptionBesideAFigureOfItsNameIsNotToldBesides) {
    LiveRack rack(GetParam());
    ASSERT_TRUE(rack.measures());
    const QString name = in({"Picos por Minuto", "Peaks per Minute"});
    QAccessibleInterface* panel =
        QAccessible::queryAccessibleInterface(&rack.view(rack.forms().form1));
    QStringList heard;
    for (int i = 0; i < panel->childCount(); ++i) {
        QAccessibleInterface* found = panel->child(i);
        const QString said = found->text(QAccessible::Name);
        if (said.startsWith(name) && !found->state().invisible) heard << said;
    }
    EXPECT_EQ(heard, QStringList(name + ": 7"));
}

TEST_P(AccessibleRack, TheTuningBarTellsItsFrequencyAndNotItsPosition) {
    LiveRack rack(GetParam());
    ASSERT_TRUE(rack.measures());
    QAccessibleInterface* bar = rack.child(rack.forms().formB, in({"Sintonía", "Tuning"}));
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->role(), QAccessible::Slider);
    ASSERT_NE(bar->valueInterface(), nullptr);
    EXPECT_NEAR(bar->valueInterface()->currentValue().toDouble(), 98.1, 1e-9);
    rack.forms().formB.HScroll1.value = 1025 - 875;
    EXPECT_NEAR(bar->valueInterface()->currentValue().toDouble(), 102.5, 1e-9);
}

TEST_P(AccessibleRack, ADrawingSaysItsNameOnce) {
    LiveRack rack(GetParam());
    ASSERT_TRUE(rack.measures());
    QAccessibleInterface* drawing = rack.child(
        rack.forms().formD, in({"Espectro del canal sintonizado; doble clic o Intro lo abre",
                                "Spectrum of the tuned channel; double click or Enter opens it"}));
    ASSERT_NE(drawing, nullptr);
    EXPECT_EQ(drawing->text(QAccessible::Description), "");
}

TEST_P(AccessibleRack, AMessageThatDoesNotStandIsNotTold) {
    LiveRack rack(GetParam());
    ASSERT_TRUE(rack.measures());
    Form_BandSCanner& scanner = rack.forms().formBandSCanner;
    scanner.show();
    QAccessibleInterface* refused =
        rack.child(scanner, in({"Corrida rechazada por la unidad", "Run that the unit refused"}));
    ASSERT_NE(refused, nullptr);
    EXPECT_TRUE(refused->state().invisible);
    scanner.Refused.caption = "The unit refused 88.1 MHz: the run ended there.";
    EXPECT_FALSE(refused->state().invisible);
    scanner.Refused.caption = "";
    EXPECT_TRUE(refused->state().invisible);
    scanner.unload();
}

TEST_P(AccessibleRack, KeysAndTuningBarAreThereByTheirNames) {
    LiveRack rack(GetParam());
    ASSERT_TRUE(rack.measures());
    for (const Form* form : std::initializer_list<const Form*>{
             &rack.forms().form1, &rack.forms().formB, &rack.forms().formC, &rack.forms().formD}) {
        for (const display::Control* control : form->controls()) {
            if (!control->interactive() || !control->shown()) continue;
            EXPECT_NE(rack.child(*form, QString::fromUtf8(in(control->says))), nullptr)
                << form->name() << "." << control->name();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, AccessibleRack, testing::Values("es_AR.UTF-8", "en_US.UTF-8"),
                         [](const auto& of) {
                             return std::string(of.param[1] == 's' ? "Spanish" : "English");
                         });

}  // namespace
}  // namespace hmonitor::test
