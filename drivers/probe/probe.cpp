// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/utf8_path.h"
#include "drivers/hm16_report.h"
#include "drivers/loader/library.h"
#include "drivers/probe/probe_figures.h"
#include "drivers/probe/probe_options.h"
#include "drivers/probe/probe_runs.h"

namespace {

using hm16::probe::Options;

int fail(const std::string& sentence) {
    std::cerr << "hm16-probe: " << sentence << '\n';
    return 1;
}

// A library's further reports follow the CSV, each line as a comment.
void printReport(const hm16::Library& library) {
    const auto report = reinterpret_cast<HM16_ReportFunction>(library.extra(HM16_REPORT_NAME));
    std::array<char, 8192> text{};
    if (report == nullptr || report(text.data(), static_cast<int32_t>(text.size())) != 0) {
        std::cout << "# This library has no report.\n";
        return;
    }
    std::string_view rest(text.data());
    while (!rest.empty()) {
        const auto end = rest.find('\n');
        std::cout << "# " << rest.substr(0, end) << '\n';
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
}

std::string runOn(const hm16::Library& library, const Options& options) {
    const HM16_Functions& driver = library.functions();
    // A library that measures a recording as fast as possible can be driven step by step.
    auto step = reinterpret_cast<HM16_StepFunction>(library.extra(HM16_STEP_NAME));
    if (step != nullptr && step(0) != 0) step = nullptr;
    const auto extension =
        reinterpret_cast<HM16_ExtensionFunction>(library.extra(HM16_EXTENSION_NAME));
    if (options.what == hm16::probe::What::Figures)
        return hm16::probe::listFigures(extension, std::cout);
    if (options.what == hm16::probe::What::Slots)
        return hm16::probe::printSlots(driver, extension, step, options, std::cout);
    return hm16::probe::run(driver, step, options, std::cout);
}

int probe(const Options& options) {
    const auto folder = std::filesystem::absolute(options.library);
    std::error_code error;
    std::filesystem::current_path(options.files, error);
    if (error) return fail(base::utf8Of(options.files) + " is no folder: " + error.message() + ".");
    const auto loaded = hm16::Library::load(folder);
    if (!loaded.library) return fail(loaded.fault);
    const HM16_Functions& driver = loaded.library->functions();
    driver.init();
    float version = 0;
    driver.getHardwareVersion(&version);
    std::string fault = "No unit answers (hardware version 0).";
    if (version > 0) {
        driver.setSintoMode(0);
        fault = runOn(*loaded.library, options);
        if (options.report) printReport(*loaded.library);
    }
    driver.parar();
    driver.terminate();
    return fault.empty() ? 0 : fail(fault);
}

}  // namespace

int main(int count, char** words) {
    const std::vector<std::string_view> arguments(words + 1, words + count);
    const auto parsed = hm16::probe::parseArguments(arguments);
    if (parsed.help) {
        std::cout << parsed.message;
        return 0;
    }
    if (!parsed.options) return fail(parsed.message);
    return probe(*parsed.options);
}
