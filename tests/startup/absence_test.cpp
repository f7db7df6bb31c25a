// SPDX-License-Identifier: GPL-3.0-or-later
// Why no unit answers, from the library over its process to the offer of the demo mode.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/forms.h"
#include "app/library_fault.h"
#include "app/opened_driver.h"
#include "core/files.h"
#include "display/headless/headless_desktop.h"
#include "startup/form_modo_demo.h"
#include "startup/form_wait_load.h"
#include "tests/support/temp_folder.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::StartsWith;
namespace fs = std::filesystem;

/// Nothing asks while a library only says that it has no unit.
struct NoBox final : display::CallBox {
    std::optional<std::size_t> standWhile(const display::MessageBox& box,
                                          const std::vector<std::string>&,
                                          const std::function<bool()>&) override {
        throw display::Unscripted("a box about the library: " + box.text);
    }
};

enum class Runs { InItsProcess, Inside };

/// What the offer of the demo mode tells of a library with such settings.
std::string offered(const char* library, const std::string& settings, int languageId = 0x0409,
                    Runs runs = Runs::InItsProcess) {
    const TempFolder folder;
    for (const auto& entry : fs::directory_iterator(HMONITOR_SOURCE_DIR "/install")) {
        if (entry.is_regular_file()) fs::copy(entry.path(), folder.path());
    }
    fs::copy(library, folder.path() / hm16::libraryName());
    fs::permissions(folder.path() / hm16::libraryName(), fs::perms(0755));
    if (runs == Runs::InItsProcess) fs::create_symlink(HM16_HOST, folder.path() / "hm16-host");
    folder.write("hm-16.ini", settings);
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    std::string told = "no offer";
    {
        display::HeadlessDesktop desktop(languageId);
        desktop.seedRandom(1);
        const Files files{folder.path()};
        OpenedDriver opened(folder.path(), 20s);
        Program program(desktop, opened.library(), files);
        program.LibraryFault = opened.fault();
        NoBox box;
        opened.watchFor(program, box);
        Forms forms(program);
        desktop.modalScripts["FormModoDemo"] = [&](display::Form&) {
            const auto& reason = forms.formModoDemo.Reason;
            told = reason.visible ? reason.caption.get() : "";
            desktop.hand.click(forms.formModoDemo.Command1);
        };
        forms.formWaitLoad.show();
        desktop.advance(100ms);
        opened.library().HM_Terminate();
    }
    fs::current_path(before);
    // Without the marks at which a path may break.
    const std::string mark = "\u200b";
    for (std::size_t at; (at = told.find(mark)) != std::string::npos;) told.erase(at, mark.size());
    return told;
}

constexpr int kSpanish = 0x0c0a;

#if defined(HM16_RECEIVER)

TEST(Absence, AMissingRadioIsNamedInTheOffer) {
    const std::string settings = "source = soapy\nsoapy_device = driver=nowhere\n";
    const std::string english =
        "The radio \"driver=nowhere\" was not found. Check that it is plugged in, that no other "
        "program uses it and that its SoapySDR module is installed.";
    EXPECT_EQ(offered(HM16_RECEIVER, settings), english);
    EXPECT_EQ(offered(HM16_RECEIVER, settings, 0x0409, Runs::Inside), english);
    EXPECT_EQ(offered(HM16_RECEIVER, settings, kSpanish),
              "No se encuentra la radio \"driver=nowhere\". Compruebe que está conectada, que "
              "ningún otro programa la usa y que está instalado su módulo de SoapySDR.");
}

TEST(Absence, SoapySdrThatIsNotThereIsNamedInTheOffer) {
    const std::string settings =
        "source = soapy\nsoapy_device = driver=rtlsdr\nsoapy_library = libNotThere.so\n";
    EXPECT_THAT(offered(HM16_RECEIVER, settings),
                StartsWith("The radio \"driver=rtlsdr\" needs SoapySDR. SoapySDR cannot be loaded: "
                           "libNotThere.so"));
    EXPECT_THAT(
        offered(HM16_RECEIVER, settings, kSpanish),
        StartsWith("La radio \"driver=rtlsdr\" necesita SoapySDR, que no se puede cargar: "));
}

TEST(Absence, ARecordingThatIsNotThereIsNamedInTheOffer) {
    const std::string settings = "source = recording\nfile = nowhere.cu8\nrate_hz = 1200000\n";
    EXPECT_THAT(
        offered(HM16_RECEIVER, settings),
        testing::AllOf(StartsWith("The recording cannot be measured: "), HasSubstr("nowhere.cu8")));
    EXPECT_THAT(offered(HM16_RECEIVER, settings, kSpanish),
                StartsWith("La grabación no se puede medir: "));
}

#endif

TEST(Absence, AWrongSettingIsNamedInTheOffer) {
    EXPECT_THAT(
        offered(HM16_SIMULATED, "\npace = quick\n"),
        testing::AllOf(StartsWith("A setting is wrong: "), HasSubstr("hm-16.ini, line 2: pace")));
    EXPECT_THAT(offered(HM16_SIMULATED, "pace = quick\n", kSpanish),
                StartsWith("Hay un ajuste equivocado: "));
}

TEST(Absence, AUnitThatSaysNothingOfItselfLeavesTheOfferAsItWas) {
    EXPECT_EQ(offered(HM16_SIMULATED, "version = 0\n"), "");
    EXPECT_EQ(offered(HM16_SIMULATED, ""), "no offer");
}

TEST(AbsenceFault, OfARadioWithoutANameShowsNoEmptyName) {
    for (const auto cause : {UnitAbsence::Cause::NoSoapy, UnitAbsence::Cause::NoRadio}) {
        const LibraryFault fault = absenceFault({cause, "", "It is not there."});
        EXPECT_THAT(fault.spanish, StartsWith(cause == UnitAbsence::Cause::NoSoapy
                                                  ? "La radio necesita SoapySDR"
                                                  : "No se encuentra la radio. Compruebe"));
        EXPECT_THAT(fault.english, StartsWith(cause == UnitAbsence::Cause::NoSoapy
                                                  ? "The radio needs SoapySDR."
                                                  : "The radio was not found. Check"));
    }
}

}  // namespace
}  // namespace hmonitor::test
