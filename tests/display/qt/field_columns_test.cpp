// SPDX-License-Identifier: GPL-3.0-or-later
// Text fields below one another with labels in front of them, at every scale.
#include <QImage>
#include <cmath>

#include "display/qt/widgets/field_columns.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {
namespace {

/// Four rows with the steps and sizes of a panel, and two fields that form no column.
class FieldsForm final : public Form {
 public:
    explicit FieldsForm(Desktop& desktop, float step = 258)
        : Form(desktop, "FieldsForm"), step_(step) {}

    Label Label1{*this, "Label1"}, Label2{*this, "Label2"}, Label3{*this, "Label3"},
        Label4{*this, "Label4"}, Apart{*this, "Apart"};
    TextField Text1{*this, "Text1"}, Text2{*this, "Text2"}, Text3{*this, "Text3"},
        Text4{*this, "Text4"}, Pair1{*this, "Pair1"}, Pair2{*this, "Pair2"};
    Label* labels[4] = {&Label1, &Label2, &Label3, &Label4};
    TextField* fields[4] = {&Text1, &Text2, &Text3, &Text4};

 protected:
    void layOut() override {
        width = 3000;
        height = 1300;
        for (int i = 0; i < 4; ++i) {
            const float y = 230 + step_ * static_cast<float>(i);
            place(*labels[i], {100, y + 40, 1300, 170}).caption = "Level:";
            place(*fields[i], {1440, y, 700, 240});
        }
        place(Apart, {2200, 900, 700, 170}).caption = "Level:";
        place(Pair1, {2200, 230, 700, 240});
        place(Pair2, {2200, 511, 700, 240});
    }

 private:
    float step_;
};

class FieldColumnsOf : public QtBench {
 protected:
    FieldColumnsOf() { form.load(); }
    FieldsForm form{*desktop};
};

TEST_F(FieldColumnsOf, AColumn_HasOneStepAndOneHeightAtEveryScale) {
    for (const qreal ratio : {1.0, 1.25, 1.5, 2.0}) {
        for (qreal factor = 0.05; factor <= 0.145; factor += 0.0007) {
            const Scale scale(factor, ratio);
            FieldColumns columns;
            columns.find(form, scale);
            const QRect first = *columns.boxOf(form.Text1);
            const int step = columns.boxOf(form.Text2)->top() - first.top();
            EXPECT_LE(first.height(), step);
            for (int i = 0; i < 4; ++i) {
                const QRect& box = *columns.boxOf(*form.fields[i]);
                EXPECT_EQ(box, first.translated(0, i * step)) << factor << " at " << ratio;
                const QRect alone = scale.whole(form.fields[i]->boxOnForm());
                EXPECT_LE(std::abs(box.top() - alone.top()), scale.grid());
                // The middles of a field and its label stay at the same height.
                const Box label = form.labels[i]->boxOnForm();
                const qreal middle = scale.snapped(scale.px(label.top)) +
                                     columns.shiftOf(*form.labels[i]) + scale.px(label.height) / 2;
                const qreal above =
                    scale.px(label.top + label.height / 2 - form.fields[i]->top - 120);
                EXPECT_NEAR(middle - above, box.top() + box.height() / 2.0, 0.5 / ratio + 1e-6);
            }
        }
    }
}

TEST_F(FieldColumnsOf, WhatIsNoColumn_StaysWhereItIs) {
    FieldColumns columns;
    columns.find(form, Scale(0.0987, 1.25));
    EXPECT_EQ(columns.boxOf(form.Pair1), nullptr);
    EXPECT_EQ(columns.boxOf(form.Pair2), nullptr);
    EXPECT_EQ(columns.shiftOf(form.Apart), 0);
    EXPECT_NE(columns.boxOf(form.Text3), nullptr);
}

TEST_F(FieldColumnsOf, OnTheScreen_EveryRowIsTheSamePicture) {
    // Steps as screens of other sizes have them.
    for (const float step : {258.f, 261.f, 263.f, 266.f, 271.f}) {
        FieldsForm shown(*desktop, step);
        shown.show();
        ASSERT_TRUE(until([&] { return desktop->viewOf(shown) && view(shown).paints() > 0; }));
        const QImage whole = view(shown).grab().toImage();
        const qreal ratio = whole.devicePixelRatio();
        auto rowOf = [&](int i) {
            const QRect box =
                view(shown).widgetOf(*shown.fields[static_cast<std::size_t>(i)])->geometry();
            const QRectF row(0, box.top() * ratio, (box.right() + 1) * ratio, box.height() * ratio);
            return whole.copy(row.toRect());
        };
        for (int i = 1; i < 4; ++i) {
            EXPECT_TRUE(rowOf(i) == rowOf(0)) << i << " at steps of " << step;
        }
    }
}

}  // namespace
}  // namespace display::qt
