// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_d.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/memory_block.h"
#include "core/numbers.h"
#include "core/panel_settings.h"
#include "panels/audio/form_b.h"
#include "panels/modulation/form1.h"
#include "panels/quality/form_c.h"
#include "program/page_file.h"
#include "program/report_fault.h"
#include "program/station_line.h"
#include "program/tuner.h"

namespace hmonitor {

void Form1::bindKeys() {
    Image_Average.onPress = [this] {
        if (RetuneOnMode != 1) {
            RetuneOnMode = 1;
            return;
        }
        Image_Average.picture = "msA";
        Image6.picture = "PeakN";
        selectDetector("1");
        driver.HM_Parar();
        program.Form_B->cambfre();
    };
    Image6.onPress = [this] {
        if (RetuneOnMode != 1) {
            RetuneOnMode = 1;
            return;
        }
        Image6.picture = "PeakA";
        Image_Average.picture = "msN";
        selectDetector("0");
        program.Form_B->cambfre();
    };
    // The band is FM only; the key does nothing.
    SSbAMmode.onClick = [] {};
    bindKey(Image7, "MinN", "MinA", [this] { Command9(); });
    bindKey(Image9, "MinN", "MinA", [this] { printRack(); });
    bindKey(KeyPdf, "MinN", "MinA", [this] { saveRack(); });
    bindKey(Image_Power, "PowerN", "PowerA", [this] { powerOff(); });

    bindRackHandle(Picture3.onMouseDown, Picture3.onMouseMove);
    Picture3.onDoubleClick = [this] { showVersion(); };
}

void Form1::digitPressed(display::DigitKey key) {
    constexpr int kPlain = 10;
    constexpr int kShifted = MemoryBlock::kMemories - kPlain;
    if (program.tuner->PanelStarted == 0 || (key.shift && key.place > kShifted)) return;
    program.Form_B->tuneMemory(key.shift ? kPlain + key.place : key.place);
}

void Form1::selectDetector(std::string_view line6) {
    report(desktop(), rewritePanelLine(program.files, PanelLine::Detector, line6));
}

void Form1::showVersion() {
    float hardware = 0;
    driver.HM_getHardwareVersion(hardware);
    program.words.gHardwareVersion = hardware;
    float library = hardware;
    driver.HM_getDriverVersion(library);
    desktop().messageBox({program.words.gModel.str(),
                          "Software Version: 4.5\nDriver Version: " + longText(library).str() +
                              "\nHardware Version: " + longText(hardware).str(),
                          display::BoxIcon::Information});
}

std::vector<const display::Form*> Form1::wholeRack() const {
    return {this, &program.Form_B.peek(), &program.Form_C.peek(), &program.Form_D.peek()};
}

void Form1::saveRack() {
    savePageAsPdf(program, language, {stationLine(program), "Rack"},
                  [this] { return desktop().pdfOfImage(wholeRack()); });
}

void Form1::printRack() {
    const std::string fault = desktop().printImage(wholeRack());
    if (fault.empty()) return;
    desktop().messageBox({program.words.gModel.str(), fault, display::BoxIcon::Critical});
}

void Form1::powerOff() {
    driver.HM_Parar();
    // Even if the file cannot be written, the power key ends the program.
    warn(desktop(), storePreset());
    driver.HM_Terminate();
    desktop().end();
}

std::optional<FileFault> Form1::storePreset() const {
    return rewritePanelLine(program.files, PanelLine::MemoryPreset, StationState.MemoryNumber);
}

void Form1::endAsked() {
    driver.HM_Parar();
    saveAsked();
    driver.HM_Terminate();
    desktop().end();
}

void Form1::saveAsked() {
    // Until the rack measures, the stored preset is the one to keep.
    if (!desktop().queue().gateOpen()) return;
    if (const auto fault = storePreset()) desktop().tellStarter(fault->sentence);
}

void Form1::closeRequested() {
    powerOff();
}

}  // namespace hmonitor
