// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>

namespace display::qt {

/// The process's QApplication, offscreen unless the environment names a platform. Made if there is
/// none, and never deleted: fonts and pictures are used until the process ends.
inline void startApplication() {
    static int argc = 1;
    static char name[] = "hmonitor_test";
    static char* argv[] = {name, nullptr};
    if (qApp) return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    [[maybe_unused]] static const auto* application = new QApplication(argc, argv);
}

}  // namespace display::qt
