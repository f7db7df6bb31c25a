// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace hm16::probe {

enum class What { Readings, Levels, Sweep, Response, Figures, Slots };

// The options of the command line. Frequencies in MHz.
struct Options {
    std::filesystem::path library = ".";  // the folder of the library
    std::filesystem::path files = ".";    // where the library keeps its own files
    What what = What::Readings;
    double frequency = 98.5;
    bool average = false;
    bool sum = false;
    bool log = false;
    bool report = false;
    double seconds = 5;  // duration; for a sweep and a response run the longest one
    double every = 0.1;  // seconds between two readings or two checks for a frame
    double from = 87.5;  // levels and sweep
    double to = 108;
    int stepKhz = 100;
    long rounds = 1;  // number of levels or frames; 0 for as many as fit the duration
};

struct Parsed {
    std::optional<Options> options;  // absent: stop and print `message`
    bool help = false;               // the message is the help that was asked for, no fault
    std::string message;
};

// Reads the arguments after the program's name.
Parsed parseArguments(std::span<const std::string_view> arguments);

}  // namespace hm16::probe
