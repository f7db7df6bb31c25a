// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/controls/pictures.h"
#include "display/controls/text_field.h"
#include "display/qt/windows/rack_window.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {

/// A panel of a small rack: a handle over its whole width, a key, a picture key and a field.
class Unit final : public Form {
 public:
    Unit(Desktop& desktop, std::string name, float itsTop) : Form(desktop, std::move(name)) {
        firstTop_ = itsTop;
        Key1.onClick = [this] { ++clicks; };
        KeyN.onClick = [this] { ++clicks; };
    }
    void resized() override { ++resizes; }
    bool raisesResizeAtShow() const override { return leads; }
    void closeRequested() override { ++closes; }
    void digitPressed(DigitKey key) override { digits.push_back(key); }

    bool leads = false;
    int resizes = 0;
    int closes = 0;
    int clicks = 0;
    std::vector<DigitKey> digits;
    Panel Handle{*this, "Handle"};
    Key Key1{*this, "Key1"};
    Picture KeyN{*this, "KeyN"};
    TextField Text1{*this, "Text1"};

 protected:
    void layOut() override {
        left = 500.f;
        top = firstTop_;
        width = 6000.f;
        height = 1000.f;
        place(Handle, {0, 0, 6000, 1000}).surface = Surface::Faceplate;
        place(Key1, {3000, 300, 800, 400}).caption = "Go";
        place(KeyN, {4000, 300, 800, 400}).picture = "PeakN";
        place(Text1, {5000, 300, 800, 400}).text = "98.1";
        int tab = 0;
        for (Control* control : std::initializer_list<Control*>{&Key1, &KeyN, &Text1})
            control->tabIndex = ++tab;
    }

 private:
    float firstTop_ = 0;
};

/// Two such panels in one window.
class RackOfTwo : public QtBench {
 protected:
    void SetUp() override {
        desktop->rack({&upper, &lower});
        upper.leads = true;
        upper.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(desktop->rackWindow()));
        lower.load();
        lower.left = upper.left;
        lower.top = upper.top + upper.height;
        lower.show();
        settle();
    }
    Unit upper{*desktop, "upper", 400};
    Unit lower{*desktop, "lower", 0};
};

}  // namespace display::qt
