// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/rack_bench.h"

#include <utility>

namespace hmonitor::test {

std::string lines(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) all += text + "\r\n";
    return all;
}

std::string memoryBlock(const std::vector<Memory>& memories) {
    std::string block(300, ' ');
    for (int number = 1; number <= 16; ++number) {
        const auto base = 16 * static_cast<std::size_t>(number);
        block[base] = '-';
        block[base + 10] = '-';
    }
    for (const Memory& memory : memories) {
        const auto base = 16 * static_cast<std::size_t>(memory.number);
        block.replace(base + 1, memory.name.size(), memory.name);
        block.replace(base + 11, memory.frequency.size(), memory.frequency);
    }
    return block;
}

RackBench::RackBench(std::unique_ptr<ScriptedDriver> its)
    : RackBench(kEnglish, Brand::Marvenia, std::move(its)) {}

RackBench::RackBench(int languageId, Brand brand, std::unique_ptr<ScriptedDriver> its)
    : desktop(languageId),
      unit(std::move(its)),
      driver(*unit),
      readings(driver.readings),
      files(scratch.path(), &disk),
      program(desktop, driver, files),
      forms(program, brand),
      form1(forms.form1),
      formB(forms.formB),
      formC(forms.formC),
      formD(forms.formD),
      state(program.StationState),
      hand(desktop.hand) {
    driver.journal = &desktop.journal;
    desktop.workingFolder = scratch.path();
    desktop.seedRandom(1);
    write("hm-16.dat", lines({"1", "0", "0", "1", "0", "0", "0", "0"}));
    write("normal.hm", lines({"100", "0", "0", "0", "1.000", "0", "0", "2", "90"}));
    write("Hm-res.dat", lines({"0", "0", "0"}));
    write("scan.dat", "");
    write(
        "halden.dat",
        memoryBlock({{1, "RADIO UNO", "981"}, {3, "R. TRES", "10255"}, {16, "DIECISEIS", "875"}}));
}

RackBench::~RackBench() = default;

void RackBench::write(std::string_view name, std::string_view bytes) {
    scratch.write(name, bytes);
}

std::string RackBench::read(std::string_view name) const {
    return scratch.read(name);
}

bool RackBench::exists(std::string_view name) const {
    return scratch.has(name);
}

void RackBench::remove(std::string_view name) {
    std::filesystem::remove(scratch.path() / name);
}

void RackBench::showSplash() {
    forms.formWaitLoad.show();
}

void RackBench::start() {
    showSplash();
    advance(std::chrono::milliseconds(100));
}

std::vector<std::string> RackBench::takeCalls() {
    return std::exchange(driver.calls, {});
}

}  // namespace hmonitor::test
