// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/library_watch.h"

#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "app/library_fault.h"
#include "core/files.h"
#include "panels/modulation/form1.h"
#include "program/language.h"
#include "program/report_fault.h"

namespace hmonitor {

namespace {

using hm16::HostTrouble;
using Kind = hm16::HostTrouble::Kind;

constexpr const char* kTerminate = "HM_Terminate";

LibraryFault crashSentence(const HostTrouble& trouble) {
    const std::string file = trouble.file.string();
    const bool called = !trouble.function.empty();
    return {"La biblioteca de la unidad " + file + " ha fallado " +
                (called ? "en " + trouble.function : std::string("entre dos llamadas")) + " (" +
                trouble.how + ").",
            "The driver library " + file + " crashed " +
                (called ? "in " + trouble.function : std::string("between two calls")) + " (" +
                trouble.how + ")."};
}

LibraryFault silenceSentence(const HostTrouble& trouble) {
    const std::string file = trouble.file.string();
    return {
        "La unidad no responde: la biblioteca " + file + " no vuelve de " + trouble.function + ".",
        "The unit does not answer: the driver library " + file + " does not come back from " +
            trouble.function + "."};
}

/// The keys of the box, in the order in which they stand.
enum class Key { StartAgain, GoWithout, End };

}  // namespace

LibraryFault troubleSentence(const HostTrouble& trouble) {
    switch (trouble.kind) {
        case Kind::Crashed:
            return crashSentence(trouble);
        case Kind::Silent:
            return silenceSentence(trouble);
        case Kind::NotLoaded:
            return libraryFault(*trouble.refusal);
        case Kind::Left:
            break;
    }
    return {"La biblioteca de la unidad no está en marcha.", "The driver library is not running."};
}

bool LibraryWatch::aUnitHasAnswered() const {
    return program_.words.gHardwareVersion != 0;
}

void LibraryWatch::keepJournal(const HostTrouble& trouble) const {
    const std::string sentence = troubleSentence(trouble).english;
    std::cerr << "hmonitor: " << sentence << std::endl;
    // Nobody is told of a folder that cannot be written: the sentence stands on the screen.
    (void)program_.files.rewrite(kFaultFile, sentence + "\nThe last calls:\n" + trouble.journal);
}

std::optional<hm16::HostWatch::Next> LibraryWatch::decide(const HostTrouble& trouble,
                                                          const std::function<bool()>& over) {
    const bool fresh = trouble.kind != Kind::Left;
    if (fresh) keepJournal(trouble);
    // What crashes in its last call has nothing more to do.
    if (trouble.kind == Kind::Crashed && trouble.function == kTerminate) return Next::GoWithout;
    if (fresh && !aUnitHasAnswered()) program_.LibraryFault = troubleSentence(trouble);
    if (trouble.kind != Kind::Silent && !aUnitHasAnswered()) return Next::GoWithout;
    return ask(trouble, over);
}

std::optional<hm16::HostWatch::Next> LibraryWatch::ask(const HostTrouble& trouble,
                                                       const std::function<bool()>& over) {
    const bool spanish =
        dialogLanguage(program_.desktop.userLanguageId()) == display::Language::Spanish;
    const LibraryFault sentence = troubleSentence(trouble);
    std::vector<std::string> keys = {
        spanish ? "Arrancarla de nuevo" : "Start it again",
        spanish ? "Seguir sin la unidad" : "Go on without the unit",
        spanish ? "Cerrar HMonitor" : "End HMonitor",
    };
    const bool leaving = trouble.function == kTerminate;
    if (leaving) keys.erase(keys.begin(), keys.begin() + 2);
    program_.driver.listeners().silent(program_.desktop.now());
    const auto pressed = box_.standWhile(
        {"HMonitor", spanish ? sentence.spanish : sentence.english, display::BoxIcon::Critical},
        keys, over);
    if (!pressed) {
        // It came back after all.
        if (!aUnitHasAnswered()) program_.LibraryFault = {};
        return std::nullopt;
    }
    if (leaving) return Next::GoWithout;
    switch (static_cast<Key>(*pressed)) {
        case Key::StartAgain:
            return Next::StartAgain;
        case Key::GoWithout:
            return Next::GoWithout;
        case Key::End:
            break;
    }
    endProgram();
}

void LibraryWatch::endProgram() {
    // As the power key does, less the calls of a library that is not there. Before the first panel
    // has read the preset there is none to store.
    if (!program_.StationState.MemoryNumber.empty()) {
        warn(program_.desktop, program_.Form1->storePreset());
    }
    program_.desktop.end();
}

}  // namespace hmonitor
