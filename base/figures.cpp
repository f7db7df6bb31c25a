// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/figures.h"

#include <iterator>

namespace figures {

namespace {

constexpr float kOpen = std::numeric_limits<float>::infinity();

constexpr Bounds upTo(float highest) {
    return {-kOpen, highest};
}
constexpr Bounds from(float lowest) {
    return {lowest, kOpen};
}

// 75 kHz of deviation are 100 percent of modulation.
constexpr float kHzOfPercent = 0.75f;

constexpr const char* kLevelRemark[] = {"0 dB es una desviación de 67.5 kHz; -64 es silencio",
                                        "0 dB is a deviation of 67.5 kHz; -64 is silence"};
constexpr Words kLevel{"nivel medio de la señal de audio", "mean level of the audio signal"};
constexpr Words kNoise{"lo que queda en el canal cuando el programa calla",
                       "what is left in the channel when the programme is silent"};
constexpr Words kSeparation{"cuánto menos se oye un canal en el otro",
                            "how much weaker one channel is heard in the other"};
constexpr Words kStored{"los dígitos nunca bajan del resultado guardado",
                        "the digits never fall below the stored result"};
constexpr Words kStoredNoise{"los dígitos nunca pasan del mejor resultado guardado",
                             "the digits never show better than the stored result"};

constexpr Place kDeviation[] = {{"Form1", "BarWell", "%", 1},
                                {"Form1", "Label_FMod_Porcentaje", "%", 1},
                                {"Form1", "Label_FMod", "kHz", kHzOfPercent}};
constexpr Place kFirstLevel[] = {{"Form_B", "PromL", "dB", 1}, {"Form_B", "LevelWell", "dB", 1}};
constexpr Place kSecondLevel[] = {{"Form_B", "PromR", "dB", 1}, {"Form_B", "LevelWell", "dB", 1}};
constexpr Place kSumLevel[] = {{"Form_B", "PromL", "dB", 1}};
constexpr Place kDifferenceLevel[] = {{"Form_B", "PromR", "dB", 1}};
constexpr Place kPhase[] = {{"Form_B", "PhaseWell", "°", 1},
                            {"Form_B", "PhaseDigits", "°", 1},
                            {"Form_B", "Label_PhaseVector", "°", 1}};
constexpr Place kPower[] = {{"Form_B", "PowerWell", "%", 10}, {"Form_B", "PowerDigits", "%", 10}};
constexpr Place kPilotError[] = {{"Form_C", "Label_19K_FrecError", "Hz", 1},
                                 {"Form_C", "Error19Digits", "Hz", 1}};
constexpr Place kPilotLevel[] = {{"Form_C", "Label_PilotLevel", "%", 1},
                                 {"Form_C", "PilotDigits", "%", 1}};
constexpr Place kNoiseLeft[] = {{"Form_C", "Label_LeftNoise", "dB", 1},
                                {"Form_C", "NoiseDigits", "dB", 1}};
constexpr Place kNoiseRight[] = {{"Form_C", "Label_RightNoise", "dB", 1},
                                 {"Form_C", "NoiseDigits", "dB", 1}};
constexpr Place kSeparationLeft[] = {{"Form_C", "Label_ChannelSep_Left", "dB", 1},
                                     {"Form_C", "SeparationDigits", "dB", 1}};
constexpr Place kSeparationRight[] = {{"Form_C", "Label_ChannelSep_Right", "dB", 1},
                                      {"Form_C", "SeparationDigits", "dB", 1}};
constexpr Place kDistortion[] = {{"Form_C", "Label_HarmonicDistortion", "%", 1},
                                 {"Form_C", "DistortionDigits", "%", 1}};
constexpr Place kCarrier[] = {{"Form1", "Label_CarrierDeviation", "kHz", 0.1f}};
constexpr Place kField[] = {{"Form1", "Label_FieldIntensity", "dBµV", 1}};
constexpr Place kMultipath[] = {{"Form1", "MultipathWell", "", 1}};
constexpr Place kPeaks[] = {{"Form1", "Label_PicosPorMinuto", "/min", 1}};
constexpr Place kRdsError[] = {{"Form_C", "Label_57K_FrecError", "Hz", 1}};
constexpr Place kRdsLevel[] = {{"Form_C", "Label_RDSLevel", "%", 1}};

constexpr Figure kFigures[] = {
    {"deviation_peak",
     {"Pico de desviación", "Peak deviation"},
     "kHz",
     {"la mayor distancia de la portadora", "highest distance from the carrier"},
     "ITU-R SM.1268",
     {0, 250},
     0.01f,
     Kind::Peak,
     {&Readings::peakModulation, kHzOfPercent},
     Known::NotZero,
     upTo(75),
     {"75 kHz son el 100 %", "75 kHz are 100 %"},
     kDeviation},
    {"level_left",
     {"Nivel izquierdo", "Left level"},
     "dB",
     kLevel,
     "",
     {-64, 20},
     0.01f,
     Kind::Level,
     {&Readings::levelFirst, 1, Mode::LeftRight},
     Known::Always,
     upTo(0),
     {kLevelRemark[0], kLevelRemark[1]},
     kFirstLevel},
    {"level_right",
     {"Nivel derecho", "Right level"},
     "dB",
     kLevel,
     "",
     {-64, 20},
     0.01f,
     Kind::Level,
     {&Readings::levelSecond, 1, Mode::LeftRight},
     Known::Always,
     upTo(0),
     {kLevelRemark[0], kLevelRemark[1]},
     kSecondLevel},
    {"level_sum",
     {"Nivel L+R, en ese modo", "L+R level, in that mode"},
     "dB",
     kLevel,
     "",
     {-64, 20},
     0.01f,
     Kind::Level,
     {&Readings::levelFirst, 1, Mode::SumDifference},
     Known::Always,
     upTo(0),
     {},
     kSumLevel},
    {"level_difference",
     {"Nivel L-R, en ese modo", "L-R level, in that mode"},
     "dB",
     kLevel,
     "",
     {-64, 20},
     0.01f,
     Kind::Level,
     {&Readings::levelSecond, 1, Mode::SumDifference},
     Known::Always,
     upTo(0),
     {},
     kDifferenceLevel},
    {"stereo_phase",
     {"Fase estéreo", "Stereo phase"},
     "°",
     {"eje de la imagen estéreo: 0 solo R, 45 mono, 90 solo L",
      "axis of the stereo image: 0 R alone, 45 mono, 90 L alone"},
     "",
     {0, 180},
     0.01f,
     Kind::Angle,
     {&Readings::stereoPhase},
     Known::Always,
     {0, 90},
     {"por encima de 90 los canales están en contrafase", "over 90 the channels are out of phase"},
     kPhase},
    {"relative_power",
     {"Potencia relativa", "Relative power"},
     "%",
     {"potencia del programa; 100 es un tono continuo de 75 kHz",
      "power of the programme; 100 is a steady tone of 75 kHz"},
     "ITU-R BS.412",
     {0, 200},
     0.01f,
     Kind::Mean,
     {&Readings::relativePower, 10},
     Known::NotZero,
     {},
     {"donde rige un límite de 0 dBr, hasta 6.4", "where a limit of 0 dBr is in force, up to 6.4"},
     kPower},
    {"pilot_error",
     {"Error del piloto de 19 kHz", "Error of the 19 kHz pilot"},
     "Hz",
     {"su frecuencia menos 19000 Hz", "its frequency less 19000 Hz"},
     "ITU-R BS.450",
     {-200, 200},
     0.001f,
     Kind::Mean,
     {&Readings::pilotError},
     Known::WithPilot,
     {-2, 2},
     {"sin piloto, ----", "without a pilot, ----"},
     kPilotError},
    {"pilot_level",
     {"Nivel del piloto", "Pilot level"},
     "%",
     {"su desviación, en parte de 75 kHz", "its deviation, as a share of 75 kHz"},
     "ITU-R BS.450",
     {0, 20},
     0.001f,
     Kind::Mean,
     {&Readings::pilotLevel},
     Known::Always,
     {8, 10},
     {},
     kPilotLevel},
    {"noise_left",
     {"Ruido izquierdo", "Left noise"},
     "dB",
     kNoise,
     "",
     {-110, 0},
     0.01f,
     Kind::Level,
     {&Readings::noiseLeft},
     Known::NotZero,
     upTo(-60),
     kStoredNoise,
     kNoiseLeft},
    {"noise_right",
     {"Ruido derecho", "Right noise"},
     "dB",
     kNoise,
     "",
     {-110, 0},
     0.01f,
     Kind::Level,
     {&Readings::noiseRight},
     Known::NotZero,
     upTo(-60),
     kStoredNoise,
     kNoiseRight},
    {"separation_left",
     {"Separación izquierda", "Left separation"},
     "dB",
     kSeparation,
     "",
     {0, 110},
     0.01f,
     Kind::Level,
     {&Readings::separationLeft},
     Known::NotZero,
     from(40),
     kStored,
     kSeparationLeft},
    {"separation_right",
     {"Separación derecha", "Right separation"},
     "dB",
     kSeparation,
     "",
     {0, 110},
     0.01f,
     Kind::Level,
     {&Readings::separationRight},
     Known::NotZero,
     from(40),
     kStored,
     kSeparationRight},
    {"distortion",
     {"Distorsión armónica", "Harmonic distortion"},
     "%",
     {"armónicos de un tono, en parte del tono", "harmonics of a tone, as a share of the tone"},
     "",
     {0, 100},
     0.001f,
     Kind::Mean,
     {&Readings::distortion},
     Known::NotZero,
     upTo(1),
     kStored,
     kDistortion},
    {"carrier_error",
     {"Desviación de la portadora", "Carrier deviation"},
     "Hz",
     {"frecuencia de la portadora menos la sintonizada, media de 10 s",
      "the carrier's frequency less the tuned one, mean of 10 s"},
     "",
     {-10000, 10000},
     1,
     Kind::Mean,
     {&Readings::carrierDeviation, 100},
     Known::Always,
     {-2000, 2000},
     {"en rojo desde 10 kHz", "red from 10 kHz on"},
     kCarrier},
    {"field",
     {"Intensidad de campo", "Field intensity"},
     "dBµV",
     {"nivel en la entrada, con la corrección de las opciones",
      "level at the input, with the correction of the options"},
     "",
     {-20, 140},
     0.01f,
     Kind::Level,
     {&Readings::field},
     Known::NotZero,
     from(45),
     {"con menos no se juzga el multitrayecto", "below that multipath is not judged"},
     kField},
    {"multipath",
     {"Multitrayecto", "Multipath"},
     "",
     {"cuánto varía la portadora por los ecos; menos es mejor",
      "how much echoes make the carrier vary; lower is better"},
     "",
     {0, 100},
     0.01f,
     Kind::Mean,
     {&Readings::multipath},
     Known::Always,
     upTo(15),
     {"desde 28 es malo; los cinco elementos se encienden por debajo de 28, 21, 16, 11 y 6",
      "28 and over is bad; the five elements light below 28, 21, 16, 11 and 6"},
     kMultipath},
    {"peaks_per_minute",
     {"Picos por minuto", "Peaks per minute"},
     "/min",
     {"veces que la modulación pasó del 100 % en un minuto",
      "how often the modulation went over 100 % in a minute"},
     "",
     {0, 10000},
     1,
     Kind::Count,
     {&Readings::peaksPerMinute},
     Known::Always,
     {},
     {"cuantos menos, mejor", "the fewer the better"},
     kPeaks},
    {"rds_error",
     {"Error de la portadora de 57 kHz", "Error of the 57 kHz carrier"},
     "Hz",
     {"su frecuencia menos 57000 Hz", "its frequency less 57000 Hz"},
     "IEC 62106",
     {-600, 600},
     0.001f,
     Kind::Mean,
     {&Readings::rdsError},
     Known::WithRds,
     {-6, 6},
     {"sin RDS, ----", "without RDS, ----"},
     kRdsError},
    {"rds_level",
     {"Nivel de RDS", "RDS level"},
     "%",
     {"su desviación, en parte de 75 kHz", "its deviation, as a share of 75 kHz"},
     "IEC 62106",
     {0, 20},
     0.001f,
     Kind::Mean,
     {&Readings::rdsLevel},
     Known::Always,
     {1.3f, 10},
     {"lo habitual es 2.7", "2.7 is usual"},
     kRdsLevel},
};
static_assert(std::size(kFigures) == kCount);

}  // namespace

std::span<const Figure, kCount> all() {
    return kFigures;
}

const Figure* find(std::string_view key) {
    for (const Figure& figure : kFigures) {
        if (figure.key == key) return &figure;
    }
    return nullptr;
}

float valueOf(const Figure& figure, const Readings& readings) {
    return readings.*figure.source.output * figure.source.factor;
}

State knownWhen(const Figure& figure, const Readings& readings) {
    constexpr float kLeastPercent = 0.3f;
    switch (figure.known) {
        case Known::Always:
            break;
        case Known::NotZero:
            return readings.*figure.source.output == 0 ? State::NotMeasured : State::Known;
        case Known::WithPilot:
            return readings.pilotLevel > kLeastPercent ? State::Known : State::NoPilot;
        case Known::WithRds:
            return readings.rdsLevel > kLeastPercent ? State::Known : State::NoCarrier;
    }
    return State::Known;
}

State heldBy(const Figure& figure, const Readings& readings, Mode mode) {
    if (figure.source.mode != Mode::Any && figure.source.mode != mode) return State::NotMeasured;
    const bool ofPilot = figure.source.output == &Readings::pilotError ||
                         figure.source.output == &Readings::pilotLevel;
    if (ofPilot && showsEndMark(readings)) return State::NotMeasured;
    const float value = valueOf(figure, readings);
    if (!(value >= figure.range.lowest && value <= figure.range.highest)) return State::OutOfRange;
    return State::Known;
}

}  // namespace figures
