// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a stored spectrum: read, drawn, and written back.
#include <cmath>
#include <cstdint>
#include <string>

#include "spectrum/channel_graph.h"
#include "spectrum/channel_spectrum_file.h"
#include "tests/fuzz/check.h"

namespace {

using namespace hmonitor;

/// Counts the marks and checks every coordinate.
class CheckedCanvas final : public display::Canvas {
 public:
    float outerWidth() const override { return 9600; }
    float outerHeight() const override { return 6300; }
    float scaleWidth() const override { return 9600; }
    float scaleHeight() const override { return 6300; }
    void box(float x1, float y1, float x2, float y2) override { check(x1, y1, x2, y2); }
    void line(float x1, float y1, float x2, float y2) override { check(x1, y1, x2, y2); }
    void print(std::string_view) override { check(textX, textY, textX, textY); }

    int drawn = 0;

 private:
    void check(float x1, float y1, float x2, float y2) {
        ++drawn;
        FUZZ_CHECK(std::isfinite(x1) && std::isfinite(y1) && std::isfinite(x2) &&
                   std::isfinite(y2));
    }
};

void drawn(const ChannelSpectrum& spectrum) {
    constexpr int kMostFrameMarks = 64;
    CheckedCanvas canvas;
    Class1 graph = channelGraph(canvas, spectrum.points, spectrum.stepKhz());
    graph.GraphInit();
    for (int i = 1; i <= static_cast<int>(spectrum.values.size()); ++i) {
        Int16 below = spectrum.value(i);
        graph.GraphLine(i, below);
        FUZZ_CHECK(below >= 0 && below <= graph.YUnits);
    }
    FUZZ_CHECK(canvas.drawn <= kMostFrameMarks + 2 * ChannelSpectrum::kMostPoints);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const ChannelSpectrum read = ChannelSpectrum::parse(bytes);
    FUZZ_CHECK(read.points >= 0 && read.points <= ChannelSpectrum::kMostPoints);
    FUZZ_CHECK(read.values.size() <= static_cast<std::size_t>(read.points));
    if (read.points > 0) drawn(read);

    // What was read is written so that it reads the same again. A lone carriage return that was
    // cut off a line's end cannot be told from the line's own, hence twice.
    const ChannelSpectrum again =
        ChannelSpectrum::parse(ChannelSpectrum::parse(read.text()).text());
    FUZZ_CHECK(again.values.size() <= read.values.size());
    FUZZ_CHECK(ChannelSpectrum::parse(again.text()).text() == again.text());
    return 0;
}
