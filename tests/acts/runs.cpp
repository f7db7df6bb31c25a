// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/acts/runs.h"

#include <filesystem>

#include "analyzer/session_bytes.h"

namespace hmonitor::test {

namespace {

void framesCome(RunBench& bench, int count) {
    for (int i = 0; i < count; ++i) {
        bench.called.frames.push_back(0);
        bench.called.frames.push_back(1);
    }
}

void openChannelSpectrum(RunBench& bench) {
    bench.hand.doubleClick(bench.formD.PictureGraph1);
    bench.settle();
}

void channelSpectrum(RunBench& bench) {
    openChannelSpectrum(bench);
    bench.click(bench.forms.formD1.Command3D1);
    bench.click(bench.forms.formNewSpectro.Command3D1);
    bench.wait(100);
}

void bandwidth(RunBench& bench) {
    bench.click(bench.formD.Image1);
    framesCome(bench, 2);
    bench.click(bench.forms.formD1a.Command3D1);
    bench.wait(430);
    if (bench.forms.formD1a.Command3D1.caption == "Stop")
        bench.click(bench.forms.formD1a.Command3D1);
    bench.wait(100);
}

void bandScan(RunBench& bench) {
    bench.click(bench.formD.Image2);
    framesCome(bench, 12);
    bench.click(bench.forms.formBandSCanner.Command3D1);
    bench.wait(26 * 250);
}

void choiceOfChannels(RunBench& bench) {
    bench.click(bench.formD.Image2);
    bench.hand.choose(bench.forms.formBandSCanner.Option_Pares);
    bench.settle();
    bench.wait(100);
}

void analyzer(RunBench& bench) {
    bench.click(bench.formD.Image6);
    framesCome(bench, 2);
    // On a unit of points it goes round and round until it is stopped.
    int levels = 0;
    constexpr int kMoreThanARound = 20;
    bench.called.duringSuper = [&](float) {
        if (++levels >= kMoreThanARound && levels % 3 == 0)
            bench.hand.click(bench.forms.formSpectrumAnalizer.butPause_BW);
    };
    bench.click(bench.forms.formSpectrumAnalizer.butStart_BW);
    bench.wait(2300);
    if (bench.forms.formSpectrumAnalizer.butPause_BW.visible)
        bench.click(bench.forms.formSpectrumAnalizer.butPause_BW);
    bench.wait(100);
    bench.called.duringSuper = nullptr;
}

void response(RunBench& bench) {
    bench.click(bench.formD.Image5);
    bench.wait(300);
    for (int i = 0; i < 8; ++i) {
        bench.called.response.frequency[static_cast<std::size_t>(i)] = 100 << i;
        bench.called.response.level[static_cast<std::size_t>(i)] = -10 * i;
    }
    constexpr float kEndMark[] = {11583, 18};
    bench.output(6) = kEndMark[0];
    bench.output(7) = kEndMark[1];
    bench.wait(500);
    bench.output(6) = bench.output(7) = 1;
    bench.wait(300);
    bench.click(bench.formD.Image3);
    bench.wait(100);
}

void tunings(RunBench& bench) {
    bench.set(bench.formB.HScroll1, 106);
    bench.wait(200);
    bench.click(bench.formB.SSCommand1);
    bench.wait(200);
    bench.click(bench.formB.Image2);
    bench.wait(200);
    bench.click(bench.formB.Image1);
    bench.click(bench.form1.Image_Average);
    bench.click(bench.form1.Image6);
    bench.wait(200);
}

void resets(RunBench& bench) {
    for (display::Picture* key :
         {&bench.formC.Image_Reset1, &bench.formC.Image2, &bench.formC.Image3}) {
        bench.click(*key);
        bench.wait(100);
    }
}

using Keys = std::vector<display::Control*>;

Keys noKeys(RunBench&) {
    return {};
}

}  // namespace

RunBench::RunBench(const UnitKind& kind, int languageId)
    : RackBench(languageId, Brand::Marvenia, std::make_unique<CalledDriver>()),
      called(static_cast<CalledDriver&>(driver)) {
    desktop.answerEveryBox = true;
    desktop.modalScripts["FormModoDemo"] = [this](display::Form&) {
        hand.click(forms.formModoDemo.Command1);
    };
    called.hardwareVersion = kind.atStart;
    output(14) = 60;
    called.superLevel = 55;
    // A session of few points, so that its rounds end.
    std::filesystem::create_directory(scratch.path() / "Logs");
    SessionInfo info = newSessionInfo(46347.75);
    info.StartMHz = 88;
    info.StopMHz = 88.2f;
    write("Logs/Short.3Ds", sessionBytes(info, Density{}));
    start();
    called.hardwareVersion = kind.later;
    wait(200);
    takeCalls();
}

std::vector<display::Form*> RunBench::windows() const {
    std::vector<display::Form*> others;
    for (display::Form* form : desktop.forms()) {
        const bool panel = std::ranges::find(program.rack, form) != program.rack.end();
        if (!panel && form->visible) others.push_back(form);
    }
    return others;
}

const std::vector<RunKind>& runKinds() {
    static const std::vector<RunKind> kinds{
        {"ChannelSpectrum", channelSpectrum,
         [](RunBench& bench) {
             return Keys{&bench.forms.formNewSpectro.Command3D1, &bench.forms.formD1.Command3D1,
                         &bench.forms.formD1.Command3D2, &bench.forms.formD1.SSCommand2};
         }},
        {"Bandwidth", bandwidth,
         [](RunBench& bench) {
             return Keys{&bench.forms.formD1a.Command3D1, &bench.forms.formD1a.Command3D2};
         }},
        {"BandScan", bandScan,
         [](RunBench& bench) {
             return Keys{&bench.forms.formBandSCanner.Command3D1,
                         &bench.forms.formBandSCanner.CommandClose,
                         &bench.forms.formBandSCanner.Option_250Khz};
         }},
        {"ChoiceOfChannels", choiceOfChannels,
         [](RunBench& bench) {
             return Keys{&bench.forms.formBandSCanner.Command3D1,
                         &bench.forms.formBandSCanner.CommandClose,
                         &bench.forms.formBandSCanner.Option_All};
         }},
        {"Analyzer", analyzer,
         [](RunBench& bench) {
             return Keys{&bench.forms.formSpectrumAnalizer.butStart_BW,
                         &bench.forms.formSpectrumAnalizer.butPause_BW,
                         &bench.forms.formSpectrumAnalizer.picDelMeasurement};
         }},
        {"Response", response, noKeys},
        {"Tunings", tunings, noKeys},
        {"Resets", resets, noKeys},
    };
    return kinds;
}

}  // namespace hmonitor::test
