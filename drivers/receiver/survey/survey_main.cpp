// SPDX-License-Identifier: GPL-3.0-or-later
// Goes over the band of a receiver once and lists its stations, for whoever lays a rack.
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "base/command_line.h"
#include "base/number_text.h"
#include "base/read_file.h"
#include "drivers/receiver/library/open_source.h"
#include "drivers/receiver/library/receiver_options.h"
#include "drivers/receiver/radio/radio_list.h"
#include "drivers/receiver/survey/presets.h"
#include "drivers/receiver/survey/rate_check.h"
#include "drivers/receiver/survey/survey.h"
#include "drivers/unit/replace_file.h"
#include "drivers/unit/standard_error.h"

namespace {

using namespace hm16::receiver;

constexpr const char* kAbout =
    R"(Opens the receiver that the settings file INI describes, goes over the band once
and lists its stations as CSV, strongest first. Ends with 0 when there is one,
else with 1 and one sentence on standard error; with 3 where the file does not
tell its format, its sample rate or its centre frequency.
)";

constexpr int kFailed = 1;
constexpr int kNotTold = 3;

int fail(const std::string& sentence, int code = kFailed) {
    std::cerr << sentence << '\n';
    return code;
}

int listThem(const std::string& driver) {
    const auto radios = listRadios(kSoapyLibrary, driver);
    // A radio says of itself what it likes.
    for (const ListedRadio& radio : radios)
        std::cout << hm16::printable(radio.device) << '\t' << hm16::printable(radio.label) << '\n';
    return radios.empty() ? kFailed : 0;
}

// What the unit keeps of stations is of no use here.
class ScratchFolder {
 public:
    ScratchFolder()
        : path_(std::filesystem::temp_directory_path() /
                ("hm16-survey-" + std::to_string(std::random_device()()))) {
        std::filesystem::create_directories(path_);
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const std::filesystem::path& path() const { return path_; }

 private:
    std::filesystem::path path_;
};

struct Options {
    std::filesystem::path ini;
    std::filesystem::path presets;
    bool checkOnly = false;
};

std::string coverage(const SampleSource& source) {
    if (source.live() || source.domain() != Domain::Band) return "";
    const double half = source.rateHz() / 2;
    return " between " + base::decimalText((source.centreHz() - half) / 1e6, 2) + " and " +
           base::decimalText((source.centreHz() + half) / 1e6, 2) + " MHz";
}

// A recording that was given a wrong rate plays, but too fast or too slow.
void sayRateFault(const ReceiverOptions& options, const FoundStation& station) {
    if (options.source != SourceKind::Recording) return;
    const auto source = openSource(options);
    const double hz = 1e6 * station.mhz;
    source->retune(hz);
    std::vector<Sample> samples(static_cast<std::size_t>(source->rateHz() / 2));
    samples.resize(source->read(samples));
    const auto pilot = seemingPilotHz(samples, source->rateHz(), hz - source->centreHz());
    if (!pilot) return;
    const std::string fault = rateFault(nameOf(options), source->rateHz(), *pilot);
    if (!fault.empty()) std::cerr << fault << '\n';
}

int survey(const Options& asked) {
    hm16::Settings settings = hm16::Settings::read(asked.ini);
    ReceiverOptions options = readOptions(settings, asked.ini.parent_path());
    for (const auto& fault : settings.faults()) std::cerr << fault << '\n';
    if (!settings.faults().empty()) return kFailed;
    // A band is gone over as fast as its source can.
    if (options.source != SourceKind::Soapy) options.pace = Pace::Fast;
    auto source = openSource(options);
    if (asked.checkOnly) return 0;
    if (source->domain() == Domain::Composite) return 0;
    // Before the band is gone over, which may take minutes. What cannot be read may hold stations
    // that the user gave names to.
    const auto block = base::readFile(asked.presets);
    if (!asked.presets.empty() && !block && block.reason != ENOENT)
        return fail(base::notRead(asked.presets.string(), block.reason) + ".");
    const std::string where = coverage(*source);
    const std::string name = nameOf(options);
    const ScratchFolder files;
    hm16::PublishedReadings readings;
    std::vector<FoundStation> stations;
    {
        ReceiverUnit unit(options, std::move(source), readings, files.path());
        stations = surveyBand(unit, kPresets);
    }
    if (stations.empty()) return fail("No station is heard in " + name + where + ".");
    sayRateFault(options, stations.front());
    std::cout << "mhz,level_dbuv,name\n";
    for (const FoundStation& station : stations)
        std::cout << base::decimalText(station.mhz, 2) << ','
                  << base::decimalText(station.levelDbuv, 1) << ',' << station.name << '\n';
    if (asked.presets.empty()) return 0;
    if (const auto fault = hm16::replaceFile(asked.presets, withPresets(block.bytes, stations)))
        return fail(*fault);
    return 0;
}

int answer(std::span<const std::string_view> words) {
    Options options;
    std::optional<std::string> radiosOf;
    base::CommandLine line(kAbout, "hm16-survey");
    line.path("INI", options.ini, "the settings file of a receiver");
    line.flag("--check", options.checkOnly, "opens the receiver and no more");
    line.path("--presets", options.presets,
              "writes the sixteen strongest stations into this rack's memories");
    line.maybeWord("--radios", radiosOf,
                   "lists the radios that SoapySDR finds, of this driver alone when one is named, "
                   "as a device and its label with a tab between them; 1 where there is none");
    if (const auto end = line.read(words)) {
        if (!end->help) return fail(end->text);
        std::cout << end->text;
        return 0;
    }
    if (radiosOf) return listThem(*radiosOf);
    if (options.ini.empty()) return fail("Name a settings file; --help tells more.");
    options.ini = std::filesystem::absolute(options.ini);
    return survey(options);
}

}  // namespace

int main(int count, char** arguments) {
    const std::vector<std::string_view> words(arguments + 1, arguments + count);
    try {
        return answer(words);
    } catch (const MissingSetting& error) {
        return fail(error.what(), kNotTold);
    } catch (const SourceError& error) {
        return fail(error.what());
    }
}
