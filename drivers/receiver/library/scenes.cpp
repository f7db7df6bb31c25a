// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/library/scenes.h"

namespace hm16::receiver {
namespace {

constexpr double kRateHz = 1.2e6;
constexpr double kCentreHz = 98.2e6;

// A stereo station with data, at 98.5 MHz where the centre is the scene's own.
StationPlan goodStation() {
    StationPlan station;
    station.offsetHz = 300e3;
    station.carrierErrorHz = 120;
    station.amplitude = 0.3;
    station.pilotDeviationHz = 6750;
    station.pilotErrorHz = 0.5;
    station.programme.level = 0.8;
    station.rds.deviationHz = 2000;
    station.rds.programme = 0xE123;
    station.rds.name = "SYNTH FM";
    return station;
}

// At 97.8 MHz: mono, over-modulated, off its frequency.
StationPlan loudStation() {
    StationPlan station;
    station.offsetHz = -400e3;
    station.carrierErrorHz = -2400;
    station.amplitude = 0.2;
    station.direct = {{400, 82e3}};
    return station;
}

}  // namespace

BandPlan sceneOf(Scene scene, double rateHz, double centreHz) {
    BandPlan band;
    band.rateHz = rateHz > 0 ? rateHz : kRateHz;
    band.centreHz = centreHz > 0 ? centreHz : kCentreHz;
    band.carrierToNoiseDb = 50;
    band.noiseReference = 0.3;
    StationPlan station = goodStation();
    switch (scene) {
        case Scene::Station:
            band.stations = {station};
            break;
        case Scene::Band:
            band.stations = {station, loudStation()};
            break;
        case Scene::Rays:
            station.ray = {10e-6, 0.2, 90};
            band.stations = {station};
            break;
        case Scene::Tones:
            station.programme.level = 0;
            station.tones = {{1000, 0.7, 0}};
            band.stations = {station};
            break;
        case Scene::Silence:
            break;
    }
    return band;
}

}  // namespace hm16::receiver
