// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <functional>
#include <memory>

#include "display/qt/windows/form_view.h"
#include "display/qt/windows/qt_desktop.h"
#include "tests/display/sample_form.h"

namespace display::qt {

/// The sample form on the real desktop, driven by real mouse and keyboard events. Runs on Qt's
/// offscreen platform unless the environment names another.
class QtBench : public testing::Test {
 protected:
    QtBench();
    ~QtBench() override;

    /// Shows the sample form and waits until it is exposed.
    void showSample();
    /// Processes events until the condition holds; false after five seconds.
    static bool until(const std::function<bool()>& holds);
    /// Processes posted events, so that they reach the model and the screen.
    void settle();

    QWidget& widget(const Control& control);
    FormView& view(const Form& form);
    /// The middle of a control on its view, in pixels.
    QPoint middle(const Control& control);
    /// Saves a picture of the form beside the test's other output.
    void keep(const Form& form, const QString& name);
    int times(std::string_view heard) const;

    std::unique_ptr<QtDesktop> desktop;
    std::unique_ptr<test::SampleForm> sample;
};

}  // namespace display::qt
