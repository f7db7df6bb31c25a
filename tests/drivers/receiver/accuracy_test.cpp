// SPDX-License-Identifier: GPL-3.0-or-later
// Each figure against signals whose true values are known. The bounds are those of the table in
// docs/receiver.md, which also lists the accuracy that is reached.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "drivers/receiver/synth/composite_generator.h"
#include "tests/drivers/receiver/accuracy.h"

namespace hm16::receiver {
namespace {

INSTANTIATE_TEST_SUITE_P(Samples, Accuracy, testing::ValuesIn(kKinds), nameOf);

TEST_P(Accuracy, PeakModulationFrom10To130Percent) {
    for (const double percent : {10.0, 50.0, 100.0, 130.0}) {
        for (const double hz : {1000.0, 15000.0}) {
            const auto plan = band([&](auto& s) { s.direct = {{hz, percent * 750}}; });
            const double peak = measure(plan, 0.6).peakHz;
            EXPECT_NEAR(peak, percent * 750, 500) << percent << " % at " << hz << " Hz";
            miss(peak - percent * 750);
        }
    }
}

TEST_P(Accuracy, PeakModulationOf150Percent) {
    const double peak = measure(band([](auto& s) { s.direct = {{1000, 112500}}; }), 0.6).peakHz;
    EXPECT_NEAR(peak, 112500, 1500);
    miss(peak - 112500);
}

TEST_P(Accuracy, PeakModulationInNoise) {
    for (const double percent : {10.0, 50.0, 100.0, 130.0}) {
        auto plan = band([&](auto& s) { s.direct = {{1000, percent * 750}}; });
        plan.carrierToNoiseDb = 30;
        int known = 0;
        const auto check = [&](const Figures& f) {
            if (f.peakHz == 0) return;
            ++known;
            EXPECT_NEAR(f.peakHz, percent * 750, 1500);
            miss(f.peakHz - percent * 750);
        };
        measure(plan, 0.6, 300e3, check);
        EXPECT_GE(known, 9) << percent;  // all but the first two
    }
}

// The highest deviation that a station sends between two times.
double sentBetween(const std::vector<double>& deviation, double rateHz, double from, double to) {
    double peak = 0;
    for (auto n = static_cast<std::size_t>(from * rateHz); n < to * rateHz; ++n)
        peak = std::max(peak, std::fabs(deviation.at(n)));
    return peak;
}

TEST_P(Accuracy, PeaksOfAStereoProgramme) {
    constexpr double kFineHz = 2.4e6;
    constexpr double kBeside = 2e-4;  // the chain's slots begin a little later than the signal's
    for (const double width : {0.3, 0.9}) {
        const auto plan = band([&](auto& s) {
            s.pilotDeviationHz = 6750;
            s.rds.deviationHz = 2000;
            s.programme = {.level = 0.9, .width = width};
        });
        std::vector<double> sent;
        CompositeGenerator(plan.stations.front(), kFineHz, plan.seed + 1)
            .generate(static_cast<std::size_t>(1.3 * kFineHz), sent);
        int slots = 0;
        measure(plan, 1.2, 300e3, [&](const Figures& f) {
            if (++slots < 3) return;
            const double end = 0.05 * slots;
            const double most = sentBetween(sent, kFineHz, end - 0.05 - kBeside, end + kBeside);
            const double least = sentBetween(sent, kFineHz, end - 0.05 + kBeside, end - kBeside);
            EXPECT_LT(f.peakHz, most + 500) << width << " in slot " << slots;
            EXPECT_GT(f.peakHz, least - 500) << width << " in slot " << slots;
            miss(std::max({0.0, f.peakHz - most, least - f.peakHz}));
        });
        EXPECT_GE(slots, 23);
    }
}

TEST_P(Accuracy, PeaksOfAProgrammeInNoise) {
    auto plan = band([](auto& s) {
        s.pilotDeviationHz = 6750;
        s.rds.deviationHz = 2000;
        s.programme.level = 0.7;
    });
    auto pure = plan;
    pure.eightBit = false;
    pure.carrierToNoiseDb = 300;
    plan.carrierToNoiseDb = 30;
    std::vector<double> truth;
    measure(pure, 1.6, 300e3, [&](const Figures& f) { truth.push_back(f.peakHz); });
    std::size_t slots = 0;
    double squares = 0;
    measure(plan, 1.6, 300e3, [&](const Figures& f) {
        const double wrong = f.peakHz - truth.at(slots++);
        if (slots < 3) return;
        squares += wrong * wrong;
        miss(wrong);
    });
    ASSERT_GE(slots, 31U);
    EXPECT_LT(std::sqrt(squares / static_cast<double>(slots - 2)), 1200);
    RecordProperty("rms", std::to_string(std::sqrt(squares / static_cast<double>(slots - 2))));
}

TEST_P(Accuracy, CarrierDeviation) {
    for (const double error : {-7500.0, -320.0, 0.0, 2500.0}) {
        const auto plan = band([&](auto& s) {
            s.carrierErrorHz = error;
            stereo(s, 0.7, 0.3);
            s.tones.push_back({30, 0.3, 0.3});
        });
        const double carrier = measure(plan, 1.2).carrierHz;
        EXPECT_NEAR(carrier, error, 5);
        miss(carrier - error);
    }
}

TEST_P(Accuracy, PilotLevel) {
    for (const double level : {6750.0, 7500.0}) {
        const auto plan = band([&](auto& s) {
            stereo(s, 0.5, 0.2, 5000);
            s.pilotDeviationHz = level;
        });
        const Figures figures = measure(plan, 0.5);
        EXPECT_TRUE(figures.stereo);
        EXPECT_NEAR(figures.pilotHz, level, 0.005 * level);
        miss(figures.pilotHz / level - 1);
    }
}

TEST_P(Accuracy, PilotError) {
    for (const double error : {-2.0, 0.0, 2.0}) {
        const auto plan = band([&](auto& s) {
            stereo(s, 0.5, 0.2, 5000);
            s.pilotErrorHz = error;
        });
        const double measured = measure(plan, 0.5).pilotErrorHz;
        EXPECT_NEAR(measured, error, 0.01);
        miss(measured - error);
    }
}

TEST_P(Accuracy, RdsLevel) {
    for (const double level : {1200.0, 2000.0, 4000.0}) {
        const auto plan = band([&](auto& s) {
            stereo(s, 0.6, 0.2);
            s.rds.deviationHz = level;
            s.rds.phaseDegrees = level == 2000 ? 0 : 90;
        });
        const Figures figures = measure(plan, 0.8);
        EXPECT_TRUE(figures.rds);
        EXPECT_NEAR(figures.rdsHz, level, 0.05 * level);
        miss(figures.rdsHz / level - 1);
    }
}

TEST_P(Accuracy, RdsError) {
    for (const double error : {-4.0, 0.0, 2.5}) {
        const auto plan = band([&](auto& s) {
            stereo(s, 0.6, 0.2);
            s.rds.errorHz = error;
        });
        const double measured = measure(plan, 1.2).rdsErrorHz;
        EXPECT_NEAR(measured, error, 0.1);
        miss(measured - error);
    }
}

TEST_P(Accuracy, AudioLevels) {
    const auto check = [&](double leftDb, double rightDb, double hz) {
        const double left = std::pow(10, leftDb / 20);
        const double right = std::pow(10, rightDb / 20);
        const Figures figures = measure(band([&](auto& s) { stereo(s, left, right, hz); }), 0.4);
        EXPECT_NEAR(figures.levelLeftDb, leftDb, 0.1) << hz;
        EXPECT_NEAR(figures.levelRightDb, rightDb, 0.1) << hz;
        miss(figures.levelLeftDb - leftDb);
        miss(figures.levelRightDb - rightDb);
    };
    for (const double db : {-40.0, -20.0, -6.0, 0.0, 3.0}) check(db, db, 400);
    check(-3, -35, 1000);
    check(-30, -6, 1000);
    // Up to the frequency at which pre-emphasis would fill the channel.
    for (const double hz : {50.0, 90.0, 3000.0, 8000.0, 12000.0}) check(-14, -14, hz);
}

TEST_P(Accuracy, Separation) {
    double least = 200;
    for (const double hz : {100.0, 400.0, 1000.0, 5000.0, 12000.0}) {
        const double amplitude = hz > 6000 ? 0.2 : 0.7;
        const Figures left = measure(band([&](auto& s) { stereo(s, amplitude, 0, hz); }), 0.4);
        EXPECT_GE(left.separationLeftDb, 60) << hz;
        EXPECT_EQ(left.separationRightDb, 0);
        const Figures right = measure(band([&](auto& s) { stereo(s, 0, amplitude, hz); }), 0.4);
        EXPECT_GE(right.separationRightDb, 60) << hz;
        EXPECT_EQ(right.separationLeftDb, 0);
        least = std::min({least, left.separationLeftDb, right.separationRightDb});
    }
    RecordProperty("least", std::to_string(least));
}

TEST_P(Accuracy, DistortionResidual) {
    for (const double hz : {100.0, 400.0, 1000.0, 5000.0, 7000.0}) {
        const double amplitude = hz > 6000 ? 0.35 : 0.6;
        const auto plan = band([&](auto& s) { stereo(s, amplitude, amplitude, hz); });
        const Figures figures = measure(plan, 0.9);
        EXPECT_LE(figures.distortionPercent, 0.02) << hz;
        EXPECT_GT(figures.levelLeftDb, -10) << hz;
        miss(figures.distortionPercent);
    }
}

TEST_P(Accuracy, DistortionOfAKnownHarmonic) {
    const auto plan = band([](auto& s) {
        s.preEmphasisUs = 0;
        s.direct = {{1000, 50000}, {2000, 500}};
    });
    // De-emphasis weakens the harmonic more than its tone.
    const auto gain = [](double hz) { return 1 / std::hypot(1.0, 2 * M_PI * hz * 50e-6); };
    const double expected = gain(2000) / gain(1000);
    const double measured = measure(plan, 0.9).distortionPercent;
    EXPECT_NEAR(measured, expected, 0.02);
    miss(measured - expected);
}

TEST_P(Accuracy, StereoPhase) {
    const auto check = [&](double left, double right, double degrees) {
        const auto plan = band([&](auto& s) { stereo(s, left, right); });
        const double measured = measure(plan, 0.25).stereoPhaseDegrees;
        EXPECT_NEAR(measured, degrees, 0.5);
        miss(measured - degrees);
    };
    check(0, 0.5, 0);
    check(0.5, 0.5, 45);
    check(0.5, 0, 90);
    check(0.5, -0.5, 135);
    for (int mixture = 1; mixture <= 20; ++mixture) {
        const double degrees = mixture * 8.0;
        check(0.6 * std::sin(degrees * M_PI / 180), 0.6 * std::cos(degrees * M_PI / 180), degrees);
    }
}

TEST_P(Accuracy, NoRayReadsNoMultipath) {
    const double none = measure(band([](auto& s) { stereo(s, 0.8, 0.8); }), 0.6).multipathPercent;
    EXPECT_LE(none, 1);
    miss(none);
}

TEST_P(Accuracy, MultipathRisesWithTheSecondRay) {
    const std::vector<Ray> rays{
        {5e-6, 0.05, 60}, {5e-6, 0.1, 60}, {10e-6, 0.2, 60}, {5e-6, 0.4, 60}};
    double before = 0;
    int lampsBefore = 6;
    for (const Ray& ray : rays) {
        const auto plan = band([&](auto& s) {
            stereo(s, 0.95, 0.95);
            s.ray = ray;
        });
        const double figure = measure(plan, 0.6).multipathPercent;
        EXPECT_GT(figure, before);
        // The five lamps of the panel.
        int lamps = 0;
        for (const double limit : {28.0, 21.0, 16.0, 11.0, 6.0}) lamps += figure < limit ? 1 : 0;
        EXPECT_LT(lamps, lampsBefore) << figure;
        before = figure;
        lampsBefore = lamps;
        RecordProperty("ray" + std::to_string(ray.amplitude), std::to_string(figure));
    }
    EXPECT_EQ(lampsBefore, 0);
}

TEST_P(Accuracy, PeaksPerMinuteCountsBurstsPlacedByHand) {
    EXPECT_EQ(measure(band(placeBursts), 2.6).peaksPerMinute, 5);
}

TEST_P(Accuracy, FieldFollowsTheCarrier) {
    for (const double amplitude : {0.7, 0.1, 0.02}) {
        auto plan = band([&](auto& s) {
            stereo(s, 0.5, 0.3);
            s.amplitude = amplitude;
        });
        plan.noiseReference = amplitude;
        // Eight bits add noise of their own below a hundredth of full scale.
        const double expected = kFieldAtFullScale + 20 * std::log10(amplitude);
        const double field = measure(plan, 0.5).fieldDb;
        EXPECT_NEAR(field, expected, 0.2);
        miss(field - expected);
    }
}

}  // namespace
}  // namespace hm16::receiver
