// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program with a library that crashes or hangs in its own process.
#include "app/library_watch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <fstream>
#include <functional>
#include <thread>

#include "app/forms.h"
#include "app/opened_driver.h"
#include "core/files.h"
#include "display/headless/headless_desktop.h"
#include "panels/audio/form_b.h"
#include "panels/modulation/form1.h"
#include "startup/form_modo_demo.h"
#include "startup/form_wait_load.h"
#include "tests/support/temp_folder.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::EndsWith;
using testing::HasSubstr;
namespace files = std::filesystem;

constexpr int kSpanishOfSpain = 0x0c0a;

/// Answers with the key that a test names, or waits until the call is over ("over").
struct ScriptedBox final : display::CallBox {
    std::vector<display::MessageBox> boxes;
    std::deque<std::string> answers;
    std::function<void()> meanwhile;

    std::optional<std::size_t> standWhile(const display::MessageBox& box,
                                          const std::vector<std::string>& keys,
                                          const std::function<bool()>& over) override {
        boxes.push_back(box);
        if (answers.empty()) throw display::Unscripted("a box about the library: " + box.text);
        const std::string answer = answers.front();
        answers.pop_front();
        if (meanwhile) meanwhile();
        if (answer == "over") {
            while (!over()) std::this_thread::sleep_for(1ms);
            return std::nullopt;
        }
        const auto key = std::ranges::find(keys, answer);
        if (key == keys.end()) throw display::Unscripted("a key that is not there: " + answer);
        return static_cast<std::size_t>(key - keys.begin());
    }
};

/// A folder as it is installed, with a library that misbehaves as it is told.
class WatchedRack {
 public:
    explicit WatchedRack(const std::string& wrong, int languageId = 0x0409)
        : desktop(languageId), before_(files::current_path()) {
        for (const auto& entry : files::directory_iterator(HMONITOR_SOURCE_DIR "/install")) {
            if (entry.is_regular_file()) files::copy(entry.path(), folder.path());
        }
        files::copy(HM16_TOLD, folder.path() / hm16::libraryName());
        files::permissions(folder.path() / hm16::libraryName(), files::perms(0755));
        files::create_symlink(HM16_HOST, folder.path() / "hm16-host");
        folder.write("wrong.txt", wrong);
        files::current_path(folder.path());
        desktop.seedRandom(1);
        desktop.modalScripts["FormModoDemo"] = [this](display::Form&) {
            ++offers;
            offered = forms->formModoDemo.Reason.caption.get();
            desktop.hand.click(forms->formModoDemo.Command1);
        };
    }
    ~WatchedRack() { files::current_path(before_); }

    void start() {
        opened = std::make_unique<OpenedDriver>(folder.path(), patience);
        program = std::make_unique<Program>(desktop, opened->library(), itsFiles);
        program->LibraryFault = opened->fault();
        opened->watchFor(*program, box);
        if (listener) program->driver.listeners().join(*listener);
        forms = std::make_unique<Forms>(*program);
        forms->formWaitLoad.show();
        desktop.advance(2000ms);
    }

    std::string file() const { return (folder.path() / hm16::libraryName()).string(); }
    bool measures() const { return program->Form_B->Timer2.enabled && !desktop.ended(); }
    /// The first line of the settings, the preset.
    std::string preset() const {
        const std::string bytes = folder.read("hm-16.dat");
        return bytes.substr(0, bytes.find('\r'));
    }

    TempFolder folder;
    std::chrono::milliseconds patience = 20s;
    display::HeadlessDesktop desktop;
    ScriptedBox box;
    DoorListener* listener = nullptr;  ///< at the driver door
    Files itsFiles{folder.path()};
    std::unique_ptr<OpenedDriver> opened;
    std::unique_ptr<Program> program;
    std::unique_ptr<Forms> forms;
    int offers = 0;
    std::string offered;

 private:
    files::path before_;
};

/// Without the marks at which a line may break.
std::string plain(std::string text) {
    const std::string mark = "\u200b";
    for (std::size_t at; (at = text.find(mark)) != std::string::npos;) text.erase(at, mark.size());
    return text;
}

TEST(LibraryWatch, ACrashInTheOpeningBringsTheOfferWithItsSentence) {
    WatchedRack rack("crash HM_Init");
    rack.start();
    EXPECT_EQ(rack.offers, 1);
    EXPECT_EQ(plain(rack.offered),
              "The driver library " + rack.file() + " crashed in HM_Init (Segmentation fault).");
    EXPECT_TRUE(rack.box.boxes.empty());
    EXPECT_EQ(rack.program->StationState.DemoMode, "si");
}

TEST(LibraryWatch, ACrashWhileItIsLoadedBringsTheOfferInSpanish) {
    WatchedRack rack("crash constructor", kSpanishOfSpain);
    rack.start();
    EXPECT_EQ(plain(rack.offered), rack.file() +
                                       " no se puede cargar como biblioteca de la unidad: ha "
                                       "fallado mientras tanto (Segmentation fault).");
}

TEST(LibraryWatch, ACrashWhileItMeasuresStartsAnewByAKeyAndNothingIsLost) {
    WatchedRack rack("crash HM_DataRDS 0\nonce");
    rack.box.answers = {"Start it again"};
    rack.start();
    rack.desktop.advance(2000ms);
    ASSERT_EQ(rack.box.boxes.size(), 1u);
    EXPECT_EQ(rack.box.boxes[0].text,
              "The driver library " + rack.file() + " crashed in HM_DataRDS (Segmentation fault).");
    EXPECT_EQ(rack.offers, 0);
    EXPECT_TRUE(rack.measures());
    float version = 0;
    rack.opened->library().HM_getHardwareVersion(version);
    EXPECT_EQ(version, 1.8f);
}

TEST(LibraryWatch, WhoListensAtTheDoorHearsThatTheUnitIsSilentBeforeTheBoxStands) {
    struct Ear final : DoorListener {
        void silent(display::Time) override { ++silences; }
        void measured(const Measured&) override { measures = true; }
        int silences = 0;
        bool measures = false;
    };
    Ear ear;
    WatchedRack rack("crash HM_DataRDS 0\nonce");
    rack.listener = &ear;
    rack.box.answers = {"Start it again"};
    rack.box.meanwhile = [&ear] {
        EXPECT_EQ(ear.silences, 1);
        ear.measures = false;
    };
    rack.start();
    rack.desktop.advance(2000ms);
    ASSERT_EQ(rack.box.boxes.size(), 1u);
    EXPECT_EQ(ear.silences, 1);
    EXPECT_TRUE(ear.measures) << "and that it measures again";
}

TEST(LibraryWatch, TheLastCallsLieBesideTheProgram) {
    WatchedRack rack("crash HM_DataRDS 0\nonce");
    rack.box.answers = {"Start it again"};
    rack.start();
    rack.desktop.advance(2000ms);
    const std::string told = rack.folder.read(LibraryWatch::kFaultFile);
    EXPECT_THAT(told, testing::StartsWith("The driver library " + rack.file() +
                                          " crashed in HM_DataRDS (Segmentation fault).\n"
                                          "The last calls:\n"));
    EXPECT_THAT(told, HasSubstr("HM_Init() = 11"));
    EXPECT_THAT(told, HasSubstr("HM_Normal(875, "));
    EXPECT_THAT(told, EndsWith(" did not return\n"));
}

TEST(LibraryWatch, GoingOnWithoutTheUnitKeepsTheRackAnswering) {
    WatchedRack rack("crash HM_DataRDS");
    rack.box.answers = {"Go on without the unit"};
    rack.start();
    rack.desktop.advance(5000ms);
    EXPECT_EQ(rack.box.boxes.size(), 1u);
    EXPECT_TRUE(rack.measures());
    EXPECT_THAT(std::string(rack.forms->form1.sign.words.caption.get()),
                testing::StartsWith("NO DATA "));
    rack.desktop.hand.click(rack.forms->form1.Image_Power);
    rack.desktop.settle();
    EXPECT_TRUE(rack.desktop.ended());
}

TEST(LibraryWatch, TheKeyThatEndsStoresThePreset) {
    WatchedRack rack("crash HM_DataRDS", kSpanishOfSpain);
    rack.box.answers = {"Cerrar HMonitor"};
    rack.box.meanwhile = [&rack] { rack.program->StationState.MemoryNumber = "7"; };
    rack.start();
    rack.desktop.advance(2000ms);
    ASSERT_EQ(rack.box.boxes.size(), 1u);
    EXPECT_EQ(rack.box.boxes[0].text, "La biblioteca de la unidad " + rack.file() +
                                          " ha fallado en HM_DataRDS (Segmentation fault).");
    EXPECT_TRUE(rack.desktop.ended());
    EXPECT_EQ(rack.preset(), "7");
}

TEST(LibraryWatch, ACrashInTheLastCallIsNoQuestion) {
    WatchedRack rack("crash HM_Terminate");
    rack.start();
    rack.desktop.hand.click(rack.forms->form1.Image_Power);
    rack.desktop.settle();
    EXPECT_TRUE(rack.desktop.ended());
    EXPECT_TRUE(rack.box.boxes.empty());
    EXPECT_THAT(rack.folder.read(LibraryWatch::kFaultFile), HasSubstr(" crashed in HM_Terminate "));
}

TEST(LibraryWatch, ALevelThatTakesLongAtTheStartIsToldAndWaitedFor) {
    WatchedRack rack("slow HM_Super 1500\nonce");
    rack.patience = 700ms;
    // The start measures seventeen levels: the user gives up after the first.
    rack.box.answers = {"over", "End HMonitor"};
    rack.start();
    ASSERT_EQ(rack.box.boxes.size(), 2u);
    EXPECT_EQ(rack.box.boxes[0].text, "The unit does not answer: the driver library " +
                                          rack.file() + " does not come back from HM_Super.");
    EXPECT_TRUE(rack.desktop.ended());
    EXPECT_EQ(rack.program->LibraryFault.english, "");
}

TEST(LibraryWatch, AnOpeningThatDoesNotReturnLeadsToTheOffer) {
    WatchedRack rack("hang HM_Init");
    rack.patience = 200ms;
    rack.box.answers = {"Go on without the unit"};
    rack.start();
    EXPECT_EQ(rack.offers, 1);
    EXPECT_EQ(plain(rack.offered), "The unit does not answer: the driver library " + rack.file() +
                                       " does not come back from HM_Init.");
}

TEST(LibraryWatch, WithoutTheHostTheLibraryRunsInside) {
    WatchedRack rack("");
    files::remove(rack.folder.path() / "hm16-host");
    rack.start();
    EXPECT_EQ(rack.offers, 0);
    EXPECT_TRUE(rack.measures());
}

}  // namespace
}  // namespace hmonitor::test
