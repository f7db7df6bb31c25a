// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/report_fault.h"

#include <string>

#include "program/language.h"

namespace hmonitor {

namespace {

/// What stands between the name of a file and the reason, which the system gives in the user's
/// language.
struct Between {
    FileFaultKind kind;
    std::string_view english, spanish;
};
constexpr Between kBetween[] = {
    {FileFaultKind::Unreadable, " cannot be read: ", " no se puede leer: "},
    {FileFaultKind::NotWritten, " cannot be written: ", " no se puede escribir: "},
    {FileFaultKind::NotWritten, " cannot be deleted: ", " no se puede borrar: "},
    {FileFaultKind::NotWritten, " cannot be made: ", " no se puede crear: "},
};

std::string saidTo(const display::Desktop& desktop, const FileFault& fault) {
    std::string sentence = fault.sentence;
    if (dialogLanguage(desktop.userLanguageId()) != display::Language::Spanish) return sentence;
    for (const Between& words : kBetween) {
        const std::size_t at = sentence.find(words.english);
        if (words.kind != fault.kind || at == std::string::npos) continue;
        return sentence.replace(at, words.english.size(), words.spanish);
    }
    return sentence;
}

}  // namespace

void endWithFault(display::Desktop& desktop, const FileFault& fault) {
    desktop.messageBox({"HMonitor", saidTo(desktop, fault), display::BoxIcon::Critical});
    desktop.end();
}

void report(display::Desktop& desktop, const std::optional<FileFault>& fault) {
    if (fault && fault->kind != FileFaultKind::NotWritten) endWithFault(desktop, *fault);
    warn(desktop, fault);
}

void warn(display::Desktop& desktop, const std::optional<FileFault>& fault) {
    if (!fault) return;
    if (fault->told) {
        // A start asks for nothing that would have to be stored; the rack's head tells it.
        if (!desktop.queue().gateOpen() || *fault->told) return;
        *fault->told = true;
    }
    desktop.messageBox({"HMonitor", saidTo(desktop, *fault), display::BoxIcon::Critical});
}

}  // namespace hmonitor
