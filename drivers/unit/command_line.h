// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace hm16 {

// A value that is a number from `low` to `high`, written as in our files: no exponent, no words,
// never a locale.
CLI::Validator numberWithin(double low, double high);

// What a command line asks of the program before its own work begins.
struct CommandLineEnd {
    bool help = false;  // `text` is the help that was asked for, no fault
    std::string text;   // else a sentence that says what is wrong
};

// Reads the words behind the program's name into what `app` was told of; an option that stands
// there twice counts by its last value. Gives nothing when the program is to go on.
std::optional<CommandLineEnd> readCommandLine(CLI::App& app,
                                              std::span<const std::string_view> words);

}  // namespace hm16
