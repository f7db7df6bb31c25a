// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a recording: the first byte says as which kind. Its samples are finite, no more than
// were asked for, the same after a rewind; or one sentence tells why there are none.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "drivers/receiver/samples/open_recording.h"
#include "tests/fuzz/check.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace hm16::receiver;

struct Kind {
    const char* file;
    const char* format;
    double rateHz;
};
constexpr Kind kKinds[] = {
    {"a.cu8", "auto", 600e3},  {"a.cs8", "auto", 600e3},     {"a.cs16", "auto", 600e3},
    {"a.cf32", "auto", 600e3}, {"a.wav", "wav", 0},          {"a.wav", "wav", 600e3},
    {"a.wav", "composite", 0}, {"a.sigmf-meta", "sigmf", 0}, {"a.sigmf-meta", "sigmf", 600e3}};

std::vector<Sample> allOf(SampleSource& source) {
    constexpr std::size_t kPiece = 1000, kMost = 20000;
    std::vector<Sample> all;
    std::vector<Sample> piece(kPiece);
    while (all.size() < kMost) {
        const std::size_t count = source.read(piece);
        FUZZ_CHECK(count <= kPiece);
        for (std::size_t i = 0; i < count; ++i) {
            FUZZ_CHECK(std::isfinite(piece[i].real()) && std::isfinite(piece[i].imag()));
            all.push_back(piece[i]);
        }
        if (count < kPiece) break;
    }
    return all;
}

void play(const RecordingRequest& request) {
    const auto source = openRecording(request);
    FUZZ_CHECK(source->rateHz() >= kLowestCompositeRateHz && source->rateHz() <= kHighestRateHz);
    const std::vector<Sample> first = allOf(*source);
    source->rewind();
    FUZZ_CHECK(allOf(*source) == first);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const hmonitor::test::TempFolder folder;
    if (size == 0) return 0;
    const Kind& kind = kKinds[data[0] % std::size(kKinds)];
    folder.write(kind.file, {reinterpret_cast<const char*>(data) + 1, size - 1});
    folder.write("a.sigmf-data", std::string(400, 'x'));
    try {
        play({folder.path() / kind.file, kind.format, kind.rateHz, kind.rateHz > 0 ? 98e6 : 0});
    } catch (const SourceError& error) {
        const std::string said = error.what();
        FUZZ_CHECK(!said.empty());
        const auto acts = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; };
        FUZZ_CHECK(std::ranges::none_of(said, acts));
    }
    return 0;
}
