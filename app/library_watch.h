// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>

#include "display/call_box.h"
#include "drivers/host/host_watch.h"
#include "program/program.h"

namespace hmonitor {

/// Tells the user of a driver library that has crashed or does not answer, and asks what to do:
/// start it again, go on without it, or end the program with the preset stored. Before a unit has
/// answered there is nothing to ask: the demo offer tells what was wrong. The last calls go to
/// `hm-16.fault.txt` in the working folder.
class LibraryWatch final : public hm16::HostWatch {
 public:
    static constexpr const char* kFaultFile = "hm-16.fault.txt";

    LibraryWatch(Program& program, display::CallBox& box) : program_(program), box_(box) {}

    std::optional<Next> decide(const hm16::HostTrouble& trouble,
                               const std::function<bool()>& over) override;

 private:
    std::optional<Next> ask(const hm16::HostTrouble& trouble, const std::function<bool()>& over);
    void keepJournal(const hm16::HostTrouble& trouble) const;
    bool aUnitHasAnswered() const;
    [[noreturn]] void endProgram();

    Program& program_;
    display::CallBox& box_;
};

/// What happened, one sentence a language.
LibraryFault troubleSentence(const hm16::HostTrouble& trouble);

}  // namespace hmonitor
