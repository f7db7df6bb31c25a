// SPDX-License-Identifier: GPL-3.0-or-later
// The packed blocks of seconds and spans: any bytes.
#include <cmath>
#include <cstdint>

#include "history/second_block.h"
#include "history/span_block.h"
#include "tests/fuzz/check.h"

namespace {

using namespace history;

FigureColumns fuzzedColumns() {
    FigureColumns columns;
    int id = 0;
    for (const figures::Figure& figure : figures::all()) {
        columns.add({++id, figure.key, figure.unit, figure.kind, stepOf(figure), std::nullopt});
    }
    return columns;
}

void checkSeconds(std::string_view bytes, const FigureColumns& columns) {
    const auto block = SecondBlock::open(bytes);
    if (!block) return;
    FUZZ_CHECK(block->size() >= 1 && block->size() <= kMinute);
    for (int i = 1; i < block->size(); ++i) FUZZ_CHECK(block->offset(i) > block->offset(i - 1));
    FUZZ_CHECK(block->offset(block->size() - 1) < kMinute);
    const auto seconds = secondsOf(*block, columns, 98500, 0, 0);
    for (const Second& second : seconds) {
        for (std::size_t i = 0; i < figureCount(); ++i) {
            const FigureSecond& figure = second.figures[i];
            FUZZ_CHECK(figure.knownMs <= 1000);
            FUZZ_CHECK((figure.state == State::Known) == (figure.knownMs == 1000));
            FUZZ_CHECK(static_cast<std::size_t>(figure.state) < kFileStates);
            FUZZ_CHECK(std::isfinite(figure.value));
        }
    }
    // What was read can be written, and is a block again.
    const std::string again = packSeconds(seconds, columns);
    FUZZ_CHECK(SecondBlock::open(again).has_value());
}

void checkSpan(std::string_view bytes, const FigureColumns& columns) {
    const auto block = SpanBlock::open(bytes);
    if (!block) return;
    for (const FileFigure& figure : columns.all()) {
        const auto value = block->figure(figure);
        if (!value || value->knownMs == 0) continue;
        FUZZ_CHECK(std::isfinite(value->lowest) && std::isfinite(value->highest));
        FUZZ_CHECK(std::isfinite(value->mean));
        FUZZ_CHECK(value->lowest <= value->highest);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FigureColumns columns = fuzzedColumns();
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    checkSeconds(bytes, columns);
    checkSpan(bytes, columns);
    return 0;
}
