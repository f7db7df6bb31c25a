// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace hm16::probe {

enum class What { Readings, Levels, Sweep, Response, Figures, Slots };

// What the command line asks for. Frequencies in MHz.
struct Options {
    std::filesystem::path library = ".";  // the folder of the library
    std::filesystem::path files = ".";    // where the library keeps its own files
    What what = What::Readings;
    double frequency = 98.5;
    bool average = false;
    bool sum = false;
    bool log = false;
    bool report = false;
    double seconds = 5;  // how long; for a sweep and a response run: at most
    double every = 0.1;  // seconds between two readings or two looks for a frame
    double from = 87.5;  // levels and sweep
    double to = 108;
    int stepKhz = 100;
    long rounds = 1;  // of levels or frames; 0 as many as the time holds
};

struct Parsed {
    std::optional<Options> options;  // absent: stop, with what `message` says
    bool help = false;               // the message is the help that was asked for, no fault
    std::string message;
};

// Reads the arguments behind the program's name.
Parsed parseArguments(std::span<const std::string_view> arguments);

}  // namespace hm16::probe
