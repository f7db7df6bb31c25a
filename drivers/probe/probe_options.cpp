// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/probe/probe_options.h"

#include <algorithm>
#include <vector>

#include "base/command_line.h"

namespace hm16::probe {

namespace {

const std::vector<std::string> kWhats{"readings", "levels",  "sweep",
                                      "response", "figures", "slots"};

constexpr const char* kAbout =
    R"(Loads the driver library hm-16 from FOLDER, lets it measure and writes what it
gives as CSV to standard output. Ends with 0 when it measured, with 1 and one
sentence on standard error when not.
)";

constexpr const char* kWhatTheyAre = R"(WHAT:
  readings   the sixteen readings and both of RDS, one line a look (as is)
  levels     single levels from --from to --to, point by point
  sweep      sweep frames from --from to --to
  response   a frequency response run: waits for the end mark, eight results
  figures    what the library tells beyond the nineteen functions
  slots      every figure of every 50 ms, or in words why it is not known)";

}  // namespace

Parsed parseArguments(std::span<const std::string_view> arguments) {
    Options options;
    std::string what = kWhats.front();
    base::CommandLine line(kAbout, "hm16-probe", kWhatTheyAre);
    line.path("FOLDER", options.library, "where the driver library is",
              base::CommandLine::Need::Required);
    line.oneOf("WHAT", what, kWhats, "what to measure");
    line.number("--frequency", options.frequency, 60, 130, "tune here, MHz");
    line.number("--seconds", options.seconds, 0, 1000000,
                "for how long; for sweep and response at most");
    line.number("--every", options.every, 0.001, 3600, "seconds between two looks");
    line.number("--from", options.from, 60, 130, "lowest frequency of levels and sweep, MHz");
    line.number("--to", options.to, 60, 130, "highest frequency, MHz");
    line.number("--step", options.stepKhz, 25, 1000, "step of levels and sweep: 25, 100, 250 kHz");
    line.number("--rounds", options.rounds, 0, 1000000,
                "rounds of levels or frames; 0: as many as --seconds holds");
    line.flag("--average", options.average, "average detector instead of the peak detector");
    line.flag("--sum", options.sum, "L+R and L-R instead of L and R");
    line.flag("--log", options.log, "let the library keep its log of the day");
    line.flag("--report", options.report,
              "at the end, print what the library tells beyond the readings");
    line.path("--files", options.files, "the library keeps its own files here");

    if (const auto end = line.read(arguments)) {
        return {std::nullopt, end->help, end->text};
    }
    if (options.to < options.from) return {std::nullopt, false, "--to lies below --from."};
    options.what = static_cast<What>(std::ranges::find(kWhats, what) - kWhats.begin());
    return {options, false, ""};
}

}  // namespace hm16::probe
