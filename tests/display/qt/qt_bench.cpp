// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/display/qt/qt_bench.h"

#include <QDir>
#include <algorithm>

#include "tests/display/qt/application.h"

namespace display::qt {

QtBench::QtBench() {
    startApplication();
    int argc = 0;
    desktop = std::make_unique<QtDesktop>(argc, nullptr);
    sample = std::make_unique<test::SampleForm>(*desktop);
}

QtBench::~QtBench() = default;

bool QtBench::until(const std::function<bool()>& holds) {
    return QTest::qWaitFor(holds, 5000);
}

void QtBench::settle() {
    // Changes that no event caused are drawn only if a frame is requested.
    desktop->frameSoon();
    QTest::qWait(80);
}

void QtBench::showSample() {
    sample->show();
    QWidget* window = view(*sample).window();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    QApplication::setActiveWindow(window);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    settle();
    sample->heard.clear();
}

FormView& QtBench::view(const Form& form) {
    FormView* shown = desktop->viewOf(form);
    if (!shown) throw std::logic_error("not on the screen: " + form.name());
    return *shown;
}

QWidget& QtBench::widget(const Control& control) {
    QWidget* found = view(control.form()).widgetOf(control);
    if (!found) throw std::logic_error("no widget for " + control.name());
    return *found;
}

QPoint QtBench::middle(const Control& control) {
    return view(control.form()).scale().snapped(control.boxOnForm()).center().toPoint();
}

void QtBench::keep(const Form& form, const QString& name) {
    QDir().mkpath("pictures");
    view(form).window()->grab().save("pictures/" + name + ".png");
}

int QtBench::times(std::string_view heard) const {
    return static_cast<int>(std::ranges::count(sample->heard, heard));
}

}  // namespace display::qt
