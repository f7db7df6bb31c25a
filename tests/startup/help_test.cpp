// SPDX-License-Identifier: GPL-3.0-or-later
// The help that comes with the program: its name, and that all keys of the rack are in it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::HasSubstr;

std::string installedHelp() {
    std::ifstream file(HMONITOR_SOURCE_DIR "/install/hm-16.hlp");
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A bar separates the cells of a table, so one inside a cell has a backslash before it.
std::string asInATable(std::string caption) {
    for (std::size_t at = 0; (at = caption.find('|', at)) != std::string::npos; at += 2) {
        caption.insert(at, 1, '\\');
    }
    return caption;
}

TEST(Help, TheHelpKeyOfEachPanelShowsTheProgramsFile) {
    RackBench bench;
    bench.start();
    for (display::Form* panel : bench.program.rack) {
        bench.desktop.helpShown = "";
        bench.hand.help(*panel);
        bench.desktop.settle();
        EXPECT_EQ(bench.desktop.helpShown, "hm-16.hlp") << panel->name();
    }
}

TEST(Help, NamesEveryKeyOfTheModulationAndAudioPanelsByItsCaption) {
    RackBench bench(RackBench::kEnglish);
    bench.start();
    const std::string help = installedHelp();
    int keys = 0;
    const std::vector<display::Form*> panels = {&bench.form1, &bench.formB};
    for (const display::Form* panel : panels) {
        for (const display::Control* control : panel->controls()) {
            const auto* key = dynamic_cast<const display::Picture*>(control);
            if (key == nullptr || key->caption.get().empty()) continue;
            ++keys;
            EXPECT_THAT(help, HasSubstr(asInATable(key->caption.get()))) << key->name();
        }
    }
    EXPECT_GE(keys, 8);
}

TEST(Help, HasTheMapOfTheKeyboardInBothLanguages) {
    const std::string help = installedHelp();
    const auto map = help.substr(help.find("## Keyboard map"));
    for (const char* key :
         {"| Tab, Shift Tab |", "| Space or Enter |", "| Left, Right on the tuning bar |",
          "| Page Up, Page Down on the tuning bar |", "| Home, End on the tuning bar |",
          "| Escape in a window |", "| Enter in a window |", "| F1 |"}) {
        EXPECT_THAT(map, HasSubstr(key));
    }
    const auto mapa = help.substr(help.find("## Mapa del teclado"));
    for (const char* key :
         {"| Tab, Mayús Tab |", "| Espacio o Enter |", "| Izquierda, Derecha en la barra",
          "| Re Pág, Av Pág en la barra", "| Inicio, Fin en la barra", "| Escape en una ventana |",
          "| Enter en una ventana |", "| F1 |"}) {
        EXPECT_THAT(mapa, HasSubstr(key));
    }
}

}  // namespace
}  // namespace hmonitor::test
