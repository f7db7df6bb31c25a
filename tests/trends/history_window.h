// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/history/feed.h"
#include "tests/support/rack_bench.h"
#include "trends/form_history.h"

namespace hmonitor::test {

using display::Plot;
using display::PlotKey;
using display::PlotPoint;
using history::State;
using history::test::Feed;
using history::test::indexOf;
using history::test::Inputs;
using history::test::utc;
using history::test::Zone;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// The rack on 2026-05-04 at noon, UTC, with a folder in which a feed has recorded.
class History : public testing::Test {
 protected:
    explicit History(int languageId = RackBench::kEnglish) : bench(languageId) {
        bench.desktop.date = {2026, 5, 4, 1, 12, 0, 0};
    }

    /// Records from so many seconds before noon on.
    std::unique_ptr<Feed> record(std::int64_t seconds) {
        auto feed = std::make_unique<Feed>(folder, noon - seconds);
        feed->tune();
        return feed;
    }
    /// A quarter of an hour that ends at noon, with the pilot at 9 percent and more.
    void recordQuarter() {
        const auto feed = record(900);
        feed->run(900);
        feed->stop();
    }
    void open() {
        form.show();
        bench.settle();
    }
    std::int64_t now() const { return bench.desktop.wallTime().utc.time_since_epoch().count(); }
    void look(std::int64_t from, std::int64_t to) {
        Plot& plot = form.Plot_Figure[0];
        plot.x = display::PlotAxis{display::AxisKind::Moments, from * 1000.0, to * 1000.0};
        plot.onLook();
        bench.settle();
    }
    void choose(std::initializer_list<const char*> keys) {
        for (std::size_t i = 0; i < figures::kCount; ++i)
            if (form.Check_Figure[i].checked) bench.check(form.Check_Figure[i], false);
        for (const char* key : keys) bench.check(form.Check_Figure[indexOf(key)], true);
    }
    const display::PlotSeries& series(std::size_t plot) const {
        return form.Plot_Figure[plot].series().at(0);
    }
    const PlotPoint* pointAt(std::size_t plot, std::int64_t t) const {
        for (const PlotPoint& point : series(plot).points)
            if (point.x == t * 1000.0) return &point;
        return nullptr;
    }
    std::vector<std::string> causes() const {
        std::vector<std::string> words;
        for (std::size_t i = 0; i < Form_History::kCauses; ++i) {
            if (form.CauseSwatch[i].visible) words.push_back(form.Label_Cause[i].caption.get());
        }
        return words;
    }
    std::string exported(const std::string& name) {
        bench.desktop.saveAnswers = {name};
        bench.click(form.Command_Export);
        return bench.desktop.writtenFiles[name];
    }

    Zone zone{"UTC"};
    RackBench bench;
    Form_History& form = bench.forms.formHistory;
    std::filesystem::path folder = bench.scratch.path() / "history";
    std::int64_t noon = utc(2026, 5, 4, 12);
};

}  // namespace hmonitor::test
