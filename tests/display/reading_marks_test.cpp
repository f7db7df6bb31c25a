// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/reading_marks.h"

#include <gmock/gmock.h>

#include "display/headless/headless_desktop.h"
#include "tests/display/sample_form.h"

namespace display::test {

using testing::ElementsAre;
using testing::IsEmpty;
using Step = ReadingMarks::Step;

/// A chart of two columns whose three rows are 88.1, 88.3 and 88.5 MHz, each row 100 twips wide.
class Marks : public testing::Test {
 protected:
    Marks() {
        form.show();
        Chart& chart = form.Chart1;
        chart.width = 320.f;
        chart.height = 120.f;
        chart.insets = Chart::Insets{10, 10, 10, 10};
        chart.lowest = 0.f;
        chart.highest = 100.f;
        chart.rowCount(3);
        chart.columnCount(2);
        values = {{20, 80}, {40, 60}, {50, 55}};
        chart.numbers = [this] { return table(); };
    }
    NumberTable table() {
        NumberTable table;
        table.columns = {{"Frequency", "MHz"}, {"Level", "dBuV"}, {"Held", "dBuV"}};
        for (std::size_t row = 0; row < values.size(); ++row) {
            std::vector<std::string> cells{"88." +
                                           std::string(1, static_cast<char>('1' + 2 * row))};
            for (std::size_t column = 0; column < 2; ++column) {
                const int value = values[row][column];
                cells.push_back(std::string{static_cast<char>('0' + value / 10),
                                            static_cast<char>('0' + value % 10)});
                table.spots.push_back(
                    {row, column + 1,
                     form.Chart1.barMiddle(static_cast<int>(row) + 1, static_cast<int>(column) + 1),
                     static_cast<double>(value)});
            }
            table.rows.push_back(std::move(cells));
        }
        return table;
    }
    std::string first() { return marks.lines().empty() ? "" : marks.lines().front(); }

    HeadlessDesktop desktop;
    SampleForm form{desktop};
    std::vector<std::array<int, 2>> values;
    ReadingMarks marks{form.Chart1};
};

TEST_F(Marks, OfADrawingThatTellsNoPlacesAreNone) {
    form.Chart1.numbers = [] { return NumberTable{"Title", "", {{"Level", "dB"}}, {{"3"}}, {}}; };
    EXPECT_FALSE(marks.any());
    marks.point({10, 10});
    EXPECT_FALSE(marks.step(Step::Right));
    EXPECT_EQ(marks.at(), std::nullopt);
    EXPECT_THAT(marks.lines(), IsEmpty());
}

TEST_F(Marks, GoToTheNumberThatIsNearestSideways) {
    marks.point({45, 100});
    EXPECT_EQ(first(), "88.1 MHz: Level 20 dBµV");
    // The bars of a row are 42 twips apart: at 39 and 81.
    EXPECT_EQ(marks.at(), (Place{39, 90}));
    marks.point({81, 100});
    EXPECT_EQ(first(), "88.1 MHz: Held 80 dBµV");
    EXPECT_EQ(marks.at(), (Place{81, 30}));
    marks.point({5000, -20});
    EXPECT_EQ(first(), "88.5 MHz: Held 55 dBµV");
    EXPECT_EQ(marks.row(), 2u);
    marks.leave();
    EXPECT_EQ(marks.at(), std::nullopt);
    EXPECT_EQ(marks.row(), std::nullopt);
}

TEST_F(Marks, GoOnByTheArrowKeys) {
    EXPECT_TRUE(marks.step(Step::Right)) << "the first number";
    EXPECT_EQ(first(), "88.1 MHz: Level 20 dBµV");
    EXPECT_FALSE(marks.step(Step::Left));
    marks.step(Step::Right), marks.step(Step::Right);
    EXPECT_EQ(first(), "88.3 MHz: Level 40 dBµV");
    EXPECT_TRUE(marks.step(Step::FarRight));
    EXPECT_EQ(first(), "88.5 MHz: Held 55 dBµV");
    EXPECT_FALSE(marks.step(Step::FarRight));
    EXPECT_TRUE(marks.step(Step::First));
    EXPECT_EQ(first(), "88.1 MHz: Level 20 dBµV");
    EXPECT_TRUE(marks.step(Step::Last));
    EXPECT_EQ(first(), "88.5 MHz: Held 55 dBµV");
    EXPECT_FALSE(marks.step(Step::Up)) << "nothing stands over it";
}

TEST_F(Marks, GoUpAndDownWhereNumbersStandOverOneAnother) {
    form.Chart1.numbers = [this] {
        NumberTable all = table();
        for (NumberTable::Spot& spot : all.spots) spot.x = 1.0 + static_cast<double>(spot.row);
        return all;
    };
    form.Chart1.touch();
    marks.point({60, 0});
    EXPECT_EQ(first(), "88.1 MHz: Held 80 dBµV") << "the nearer one in height";
    EXPECT_TRUE(marks.step(Step::Down));
    EXPECT_EQ(first(), "88.1 MHz: Level 20 dBµV");
    EXPECT_FALSE(marks.step(Step::Down));
    marks.step(Step::Right);
    EXPECT_EQ(first(), "88.3 MHz: Level 40 dBµV");
    EXPECT_TRUE(marks.step(Step::Up));
    EXPECT_EQ(first(), "88.3 MHz: Held 60 dBµV");
}

TEST_F(Marks, TwoOfThemTellTheirDifference) {
    marks.point({39, 0});
    marks.fix();
    EXPECT_THAT(marks.lines(), ElementsAre("88.1 MHz: Level 20 dBµV")) << "one place";
    marks.step(Step::Last);
    EXPECT_THAT(marks.lines(),
                ElementsAre("88.5 MHz: Held 55 dBµV", "Mark: 88.1 MHz: Level 20 dBµV",
                            "Difference: +0.4 MHz: +35 dB"));
    EXPECT_EQ(marks.fixedAt(), (Place{39, 90}));
    marks.leave();
    EXPECT_EQ(marks.fixedAt(), (Place{39, 90})) << "it stays";
    marks.point({39, 0});
    marks.fix();
    EXPECT_EQ(marks.fixedAt(), std::nullopt) << "taken away where it stands";
    form.language = Language::Spanish;
    marks.fix();
    marks.step(Step::Last);
    EXPECT_EQ(marks.lines()[1], "Marca: 88.1 MHz: Level 20 dBµV");
    EXPECT_EQ(marks.lines()[2], "Diferencia: +0.4 MHz: +35 dB");
    marks.clear();
    EXPECT_EQ(marks.fixedAt(), std::nullopt);
}

TEST_F(Marks, StayAtTheirPlaceWhileTheDrawingGoesOn) {
    marks.point({39, 0});
    marks.fix();
    marks.step(Step::Last);
    values = {{25, 80}, {40, 60}, {50, 45}};
    form.Chart1.touch();
    EXPECT_EQ(marks.lines()[0], "88.5 MHz: Held 45 dBµV");
    EXPECT_EQ(marks.lines()[2], "Difference: +0.4 MHz: +20 dB");
    values.pop_back();
    form.Chart1.touch();
    EXPECT_EQ(marks.at(), std::nullopt) << "its number is gone";
    EXPECT_TRUE(marks.fixedAt());
}

TEST_F(Marks, AskForTheNumbersOnceForEachChange) {
    int asked = 0;
    form.Chart1.numbers = [&] {
        ++asked;
        return table();
    };
    marks.point({39, 0});
    marks.point({90, 0});
    marks.lines();
    EXPECT_EQ(asked, 1);
    form.Chart1.touch();
    marks.lines();
    EXPECT_EQ(asked, 2);
}

TEST_F(Marks, ChangeNothingOfTheDrawing) {
    marks.any();
    const std::uint64_t before = form.clock();
    marks.point({39, 0});
    marks.fix();
    marks.step(Step::Last);
    marks.lines();
    EXPECT_EQ(form.clock(), before);
    EXPECT_THAT(desktop.journal, ElementsAre("show SampleForm"));
}

TEST_F(Marks, PickARowOfTheTable) {
    std::vector<std::size_t> picked;
    form.Chart1.onPick = [&](std::size_t row) { picked.push_back(row); };
    desktop.queue().openGate();
    desktop.hand.pick(form.Chart1, 2);
    desktop.settle();
    EXPECT_THAT(picked, ElementsAre(2u));
    form.enabled = false;
    desktop.hand.pick(form.Chart1, 1);
    desktop.settle();
    EXPECT_THAT(picked, ElementsAre(2u)) << "not on a form that is disabled";
}

TEST(PlacesOfDrawings, OfAPictureBoxAreUnitsOfItsScale) {
    HeadlessDesktop desktop;
    SampleForm form(desktop);
    form.show();
    form.PictureBox1.drawing.scale(15, 0);
    EXPECT_EQ(form.PictureBox1.placeOf(10, 4), (Place{150, 60}));
}

}  // namespace display::test
