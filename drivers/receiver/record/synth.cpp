// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a recording of the band whose every figure is known: to try the receiver without a radio.
#include <algorithm>
#include <iostream>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/receiver/library/scenes.h"
#include "drivers/receiver/record/recording_writer.h"
#include "drivers/receiver/synth/band_generator.h"
#include "drivers/unit/command_line.h"

namespace {

using namespace hm16::receiver;

constexpr const char* kAbout =
    R"(Writes a recording of a synthetic band. The ending of FILE tells its form: .cu8,
.cs8, .cs16 or .cf32 for bare samples, .wav or .flac for a sound file with I and
Q, .sigmf-meta for a SigMF pair, which alone tells rate, centre and format by
itself.
)";

const std::vector<std::string> kScenes{"station", "band", "rays", "tones", "silence"};

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

// What the command line asks for, or why the program ends at once.
std::optional<hm16::CommandLineEnd> read(std::span<const std::string_view> words,
                                         Options& options) {
    std::string scene;
    std::string format;
    CLI::App app(kAbout, "hm16-synth");
    app.add_option("SCENE", scene)->required()->check(CLI::IsMember(kScenes));
    app.add_option("FILE", options.plan.file)->required();
    app.add_option("--seconds", options.seconds, "length")
        ->check(hm16::numberWithin(0.1, 3600))
        ->capture_default_str();
    app.add_option("--rate", options.plan.rateHz, "samples a second")
        ->check(hm16::numberWithin(kLowestBandRateHz, kHighestRateHz))
        ->capture_default_str();
    app.add_option("--centre", options.centreMhz, "frequency in the middle, MHz (98.2)")
        ->check(hm16::numberWithin(1, 6000));
    app.add_option("--format", format, "samples of a SigMF pair (cs16)")
        ->check(CLI::IsMember({"cu8", "cs8", "cs16", "cf32"}));
    const auto end = hm16::readCommandLine(app, words);
    if (end) return end;
    options.scene = static_cast<Scene>(std::ranges::find(kScenes, scene) - kScenes.begin());
    if (!format.empty()) options.plan.format = *rawFormat(format);
    return std::nullopt;
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
    Options options;
    if (const auto end = read(words, options)) {
        if (!end->help) return fail(end->text);
        std::cout << end->text;
        return 0;
    }
    try {
        writeRecording(options);
    } catch (const SourceError& error) {
        return fail(error.what());
    }
    return 0;
}
