// SPDX-License-Identifier: GPL-3.0-or-later
// What the window HISTORY paints of a recorded day, read back from its pixels at ten zooms and
// compared with what was handed to the recorder.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "display/qt/painting/palette.h"
#include "display/qt/painting/plot_painter.h"
#include "tests/display/qt/form_picture.h"
#include "tests/trends/history_window.h"
#include "trends/history_words.h"

namespace display::qt {

namespace {

constexpr std::int64_t kHourLong = 3600;
constexpr std::int64_t kDayLong = 24 * kHourLong;

float peakAt(std::int64_t t) {
    return static_cast<float>(60 + 18 * std::sin(static_cast<double>(t % kDayLong) / 9000));
}

}  // namespace

class ShownHistory : public hmonitor::test::History {
 protected:
    /// A day up to noon: an hour of it without new data, twenty minutes of an analysis.
    void recordDay() {
        const auto feed = record(kDayLong);
        begin = noon - kDayLong;
        feed->series = [](std::int64_t t) {
            auto outputs = hmonitor::test::Feed::rising(t);
            outputs[hmonitor::test::indexOf("deviation_peak")] = peakAt(t);
            return outputs;
        };
        feed->states = [this](std::size_t figure, std::int64_t t) {
            return isStale(t) ? history::State::Stale
                              : hmonitor::test::Feed::leftAndRight(figure, t);
        };
        feed->run(awayFrom() - begin, 600);
        feed->take(hmonitor::test::Inputs::at(0, history::Input::What::Halted));
        while (feed->now < awayTo()) {
            feed->take(hmonitor::test::Inputs::at(0, history::Input::What::Tick));
            if (++feed->now % 600 == 0) feed->commit();
        }
        feed->tune();
        feed->run(noon - feed->now, 600);
        feed->stop();
    }
    bool isStale(std::int64_t t) const { return t >= staleFrom() && t < staleFrom() + kHourLong; }
    bool isAway(std::int64_t t) const { return t >= awayFrom() && t < awayTo(); }
    std::int64_t staleFrom() const { return begin + 6 * kHourLong; }
    std::int64_t awayFrom() const { return begin + 15 * kHourLong; }
    std::int64_t awayTo() const { return awayFrom() + 1200; }
    history::State causeAt(std::int64_t t) const {
        if (isStale(t)) return history::State::Stale;
        return isAway(t) ? history::State::UnitAway : history::State::Known;
    }

    std::int64_t begin = 0;
};

TEST_F(ShownHistory, AtTenZoomsShowsEachColumnAsItWasRecorded) {
    recordDay();
    open();
    FormPicture picture(form);
    const Plot& plot = form.Plot_Figure[0];
    const QColor trace = qColour(plot.series().at(0).colour);
    const std::int64_t edge =
        awayFrom() - 2;  // the analysis begins in the last third of the closest view
    const std::int64_t spans[] = {
        kDayLong, 12 * kHourLong, 5 * kHourLong, 2 * kHourLong, 2400, 900, 300, 100, 30, 10};
    for (const std::int64_t span : spans) {
        const std::int64_t from = span == kDayLong ? begin : edge - span / 2;
        look(from, from + span);
        const QImage image = picture.taken();
        const QRectF whole(picture.boxOf(plot));
        const QRect box = PlotPlace{whole, whole.width() / plot.width, 1}.curves(plot).toRect();
        ASSERT_GT(box.width(), 400);
        const auto series = plot.series().at(0);
        const auto yOf = [&](double value) {
            return box.bottom() + 1 - box.height() * plot.y.get().shareOf(value);
        };
        // A column of the store, or of the screen, may lie on both sides of an edge.
        const double slack =
            std::max(series.each / 1000, 3.0 * static_cast<double>(span) / box.width());
        int read = 0, holes = 0;
        for (int x = 3; x < box.width() - 3; x += 3) {
            const double t =
                static_cast<double>(from) + (x + 0.5) * static_cast<double>(span) / box.width();
            const auto before = static_cast<std::int64_t>(t - slack);
            const auto behind = static_cast<std::int64_t>(t + slack);
            const history::State cause = causeAt(static_cast<std::int64_t>(t));
            if (causeAt(before) != cause || causeAt(behind) != cause) continue;
            int top = box.bottom() + 1, bottom = -1;
            bool isHatched = false;
            for (int y = box.top(); y <= box.bottom(); ++y) {
                const QColor colour = image.pixelColor(box.left() + x, y);
                isHatched |= isAbout(colour, qColour(hmonitor::causeColour(cause)));
                if (!isAbout(colour, trace)) continue;
                top = std::min(top, y);
                bottom = y;
            }
            if (cause != history::State::Known) {
                EXPECT_EQ(bottom, -1) << span << ": a curve over a hole in column " << x;
                EXPECT_TRUE(isHatched) << span << ": column " << x;
                ++holes;
                continue;
            }
            ASSERT_NE(bottom, -1) << span << ": no curve in column " << x;
            const double low = std::min(yOf(peakAt(before)), yOf(peakAt(behind)));
            const double high = std::max(yOf(peakAt(before)), yOf(peakAt(behind)));
            EXPECT_GE(top, low - 3) << span << ": column " << x;
            EXPECT_LE(bottom, high + 3) << span << ": column " << x;
            ++read;
        }
        EXPECT_GT(read + holes, box.width() / 5) << span;
        EXPECT_GT(read, 0) << span;
        EXPECT_GT(holes, 0) << span;
    }
}

}  // namespace display::qt
