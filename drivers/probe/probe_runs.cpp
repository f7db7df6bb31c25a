// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/probe/probe_runs.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "base/number_text.h"
#include "drivers/probe/csv.h"
#include "drivers/probe/driving.h"
#include "drivers/unit/readings.h"
#include "drivers/unit/sweep_store.h"
#include "drivers/unit/unit.h"

namespace hm16::probe {

namespace {

constexpr const char* kReadingsHead =
    "seconds,peak_modulation_percent,level_first_db,level_second_db,stereo_phase_degrees,"
    "relative_power,pilot_error_hz,pilot_level_percent,noise_left_db,noise_right_db,"
    "separation_left_db,separation_right_db,distortion_percent,carrier_deviation_100hz,"
    "field_dbuv,multipath,peaks_per_minute,rds_error_hz,rds_level_percent";

std::string runReadings(const HM16_Functions& driver, HM16_StepFunction step,
                        const Options& options, Csv& csv) {
    tune(driver, options, ResponseRun::Off);
    csv.head(kReadingsHead);
    RunClock clock(step);
    for (long look = 0; look * options.every <= options.seconds; ++look) {
        if (!clock.passUntil(look * options.every)) break;
        const Readings readings = readAll(driver);
        std::vector<double> line{look * options.every};
        for (const figures::Output output : figures::kOutputs) line.push_back(readings.*output);
        csv.line(line);
    }
    driver.parar();
    return "";
}

SweepRange rangeOf(const Options& options) {
    return {options.from * 10, options.to * 10, options.stepKhz};
}

std::string runLevels(const HM16_Functions& driver, const Options& options, Csv& csv) {
    const SweepRange range = rangeOf(options);
    driver.parar();
    csv.head("round,mhz,level_dbuv");
    const auto start = Clock::now();
    for (long round = 1; options.rounds == 0 || round <= options.rounds; ++round) {
        for (int i = 0; i < range.points(); ++i) {
            float level = 0;
            const double frequency = range.frequency(i);
            if (driver.super(static_cast<float>(frequency), &level) != 0) {
                return "The unit failed at " + base::decimalText(frequency / 10, 3) + " MHz.";
            }
            csv.line(
                std::array{static_cast<double>(round), frequency / 10, static_cast<double>(level)});
            if (options.rounds == 0 && secondsSince(start) >= options.seconds) return "";
        }
    }
    return "";
}

void writeFrame(const HM16_Functions& driver, const SweepRange& range, double seconds, Csv& csv) {
    for (int i = 0; i < range.points(); ++i) {
        float level = 0;
        driver.getEspectro(static_cast<float>(range.frequency(i)), &level);
        csv.line(std::array{seconds, range.frequency(i) / 10, static_cast<double>(level)});
    }
}

std::string runSweep(const HM16_Functions& driver, HM16_StepFunction step, const Options& options,
                     Csv& csv) {
    const SweepRange range = rangeOf(options);
    float version = 0;
    driver.getHardwareVersion(&version);
    if (!(version >= 1.7f && version < 2)) {
        return "A unit of version " + base::decimalText(version, 2) + " delivers no sweep frames.";
    }
    driver.parar();
    driver.startEspectro(static_cast<float>(range.start), static_cast<float>(range.stop),
                         range.stepKhz);
    csv.head("seconds,mhz,level_dbuv");
    const auto start = Clock::now();
    long frames = 0;
    while (options.rounds == 0 || frames < options.rounds) {
        if (step != nullptr && step(1) != 0) break;
        if (driver.tramaEspectroRecibida() != 0) {
            ++frames;
            writeFrame(driver, range, secondsSince(start), csv);
            continue;
        }
        if (secondsSince(start) >= options.seconds) break;
        waitFor(options.every);
    }
    driver.parar();
    return frames > 0 ? ""
                      : "No frame came within " + base::decimalText(options.seconds, 3) + " s.";
}

std::string runResponse(const HM16_Functions& driver, HM16_StepFunction step,
                        const Options& options, Csv& csv) {
    tune(driver, options, ResponseRun::Armed);
    RunClock clock(step);
    bool ended = false;
    for (long look = 1; !ended && clock.seconds() < options.seconds; ++look) {
        if (!clock.passUntil(look * options.every)) break;
        ended = figures::showsEndMark(readAll(driver));
    }
    driver.parar();
    std::array<std::int32_t, 16> r{};
    driver.respFrecuencia(&r[0], &r[1], &r[2], &r[3], &r[4], &r[5], &r[6], &r[7], &r[8], &r[9],
                          &r[10], &r[11], &r[12], &r[13], &r[14], &r[15]);
    driver.parar();
    csv.head("frequency_hz,level_db");
    for (std::size_t i = 0; i < r.size(); i += 2) {
        csv.line(std::array{static_cast<double>(r[i]), r[i + 1] / 10.0});
    }
    if (ended) return "";
    return "The end of the tones was not seen within " + base::decimalText(options.seconds, 3) +
           " s.";
}

}  // namespace

std::string run(const HM16_Functions& driver, HM16_StepFunction step, const Options& options,
                std::ostream& out) {
    Csv csv(out);
    switch (options.what) {
        case What::Readings:
            return runReadings(driver, step, options, csv);
        case What::Levels:
            return runLevels(driver, options, csv);
        case What::Sweep:
            return runSweep(driver, step, options, csv);
        case What::Response:
            return runResponse(driver, step, options, csv);
        case What::Figures:
        case What::Slots:
            break;
    }
    return "";
}

}  // namespace hm16::probe
