// SPDX-License-Identifier: GPL-3.0-or-later
// Every caption of every window fits its control, measured in the font in which it is painted.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFontMetricsF>
#include <QRadioButton>
#include <algorithm>

#include "display/chart.h"
#include "display/controls/control_visitor.h"
#include "display/qt/painting/fonts.h"
#include "display/qt/painting/key_cap.h"
#include "display/qt/painting/scale.h"
#include "display/qt/widgets/control_widget.h"
#include "tests/display/qt/application.h"
#include "tests/support/rack_bench.h"

namespace display::qt {
namespace {

/// At the natural size, with one device pixel for each pixel; larger and sharper scales round less.
const Scale kScale(0.1, 1);
/// Half a pixel of rounding.
constexpr qreal kSlack = 0.5;

/// Controls that are never visible: the mark that stands for the brand.
constexpr const char* kHidden[] = {"Form_WaitLoad.Check1"};

bool isHidden(const Control& control) {
    const std::string name = control.form().name() + "." + control.name();
    return std::ranges::find(kHidden, name) != std::end(kHidden);
}

/// Collects what does not fit on a control, as sentences.
class Fit final : public ControlVisitor {
 public:
    Fit(Control& control, std::vector<std::string>& faults) : control_(control), faults_(faults) {
        const Box box = control.boxOnForm();
        width_ = kScale.px(box.width);
        height_ = kScale.px(box.height);
        control.accept(*this);
    }

    void visit(Label& label) override {
        const QString text = qText(label.caption);
        if (text.isEmpty()) return;
        const Font& font = label.font;
        const QFontMetricsF metrics(
            Fonts::get().font(kScale.px(font.size), font.weight, font.spaced));
        if (label.wraps || text.contains('\n')) {
            const int flags = Qt::AlignLeft | (label.wraps ? Qt::TextWordWrap : 0);
            const QRectF needed = metrics.boundingRect(QRectF(0, 0, width_, height_), flags, text);
            expect(text, needed.width(), width_, "wide");
            expect(text, needed.height(), height_, "high");
        } else {
            expect(text, metrics.horizontalAdvance(text), width_, "wide");
        }
    }
    void visit(Panel& panel) override {
        const QString text = qText(panel.caption);
        const QFontMetricsF metrics(Fonts::get().font(14, Weight::Bold));
        if (!text.isEmpty()) expect(text, metrics.horizontalAdvance(text), width_ - 8, "wide");
    }
    void visit(Key& key) override { expectOnCap(qText(key.caption)); }
    void visit(Picture& key) override { expectOnCap(qText(key.caption)); }
    void visit(CheckBox& box) override { expectBeside<QCheckBox>(qText(box.caption)); }
    void visit(Option& option) override { expectBeside<QRadioButton>(qText(option.caption)); }
    void visit(ComboBox& box) override {
        QComboBox shown;
        shown.setFont(Fonts::get().font(kScale.px(125), Weight::Normal));
        for (const std::string& row : box.list.rows()) shown.addItem(QString::fromStdString(row));
        if (shown.count() > 0) expect("its rows", shown.sizeHint().width(), width_, "wide");
    }
    void visit(Tabs& tabs) override {
        constexpr qreal kPadding = 16;
        const QFontMetricsF metrics(Fonts::get().font(kScale.px(125), Weight::Normal));
        const auto count = static_cast<qreal>(tabs.pages().size());
        for (const Tabs::Page& page : tabs.pages()) {
            const QString text = QString::fromStdString(page.caption);
            expect(text, metrics.horizontalAdvance(text) + kPadding, width_ / count, "wide");
        }
    }
    void visit(TextField& field) override {
        constexpr qreal kPadding = 8;
        const Font& font = field.font;
        const QFontMetricsF metrics(Fonts::get().font(kScale.px(font.size), font.weight));
        const QString text = qText(field.text.get());
        if (text.isEmpty()) return;
        expect(text, metrics.horizontalAdvance(text) + kPadding, width_, "wide");
        expect(text, metrics.ascent() + metrics.descent(), height_, "high");
    }
    void visit(Line&) override {}
    void visit(Shape&) override {}
    void visit(PictureBox&) override {}
    void visit(ListBox&) override {}
    void visit(ScrollBar&) override {}
    void visit(Chart&) override {}
    void visit(PagePreview&) override {}
    void visit(Plot&) override {}

 private:
    void expect(const QString& text, qreal needed, qreal has, const char* way) {
        if (needed <= has + kSlack) return;
        faults_.push_back(control_.form().name() + "." + control_.name() + " \"" + utf8(text) +
                          "\" is " + std::to_string(qRound(needed)) + " " + way + " in " +
                          std::to_string(qRound(has)));
    }
    /// A key cap paints words smaller that are too wide; below this size they cannot be read.
    void expectOnCap(const QString& text) {
        constexpr qreal kSmallest = 9;
        QString shown = text;
        shown.remove('&');
        if (shown.isEmpty()) return;
        expect(text, kSmallest, capTextHeight(QSizeF(width_, height_), 1, shown), "high");
    }
    template <class Button>
    void expectBeside(const QString& text) {
        Button button;
        button.setFont(Fonts::get().font(kScale.px(120), Weight::Normal));
        button.setText(text);
        if (!text.isEmpty()) expect(text, button.sizeHint().width(), width_, "wide");
    }

    Control& control_;
    std::vector<std::string>& faults_;
    qreal width_ = 0, height_ = 0;
};

class Measured : public testing::Test {
 protected:
    Measured() { startApplication(); }
};

/// In the language of the parameter.
class Captions : public Measured, public testing::WithParamInterface<int> {};

TEST_P(Captions, FitTheirControlsInEveryWindow) {
    ASSERT_TRUE(Fonts::get().found());
    hmonitor::test::RackBench bench(GetParam());
    bench.start();
    int captions = 0;
    for (Form* form : bench.desktop.forms()) {
        form->load();
        std::vector<std::string> faults;
        for (Control* control : form->controls()) {
            if (!isHidden(*control)) Fit(*control, faults);
            ++captions;
        }
        EXPECT_THAT(faults, testing::IsEmpty()) << form->name();
    }
    EXPECT_GT(captions, 500);
}

INSTANTIATE_TEST_SUITE_P(Languages, Captions,
                         testing::Values(hmonitor::test::RackBench::kSpanish,
                                         hmonitor::test::RackBench::kEnglish,
                                         hmonitor::test::RackBench::kPortuguese));

TEST_F(Measured, AWordThatDoesNotFitIsTold) {
    hmonitor::test::RackBench bench;
    bench.start();
    display::Label& label = bench.forms.formTuner.Label1;
    bench.forms.formTuner.load();
    label.caption = "a caption that is far too long for the window that it stands in";
    std::vector<std::string> faults;
    Fit(label, faults);
    EXPECT_EQ(faults.size(), 1u);
}

}  // namespace
}  // namespace display::qt
