// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program with driver libraries from the real loader: the simulated unit, and libraries
// and files that cannot be loaded.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <thread>

#include "all_forms.h"
#include "app/forms.h"
#include "app/library_fault.h"
#include "core/files.h"
#include "core/numbers.h"
#include "display/headless/headless_desktop.h"
#include "drivers/loader/library.h"
#include "program/loaded_driver.h"
#include "tests/support/temp_folder.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

/// A folder as it is installed, with the library that a test puts there, and the program in it.
class InstalledRack {
 public:
    InstalledRack() : before_(fs::current_path()) {
        for (const auto& entry : fs::directory_iterator(HMONITOR_SOURCE_DIR "/install")) {
            if (entry.is_regular_file()) fs::copy(entry.path(), folder.path());
        }
        fs::current_path(folder.path());
        desktop.seedRandom(1);
        desktop.modalScripts["FormModoDemo"] = [this](display::Form&) {
            ++offers;
            desktop.hand.click(forms->formModoDemo.Command1);
        };
    }
    ~InstalledRack() {
        if (library.library) library.library->functions().terminate();
        fs::current_path(before_);
    }

    void put(const fs::path& file) const { fs::copy(file, folder.path() / hm16::libraryName()); }

    std::string file() const { return (folder.path() / hm16::libraryName()).string(); }

    /// As the program does it: a library that cannot be loaded is reported and replaced by one
    /// without functions.
    void start() {
        library = hm16::Library::load(folder.path());
        if (library.library) {
            driver = std::make_unique<LoadedDriver>(
                library.library->functions(), reinterpret_cast<HM16_ExtensionFunction>(
                                                  library.library->extra(HM16_EXTENSION_NAME)));
        } else {
            driver = std::make_unique<NoLibrary>();
        }
        program = std::make_unique<Program>(desktop, *driver, files);
        program->LibraryFault = libraryFault(library);
        forms = std::make_unique<Forms>(*program);
        forms->formWaitLoad.show();
        desktop.advance(100ms);
    }

    void expectDemo() {
        start();
        EXPECT_EQ(offers, 1);
        EXPECT_EQ(program->StationState.DemoMode, "si");
        desktop.advance(2000ms);
        EXPECT_EQ(forms->form1.Label_FieldIntensity.caption, "69.5");
        EXPECT_GT(program->StationState.DemoPeak, 20);
    }

    TempFolder folder;
    display::HeadlessDesktop desktop;
    Files files{folder.path()};
    hm16::LoadResult library;
    std::unique_ptr<DriverLibrary> driver;
    std::unique_ptr<Program> program;
    std::unique_ptr<Forms> forms;
    int offers = 0;

 private:
    fs::path before_;
};

TEST(OnALibrary, TheSimulatedUnitMakesTheInstalledRackLive) {
    InstalledRack rack;
    rack.put(HM16_SIMULATED);
    rack.start();
    EXPECT_EQ(rack.library.fault, "");
    EXPECT_EQ(rack.offers, 0);
    EXPECT_EQ(rack.program->StationState.HardwareVersion, "1.8");
    rack.desktop.advance(200ms);
    // The first memory is a strong stereo station on 98.5 MHz.
    EXPECT_EQ(rack.forms->formB.Label_RadioName.caption, "FAROFM   ");
    EXPECT_EQ(rack.forms->formB.TunedFreq, 985);
    const double field = valueOf(rack.forms->form1.Label_FieldIntensity.caption.get());
    EXPECT_NEAR(field, 88, 2);
    const double modulation = valueOf(rack.forms->form1.Label_FMod_Porcentaje.caption.get());
    EXPECT_GT(modulation, 30);
    EXPECT_LT(modulation, 115);
    EXPECT_TRUE(rack.desktop.boxes.empty());
}

TEST(OnALibrary, ItsSlotsSayWhyAFigureIsNotKnown) {
    InstalledRack rack;
    rack.put(HM16_SIMULATED);
    rack.start();
    DriverDoor& door = rack.program->driver;
    door.HM_Parar();
    door.HM_Normal(876, 0, 0, 0, 0);  // a frequency without a station
    for (int i = 0; i < 5000 && !rack.driver->states(); ++i) {
        std::this_thread::sleep_for(1ms);
        door.HM_Data();
    }
    const Measured measured = door.measured();
    const auto stateOf = [&measured](const char* key) {
        return measured
            .states[static_cast<std::size_t>(figures::find(key) - figures::all().data())];
    };
    EXPECT_EQ(stateOf("field"), figures::State::Known);
    EXPECT_EQ(stateOf("rds_level"), figures::State::NoCarrier) << "by the rule 0 would be known";
    EXPECT_EQ(stateOf("level_left"), figures::State::NoCarrier);
    EXPECT_EQ(stateOf("level_sum"), figures::State::NotMeasured) << "not in this audio mode";
}

TEST(OnALibrary, AUnitOfVersionZeroBringsTheOffer) {
    InstalledRack rack;
    rack.put(HM16_SIMULATED);
    rack.folder.write("hm-16.ini", "version = 0\n");
    rack.expectDemo();
}

TEST(OnALibrary, ALibraryThatFailsToOpenItsUnitBringsTheOffer) {
    InstalledRack rack;
    rack.put(fs::path(HM16_FIXTURES) / "sixteen" / hm16::libraryName());
    rack.expectDemo();
    EXPECT_EQ(rack.library.fault, "");
    EXPECT_EQ(rack.program->LibraryFault.english, "");
    EXPECT_EQ(rack.program->LibraryFault.spanish, "");
}

TEST(OnALibrary, NoLibraryBringsTheOffer) {
    InstalledRack rack;
    rack.expectDemo();
    EXPECT_THAT(rack.library.fault, testing::StartsWith("There is no driver library "));
    EXPECT_EQ(rack.program->LibraryFault.english,
              "There is no driver library " + rack.file() + ".");
    EXPECT_EQ(rack.program->LibraryFault.spanish,
              "No está la biblioteca de la unidad " + rack.file() + ".");
}

TEST(OnALibrary, AFileThatIsNoLibraryBringsTheOffer) {
    InstalledRack rack;
    rack.folder.write(hm16::libraryName(), "a letter, not a library\n");
    rack.expectDemo();
    EXPECT_THAT(rack.library.fault, testing::HasSubstr("cannot be loaded as a driver library: "));
    const LibraryFault& fault = rack.program->LibraryFault;
    EXPECT_THAT(fault.english,
                testing::StartsWith(rack.file() + " cannot be loaded as a driver library: "));
    EXPECT_THAT(
        fault.spanish,
        testing::StartsWith(rack.file() + " no se puede cargar como biblioteca de la unidad: "));
    // The file is named only once.
    EXPECT_EQ(fault.english.rfind(rack.file()), 0u) << fault.english;
}

TEST(OnALibrary, ALibraryThatLacksFunctionsBringsTheOffer) {
    InstalledRack rack;
    rack.put(fs::path(HM16_FIXTURES) / "lacking" / hm16::libraryName());
    rack.expectDemo();
    EXPECT_THAT(rack.library.fault, testing::HasSubstr("it lacks HM_DemoMode, HM_Normal"));
    EXPECT_EQ(rack.program->LibraryFault.english,
              rack.file() +
                  " is no complete driver library; it lacks HM_DemoMode, HM_Normal, HM_Parar and "
                  "11 more.");
    EXPECT_EQ(rack.program->LibraryFault.spanish,
              rack.file() +
                  " no es una biblioteca completa; faltan HM_DemoMode, HM_Normal, HM_Parar y 11 "
                  "más.");
}

TEST(OnALibrary, AUnitThatFallsSilentAfterFiveSecondsIsToldOfAtEight) {
    InstalledRack rack;
    rack.put(HM16_SIMULATED);
    constexpr int kPace = 10;
    rack.folder.write("hm-16.ini", "silent_after = 5\npace = " + std::to_string(kPace) + "\n");
    const auto opened = std::chrono::steady_clock::now();
    rack.start();
    // The rack's clock runs at the unit's speed.
    display::Time passed = 100ms;
    display::Time longestStep = 0ms;
    const auto runTo = [&](display::Time time) {
        while (passed < time) {
            std::this_thread::sleep_for(1ms);
            const auto real = std::chrono::steady_clock::now() - opened;
            const auto unit = std::chrono::duration_cast<display::Time>(real * kPace) - passed;
            if (unit <= display::Time(0)) continue;
            longestStep = std::max(longestStep, unit);
            const display::Time step = std::min(unit, time - passed);
            rack.desktop.advance(step);
            passed += step;
        }
    };
    const display::Picture& sign = rack.forms->form1.sign.words;
    runTo(7s);
    EXPECT_EQ(sign.caption, "");
    // A busy machine delays what the rack hears of the unit's last slot.
    runTo(8300ms + longestStep);
    EXPECT_THAT(std::string(sign.caption.get()), testing::StartsWith("NO DATA "));
}

}  // namespace
}  // namespace hmonitor::test
