// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the benchmarks of one file on Qt's offscreen platform.
#include <benchmark/benchmark.h>

#include <QApplication>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
