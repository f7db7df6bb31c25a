// SPDX-License-Identifier: GPL-3.0-or-later
// The block of memory presets: any file, and any text stored into any record.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include "core/code_page.h"
#include "core/memory_block.h"
#include "tests/fuzz/check.h"

using hmonitor::MemoryBlock;

namespace {

void checkReading(const MemoryBlock& block, const std::string& file) {
    FUZZ_CHECK(block.fileBytes() == file);
    FUZZ_CHECK(block.bytes().size() == std::max(file.size(), MemoryBlock::kSize));
    FUZZ_CHECK(block.bytes().starts_with(file));
    for (int memory = -1; memory <= MemoryBlock::kMemories + 1; ++memory) {
        const std::string name = hmonitor::codePageFromUtf8(block.name(memory));
        FUZZ_CHECK(name.size() == MemoryBlock::kNameSize);
        FUZZ_CHECK(std::isfinite(block.frequency(memory).tuned()));
        if (block.isEmpty(memory)) FUZZ_CHECK(block.frequency(memory).tuned() == 0);
    }
}

void checkStoring(MemoryBlock block, int memory, const std::string& name,
                  const std::string& frequency) {
    const std::string before = block.bytes();
    block.store(memory, name, frequency);
    const std::string& after = block.bytes();
    FUZZ_CHECK(after.size() == before.size());
    const bool isMemory = memory >= 1 && memory <= MemoryBlock::kMemories;
    const std::size_t first = isMemory ? static_cast<std::size_t>(memory) * 16 : before.size();
    const std::size_t behind = std::min(first + 16, before.size());
    FUZZ_CHECK(after.substr(0, first) == before.substr(0, first));
    FUZZ_CHECK(after.substr(behind) == before.substr(behind));
    if (!isMemory) return;
    FUZZ_CHECK(after[first] == '-' && after[first + 10] == '-');
    const std::string stored = hmonitor::codePageFromUtf8(name).substr(0, MemoryBlock::kNameSize);
    FUZZ_CHECK(after.compare(first + 1, stored.size(), stored) == 0);
    block.erase(memory);
    FUZZ_CHECK(block.isEmpty(memory));
}

}  // namespace

// The first three bytes choose the record and the texts; the rest is the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::string file = input.substr(std::min<std::size_t>(3, size));
    const MemoryBlock block(file);
    checkReading(block, file);
    if (size < 3) return 0;
    const std::string name = file.substr(0, data[1]);
    const std::string frequency = file.substr(std::min<std::size_t>(data[1], file.size()), data[2]);
    checkStoring(block, static_cast<std::int8_t>(data[0]) % 20, name, frequency);
    return 0;
}
