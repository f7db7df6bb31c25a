// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/probe/probe_options.h"

#include "base/number_in_text.h"
#include "base/number_text.h"
#include "base/plain_text.h"

#include <cmath>

namespace hm16::probe {

namespace {

struct Range {
    double low;
    double high;
};

constexpr Range kFrequencies{60, 130};
constexpr Range kSeconds{0, 1000000};
constexpr Range kPace{0.001, 3600};
constexpr Range kSteps{25, 1000};
constexpr Range kRounds{0, 1000000};

// Walks over the arguments and keeps the first fault.
class Reader {
 public:
    explicit Reader(std::span<const std::string_view> arguments) : rest_(arguments) {}

    bool more() const { return !rest_.empty() && fault_.empty(); }
    std::string_view next() {
        const std::string_view word = rest_.front();
        rest_ = rest_.subspan(1);
        return word;
    }
    std::string_view value(std::string_view option) {
        if (!rest_.empty()) return next();
        fail(std::string(option) + " needs a value behind it.");
        return {};
    }
    double number(std::string_view option, Range range) {
        const std::string_view word = value(option);
        const auto read = base::numberIn(word);
        if (read && *read >= range.low && *read <= range.high) return *read;
        fail(std::string(option) + " is " + base::inQuotes(word) + ", but must be a number from " +
             base::decimalText(range.low, 3) + " to " + base::decimalText(range.high, 3) + ".");
        return range.low;
    }
    void fail(std::string sentence) {
        if (fault_.empty()) fault_ = std::move(sentence);
    }
    const std::string& fault() const { return fault_; }

 private:
    std::span<const std::string_view> rest_;
    std::string fault_;
};

std::optional<What> whatOf(std::string_view word) {
    if (word == "readings") return What::Readings;
    if (word == "levels") return What::Levels;
    if (word == "sweep") return What::Sweep;
    if (word == "response") return What::Response;
    if (word == "figures") return What::Figures;
    if (word == "slots") return What::Slots;
    return std::nullopt;
}

bool takeSwitch(std::string_view word, Options& options) {
    if (word == "--average") return options.average = true;
    if (word == "--sum") return options.sum = true;
    if (word == "--log") return options.log = true;
    if (word == "--report") return options.report = true;
    return false;
}

void takeOption(std::string_view word, Reader& reader, Options& options) {
    if (word == "--frequency") {
        options.frequency = reader.number(word, kFrequencies);
    } else if (word == "--from") {
        options.from = reader.number(word, kFrequencies);
    } else if (word == "--to") {
        options.to = reader.number(word, kFrequencies);
    } else if (word == "--step") {
        options.stepKhz = static_cast<int>(reader.number(word, kSteps));
    } else if (word == "--seconds") {
        options.seconds = reader.number(word, kSeconds);
    } else if (word == "--every") {
        options.every = reader.number(word, kPace);
    } else if (word == "--rounds") {
        options.rounds = std::lround(reader.number(word, kRounds));
    } else if (word == "--files") {
        options.files = reader.value(word);
    } else {
        reader.fail(std::string(word) + " is no option; --help lists them.");
    }
}

}  // namespace

Parsed parseArguments(std::span<const std::string_view> arguments) {
    Options options;
    Reader reader(arguments);
    int words = 0;
    while (reader.more()) {
        const std::string_view word = reader.next();
        if (word == "--help" || word == "-h") return {std::nullopt, true, helpText()};
        if (word.starts_with("-")) {
            if (!takeSwitch(word, options)) takeOption(word, reader, options);
            continue;
        }
        ++words;
        const auto what = whatOf(word);
        if (words == 1) {
            options.library = word;
        } else if (words == 2 && what) {
            options.what = *what;
        } else if (words == 2) {
            reader.fail(base::inQuotes(word) +
                        " is none of readings, levels, sweep, response, "
                        "figures and slots.");
        } else {
            reader.fail(base::inQuotes(word) + " is one word too many.");
        }
    }
    if (words == 0) reader.fail("Name the folder of the driver library; --help tells more.");
    if (options.to < options.from) reader.fail("--to lies below --from.");
    if (!reader.fault().empty()) return {std::nullopt, false, reader.fault()};
    return {options, false, ""};
}

std::string helpText() {
    return R"(hm16-probe FOLDER [readings | levels | sweep | response | figures | slots] [options]

Loads the driver library hm-16 from FOLDER, lets it measure and writes what it
gives as CSV to standard output. Ends with 0 when it measured, with 1 and one
sentence on standard error when not.

  readings   the sixteen readings and both of RDS, one line a look (as is)
  levels     single levels from --from to --to, point by point
  sweep      sweep frames from --from to --to
  response   a frequency response run: waits for the end mark, eight results
  figures    what the library tells beyond the nineteen functions
  slots      every figure of every 50 ms, or in words why it is not known

  --frequency MHZ   tune here (98.5)
  --seconds S       for how long; for sweep and response at most (5)
  --every S         seconds between two looks (0.1)
  --from MHZ        lowest frequency of levels and sweep (87.5)
  --to MHZ          highest frequency (108)
  --step KHZ        step of levels and sweep: 25, 100, 250 (100)
  --rounds N        rounds of levels or frames; 0: as many as --seconds holds (1)
  --average         average detector instead of the peak detector
  --sum             L+R and L-R instead of L and R
  --log             let the library keep its log of the day
  --report          at the end, print what the library tells beyond the readings
  --files FOLDER    the library keeps its own files here (the current folder)
  --help            this text
)";
}

}  // namespace hm16::probe
