// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a recording of the band whose every figure is known: to try the receiver without a radio.
#include <algorithm>
#include <iostream>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/command_line.h"
#include "drivers/receiver/library/scenes.h"
#include "drivers/receiver/record/recording_writer.h"
#include "drivers/receiver/synth/band_generator.h"

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
    double centreMhz = 98.2;
};

int fail(const std::string& sentence) {
    std::cerr << "hm16-synth: " << sentence << '\n';
    return 1;
}

// What the command line asks for, or why the program ends at once.
std::optional<base::CommandLineEnd> read(std::span<const std::string_view> words,
                                         Options& options) {
    std::string scene;
    std::string format;
    using Need = base::CommandLine::Need;
    base::CommandLine line(kAbout, "hm16-synth");
    line.oneOf("SCENE", scene, kScenes, "", Need::Required);
    line.path("FILE", options.plan.file, "", Need::Required);
    line.number("--seconds", options.seconds, 0.1, 3600, "length");
    line.number("--rate", options.plan.rateHz, kLowestBandRateHz, kHighestRateHz,
                "samples a second");
    line.number("--centre", options.centreMhz, 1, 6000, "frequency in the middle, MHz");
    line.oneOf("--format", format, {"cu8", "cs8", "cs16", "cf32"},
               "samples of a SigMF pair (cs16)");
    const auto end = line.read(words);
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
