// SPDX-License-Identifier: GPL-3.0-or-later
// The density map: the colour of each cell, and that the map is stored as one mark and not as its
// boxes.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

#include "analyzer/analyzer_graphs.h"
#include "analyzer/sparse_labels.h"
#include "spectrum/class1.h"
#include "tests/analyzer/analyzer_bench.h"

namespace hmonitor::test {
namespace {

TEST(DensityEntry, IsTheShareOfTheSweepsHalvesToEven) {
    // With 5280 sweeps the count equals its share.
    const struct {
        double count;
        int entry;
    } shares[] = {{0, kNotSeen}, {0.999, kNotSeen}, {1, 1},       {1.5, 2},
                  {2.5, 2},      {1279.5, 1280},    {1280, 1280}, {5280, 1280}};
    for (const auto& share : shares)
        EXPECT_EQ(densityEntry(share.count, 5280), share.entry) << share.count;
    EXPECT_EQ(densityEntry(1, 1), 1280) << "one sweep is black";
    EXPECT_EQ(densityEntry(1, 5281), kNotSeen);
    EXPECT_EQ(densityEntry(1, 100), 53);
}

TEST(SparseLabels, LeaveOutWhatWouldTouchTheTextBefore) {
    display::HeadlessDesktop desktop;
    RackBench bench;
    display::PictureBox& box = bench.forms.formSpectrumAnalizer.PictureZoom;
    box.drawing.scale(1, 0);
    SparseLabels canvas(box.drawing, 6);
    const auto print = [&](float x, float y, const char* text) {
        canvas.textX = x;
        canvas.textY = y;
        canvas.print(text);
    };
    // At a height of 120 twips, "88.0" with its gap ends at 302 twips.
    print(0, 10, "88.0 ");
    print(300, 10, "88.5 ");
    print(600, 10, "89.0 ");
    print(300, 200, "on another line");
    std::vector<std::string> texts;
    for (const display::Mark& mark : box.drawing.marks()) texts.push_back(mark.text);
    EXPECT_THAT(texts, testing::ElementsAre("88.0 ", "89.0 ", "on another line"));
    EXPECT_EQ(box.drawing.marks()[0].points, 6);
}

TEST(DensityEntry, WeighsMoreTheMoreCommonItIsButBlackLeast) {
    EXPECT_GT(weightOf(1), weightOf(1280)) << "black on black would hide the rarest level";
    EXPECT_GT(weightOf(2), weightOf(1));
    EXPECT_GT(weightOf(1279), weightOf(1278));
}

class AnalyzerMap : public AnalyzerBench {
 protected:
    /// The cells of the map; null if none was drawn.
    const display::CellMap* map() const {
        const display::CellMap* found = nullptr;
        for (const display::Mark& mark : form.Picture3d.drawing.marks()) {
            if (mark.kind != display::Mark::Kind::Cells) continue;
            EXPECT_EQ(found, nullptr) << "a second map";
            found = mark.map.get();
        }
        return found;
    }
    std::optional<display::Colour> painted(int column, int row) const {
        const auto at = static_cast<std::size_t>(row * map()->grid.columns + column);
        const std::uint32_t pixel = map()->cells.at(at);
        if (pixel == 0) return std::nullopt;
        return display::Colour{(pixel & 0xff) << 16 | (pixel & 0xff00) | (pixel >> 16 & 0xff)};
    }
    /// The colour of column x + 1 at row 99 - level; none where nothing was painted.
    std::optional<display::Colour> shown(int x, int level) const {
        return painted(x + 1, 99 - level);
    }
    std::vector<std::string> axis(const display::PictureBox& box) const {
        std::vector<std::string> texts;
        for (const display::Mark& mark : box.drawing.marks()) {
            if (mark.kind == display::Mark::Kind::Print) texts.push_back(mark.text);
        }
        return texts;
    }
};

TEST_F(AnalyzerMap, OfNoSweepHasItsAxesAlone) {
    store("a.3Ds", 0);
    open();
    EXPECT_EQ(map(), nullptr);
    EXPECT_FALSE(axis(form.Picture3d).empty());
}

TEST_F(AnalyzerMap, WithoutASessionHasItsAxesAlone) {
    open();
    measurement.SessionInfo.Acquisitions = 5;
    measurement.SpectralDensity.set(3, 3, 5);
    form.ShowSpectrum_3D();
    EXPECT_EQ(map(), nullptr);
    measurement.CurrentSessionFile = "a.3Ds";
    form.UpdateSpectrogram();
    EXPECT_EQ(map(), nullptr) << "it needs the graph of the whole view";
    form.ShowSpectrum_3D();
    EXPECT_NE(map(), nullptr);
}

TEST_F(AnalyzerMap, StandsAtItsPlaceWithItsColours) {
    store("a.3Ds", 4);
    open();
    ASSERT_NE(map(), nullptr);
    const display::CellGrid wanted{18, 24, 1, 5, 801, 70};
    EXPECT_EQ(map()->grid, wanted);
    // The stored session has column 5 at 35 dB in every sweep.
    EXPECT_EQ(shown(5, 35), display::kBlack);
    EXPECT_EQ(shown(5, 36), std::nullopt);
}

TEST_F(AnalyzerMap, ShrunkShowsTheMostCommonColourOfEachPlaceAndBlackOnlyWhereNoneStands) {
    store("a.3Ds", 5280);
    open();
    const auto count = [this](int x, double sweeps) {
        measurement.SpectralDensity.set(x, 20, sweeps);
    };
    form.ClearDensity();
    measurement.SessionInfo.Acquisitions = 5280;
    // Each of these pairs comes to stand in one of 400 places.
    count(8, 5280), count(9, 1);
    count(18, 700), count(19, 300);
    count(29, 5280);
    form.ShowSpectrum_3D();
    ASSERT_NE(map(), nullptr);
    constexpr int kWide = 400, kRow = 49;
    const std::vector<std::uint32_t> shrunk = map()->shrunk(kWide, map()->grid.rows);
    const auto at = [&](int place) {
        return shrunk[static_cast<std::size_t>(kRow * kWide + place)];
    };
    const auto pixelOf = [](std::size_t entry) {
        const display::Colour colour = buildPalette()[entry];
        return 0xff000000 | static_cast<std::uint32_t>(colour.red()) << 16 |
               static_cast<std::uint32_t>(colour.green()) << 8 |
               static_cast<std::uint32_t>(colour.blue());
    };
    EXPECT_EQ(at(4), pixelOf(1));
    EXPECT_EQ(at(9), pixelOf(700));
    EXPECT_EQ(at(14), pixelOf(1280));
    EXPECT_EQ(std::ranges::count(shrunk, 0u), 70 * kWide - 3);
}

TEST_F(AnalyzerMap, HasTheColourOfEachCellsShareAndNoneOfColumn800AndRow70) {
    store("a.3Ds", 5280);
    open();
    const DensityColors colors = buildPalette();
    for (int x = 0; x < Density::kColumns; ++x) {
        for (int row = 0; row < Density::kRows; ++row)
            measurement.SpectralDensity.set(x, row, (x * 7 + row * 31) % 500);
    }
    form.ShowSpectrum_3D();
    ASSERT_NE(map(), nullptr);
    for (int x = 0; x < 800; ++x) {
        ASSERT_EQ(painted(0, x % 70), std::nullopt) << "nothing stands in the column before 88";
        for (int row = 0; row < 70; ++row) {
            const auto count = static_cast<std::size_t>((x * 7 + row * 31) % 500);
            if (count == 0) {
                ASSERT_EQ(shown(x, 30 + row), std::nullopt) << x << " " << row;
            } else {
                ASSERT_EQ(shown(x, 30 + row), colors[count]) << x << " " << row;
            }
        }
    }
}

TEST_F(AnalyzerMap, IsOneMarkHoweverOftenItIsDrawn) {
    store("a.3Ds", 4);
    open();
    const std::size_t marks = form.Picture3d.drawing.marks().size();
    for (int i = 0; i < 50; ++i) form.ShowSpectrum_3D();
    EXPECT_EQ(form.Picture3d.drawing.marks().size(), marks);
    EXPECT_LT(marks, 400u);
}

TEST_F(AnalyzerMap, NamesItsAxes) {
    store("a.3Ds", 4);
    open();
    for (const display::PictureBox* box : {&form.Picture3d, &form.PictureZoom}) {
        const auto texts = axis(*box);
        EXPECT_THAT(texts, testing::IsSupersetOf(
                               {"MHz", "dB/uV", "90 ", "40 ", "88.0 ", "98.0 ", "107.0 "}));
    }
    EXPECT_THAT(axis(form.Picture3d), testing::Not(testing::Contains("88.5 ")))
        << "there is no room for it on the map";
    EXPECT_THAT(axis(form.PictureZoom), testing::Contains("88.5 "));
}

class AnalyzerBars : public AnalyzerMap {
 protected:
    std::vector<display::Mark> bars(const std::string& text) {
        store("a.3Ds", 1);
        bench.write("Logs/a.spc", text);
        if (!form.loaded()) open();
        form.ShowSpectrum_SpectralZoom("a.spc");
        std::vector<display::Mark> found;
        for (const display::Mark& mark : form.PictureZoom.drawing.marks()) {
            if (mark.colour == display::Colour{49152}) found.push_back(mark);
        }
        return found;
    }
};

TEST_F(AnalyzerBars, AreThoseOfTheSweepText) {
    std::string text = "800\r\n 25\r\n87.975\r\n";
    for (int i = 0; i <= 800; ++i) text += std::to_string(30 + i % 71) + "\r\n";
    const auto found = bars(text + "\r\n");
    // The file has 801 levels; the reader takes as many as the count says.
    ASSERT_EQ(found.size(), 800u);
    for (std::size_t i = 0; i < found.size(); ++i)
        ASSERT_EQ(found[i].y1, 400.f + 59 * (70 - static_cast<float>(i % 71))) << i;
    EXPECT_EQ(found[0].x1, 310);
    EXPECT_EQ(found[799].x2, 300 + 800 * 20);
}

TEST_F(AnalyzerBars, EndWithTheLevelsThatAreThere) {
    EXPECT_EQ(bars("800\r\n 25\r\n89.975\r\n50\r\n60\r\n\r\n").size(), 2u);
    EXPECT_EQ(bars("800\r\n 25\r\n").size(), 0u);
}

TEST_F(AnalyzerBars, TakeTheirColumnsFromTheCount) {
    const auto found = bars("40\r\n 25\r\n87.975\r\n50\r\n\r\n");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].x2 - found[0].x1, 401 - 10);
}

TEST_F(AnalyzerBars, OfAFileThatIsNoSweepAreNone) {
    for (const char* text : {"", "x", "0\r\n0\r\n0\r\n", "-5\r\n25\r\n88\r\n50\r\n"})
        EXPECT_EQ(bars(text).size(), 0u) << text;
    EXPECT_FALSE(axis(form.PictureZoom).empty());
}

}  // namespace
}  // namespace hmonitor::test
