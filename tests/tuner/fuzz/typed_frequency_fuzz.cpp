// SPDX-License-Identifier: GPL-3.0-or-later
// Any text as it is typed or pasted into the frequency fields of both dialogs.
#include <cstdint>
#include <string>

#include "core/memory_block.h"
#include "core/numbers.h"
#include "tests/fuzz/check.h"
#include "tuner/half_step_text.h"
#include "tuner/keypad_entry.h"
#include "tuner/memory_entry.h"

namespace {

using namespace hmonitor;

void checkSplit(const std::string& typed, const HalfStepText& split) {
    FUZZ_CHECK(typed.starts_with(split.text));
    const std::size_t cut = typed.size() - split.text.size();
    FUZZ_CHECK(cut == (split.half == HalfStep::Yes ? 1u : 0u));
}

void checkEditor(const std::string& typed) {
    const auto text = recordFrequency(typed);
    if (!text) return;
    FUZZ_CHECK(!text->empty() && text->size() <= SmallText::kCapacity);
    for (const char character : text->view()) {
        FUZZ_CHECK((character >= '0' && character <= '9') || character == '.');
    }
    // Whatever is accepted fits a record, reads back, and tunes inside the band; 874.01 becomes the
    // lower edge.
    MemoryBlock block(std::string(MemoryBlock::kSize, ' '));
    block.store(5, "", *text);
    FUZZ_CHECK(!block.isEmpty(5));
    const StoredFrequency stored = block.frequency(5);
    FUZZ_CHECK(stored.frequency >= 874 && stored.frequency <= 1080);
    FUZZ_CHECK(megahertzText(stored).view().find('.') != std::string_view::npos);
    // What the editor shows of it is accepted again.
    FUZZ_CHECK(stored.frequency < 875 || recordFrequency(megahertzText(stored)).has_value());
}

void checkKeypad(const std::string& typed) {
    const auto entry = keypadFrequency(typed);
    if (!entry) return;
    FUZZ_CHECK(entry->frequency >= 875 && entry->frequency <= 1080);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string typed(reinterpret_cast<const char*>(data), size);
    checkSplit(typed, splitDigits(typed));
    checkSplit(typed, splitMegahertz(typed));
    checkEditor(typed);
    checkKeypad(typed);
    return 0;
}
