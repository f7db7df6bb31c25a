// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a recording of the band whose every figure is known: to try the receiver without a radio.
#include <algorithm>
#include <array>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/number_in_text.h"
#include "base/plain_text.h"
#include "drivers/receiver/library/scenes.h"
#include "drivers/receiver/record/recording_writer.h"
#include "drivers/receiver/synth/band_generator.h"

namespace {

using namespace hm16::receiver;

constexpr const char* kHelp = R"(hm16-synth SCENE FILE [options]

Writes a recording of a synthetic band. SCENE is station, band, rays, tones or
silence; the ending of FILE tells its form: .cu8, .cs8, .cs16 or .cf32 for bare
samples, .wav or .flac for a sound file with I and Q, .sigmf-meta for a SigMF
pair, which alone tells rate, centre and format by itself.

  --seconds S     length (10)
  --rate HZ       samples a second (1200000)
  --centre MHZ    frequency in the middle (98.2)
  --format F      samples of a SigMF pair: cu8, cs8, cs16 or cf32 (cs16)
  --help          this text
)";

struct Options {
    Scene scene = Scene::Station;
    RecordingPlan plan;
    double seconds = 10;
    double centreMhz = 0;
};

int fail(const std::string& sentence) {
    std::cerr << "hm16-synth: " << sentence << '\n';
    return 1;
}

std::optional<Scene> sceneNamed(std::string_view word) {
    constexpr std::array kWords{"station", "band", "rays", "tones", "silence"};
    const auto found = std::find(kWords.begin(), kWords.end(), word);
    if (found == kWords.end()) return std::nullopt;
    return static_cast<Scene>(found - kWords.begin());
}

// Takes a value in; the sentence says what is wrong with it.
std::string takeOption(std::string_view name, std::string_view value, Options& options) {
    const auto number = base::numberIn(value);
    const auto between = [&](double low, double high) {
        return number && *number >= low && *number <= high;
    };
    if (name == "--seconds" && between(0.1, 3600)) {
        options.seconds = *number;
    } else if (name == "--rate" && between(kLowestBandRateHz, kHighestRateHz)) {
        options.plan.rateHz = *number;
    } else if (name == "--centre" && between(1, 6000)) {
        options.centreMhz = *number;
    } else if (name == "--format" && rawFormat(value)) {
        options.plan.format = *rawFormat(value);
    } else {
        return std::string(name) + " cannot be " + base::inQuotes(value) +
               "; --help lists what can be.";
    }
    return "";
}

std::string parse(const std::vector<std::string_view>& words, Options& options) {
    std::vector<std::string_view> plain;
    for (std::size_t n = 0; n < words.size(); ++n) {
        if (!words[n].starts_with("--")) {
            plain.push_back(words[n]);
            continue;
        }
        if (n + 1 == words.size()) return std::string(words[n]) + " lacks its value.";
        const std::string fault = takeOption(words[n], words[n + 1], options);
        if (!fault.empty()) return fault;
        ++n;
    }
    if (plain.size() != 2) return "Name a scene and a file; --help tells more.";
    const auto scene = sceneNamed(plain[0]);
    if (!scene) return base::inQuotes(plain[0]) + " is no scene; --help lists them.";
    options.scene = *scene;
    options.plan.file = plain[1];
    return "";
}

void writeRecording(Options options) {
    const BandPlan band = sceneOf(options.scene, options.plan.rateHz, 1e6 * options.centreMhz);
    options.plan.rateHz = band.rateHz;
    options.plan.centreHz = band.centreHz;
    BandGenerator generator(band);
    RecordingWriter writer(options.plan);
    std::vector<Sample> samples(65536);
    auto left = static_cast<std::size_t>(options.seconds * band.rateHz);
    while (left > 0) {
        const auto part = std::span(samples).first(std::min(left, samples.size()));
        generator.read(part);
        writer.write(part);
        left -= part.size();
    }
    writer.close();
}

}  // namespace

int main(int count, char** arguments) {
    const std::vector<std::string_view> words(arguments + 1, arguments + count);
    if (std::find(words.begin(), words.end(), "--help") != words.end()) {
        std::cout << kHelp;
        return 0;
    }
    Options options;
    const std::string fault = parse(words, options);
    if (!fault.empty()) return fail(fault);
    try {
        writeRecording(options);
    } catch (const SourceError& error) {
        return fail(error.what());
    }
    return 0;
}
