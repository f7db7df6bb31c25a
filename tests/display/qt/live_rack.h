// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <memory>

#include "all_forms.h"
#include "app/forms.h"
#include "display/qt/windows/form_view.h"
#include "display/qt/windows/qt_desktop.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {

/// One QApplication for the whole run, offscreen unless the environment names a platform.
inline void startApplication() {
    static int argc = 1;
    static char name[] = "test_accessible";
    static char* argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static const auto* app = new QApplication(argc, argv);
    (void)app;
}

/// The rack on the real desktop with an ordinary station, in the language of a locale.
class LiveRack {
 public:
    explicit LiveRack(const char* locale) {
        startApplication();
        qputenv("LC_ALL", locale);
        folder_.write("hm-16.dat", lines({"1", "0", "0", "1", "0", "0", "0", "0"}));
        folder_.write("normal.hm", lines({"100", "0", "0", "0", "1.000", "0", "0", "2", "90"}));
        folder_.write("Hm-res.dat", lines({"0", "0", "0"}));
        folder_.write("scan.dat", "");
        folder_.write("halden.dat", memoryBlock({{1, "RADIO UNO", "981"}, {3, "TRES", "10255"}}));
        const float ordinary[] = {80,  -10, -12, 45,   2.5f, 1.5f, 9.5f, -60,
                                  -61, 40,  41,  0.5f, 12,   60,   12,   7};
        for (std::size_t i = 0; i < figures::kDataOutputs; ++i) {
            driver.readings.*figures::kOutputs[i] = ordinary[i];
        }
        driver.readings.rdsError = -0.75f;
        driver.readings.rdsLevel = 4.2f;
        desktop_ = std::make_unique<display::qt::QtDesktop>(noArguments_, nullptr);
        desktop_->setFolder(folder_.path());
        program_ = std::make_unique<Program>(*desktop_, driver, files_);
        forms_ = std::make_unique<Forms>(*program_);
        desktop_->rack(
            {&forms_->form1, &forms_->formB, &forms_->formC, &forms_->formD, &forms_->form3});
        forms_->formWaitLoad.show();
    }

    /// Runs the rack until each figure is shown; false after twenty seconds.
    bool measures() {
        return QTest::qWaitFor(
            [this] {
                return forms_->formB.PanelStarted == 1 && forms_->formC.visible &&
                       forms_->form1.meter.MultipathShown && !forms_->formB.PromR.caption.empty() &&
                       !forms_->formC.Label_RDSLevel.caption.empty();
            },
            20000);
    }

    /// The accessible object of that name; if there are two, the figure and not the caption above
    /// it.
    QAccessibleInterface* child(const display::Form& form, const QString& name) {
        QAccessibleInterface* whole = QAccessible::queryAccessibleInterface(desktop_->viewOf(form));
        QAccessibleInterface* last = nullptr;
        for (int i = 0; whole && i < whole->childCount(); ++i) {
            QAccessibleInterface* found = whole->child(i);
            if (!found) continue;
            const QString said = found->text(QAccessible::Name);
            if (said != name && said != name + ": " + found->text(QAccessible::Value)) continue;
            if (!found->text(QAccessible::Value).isEmpty()) return found;
            last = found;
        }
        return last;
    }
    std::string value(const display::Form& form, const char* name) {
        QAccessibleInterface* found = child(form, QString::fromUtf8(name));
        return found ? found->text(QAccessible::Value).toStdString() : "not there";
    }
    Forms& forms() { return *forms_; }
    const std::filesystem::path& folder() const { return folder_.path(); }
    display::qt::FormView& view(const display::Form& form) { return *desktop_->viewOf(form); }

    ScriptedDriver driver;

 private:
    TempFolder folder_;
    Files files_{folder_.path()};
    int noArguments_ = 0;
    std::unique_ptr<display::qt::QtDesktop> desktop_;
    std::unique_ptr<Program> program_;
    std::unique_ptr<Forms> forms_;
};

}  // namespace hmonitor::test
