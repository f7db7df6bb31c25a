// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/memory_block.h"

#include <algorithm>
#include <utility>

#include "core/code_page.h"

namespace hmonitor {

namespace {

// Places in a record, counted from 0.
constexpr std::size_t kRecordSize = 16;
constexpr std::size_t kNameDash = 0;
constexpr std::size_t kName = 1;
constexpr std::size_t kFrequencyDash = 10;
constexpr std::size_t kFrequency = 11;

std::string field(const std::string& bytes, int memory, std::size_t place, std::size_t size) {
    if (memory < 0 || memory > MemoryBlock::kMemories) return std::string(size, ' ');
    return bytes.substr(static_cast<std::size_t>(memory) * kRecordSize + place, size);
}

void layOver(std::string& bytes, std::size_t at, std::size_t size, std::string_view text) {
    bytes.replace(at, size, size, ' ');
    const std::size_t count = std::min(size, text.size());
    bytes.replace(at, count, text.substr(0, count));
}

}  // namespace

MemoryBlock::MemoryBlock(std::string fileBytes)
    : fileBytes_(std::move(fileBytes)), bytes_(fileBytes_) {
    if (bytes_.size() < kSize) bytes_.resize(kSize, ' ');
}

FileResult<MemoryBlock> MemoryBlock::read(const Files& files) {
    auto bytes = files.read(kFileName);
    if (!bytes) return bytes.fault();
    return MemoryBlock(std::move(*bytes));
}

std::string MemoryBlock::name(int memory) const {
    return utf8FromCodePage(field(bytes_, memory, kName, kNameSize));
}

std::string MemoryBlock::frequencyText(int memory) const {
    return utf8FromCodePage(field(bytes_, memory, kFrequency, kFrequencySize));
}

bool MemoryBlock::isEmpty(int memory) const {
    return field(bytes_, memory, kFrequency, kFrequencySize) == std::string(kFrequencySize, ' ');
}

StoredFrequency MemoryBlock::frequency(int memory) const {
    return parseStoredFrequency(field(bytes_, memory, kFrequency, kFrequencySize));
}

void MemoryBlock::store(int memory, std::string_view name, std::string_view frequency) {
    if (memory < 1 || memory > kMemories) return;
    const std::size_t base = static_cast<std::size_t>(memory) * kRecordSize;
    bytes_[base + kNameDash] = '-';
    layOver(bytes_, base + kName, kNameSize, codePageFromUtf8(name));
    bytes_[base + kFrequencyDash] = '-';
    layOver(bytes_, base + kFrequency, kFrequencySize, codePageFromUtf8(frequency));
}

std::optional<FileFault> MemoryBlock::write(const Files& files) const {
    return files.rewrite(kFileName, bytes_);
}

std::optional<FileFault> MemoryBlock::restore(const Files& files) const {
    return files.rewrite(kFileName, fileBytes_);
}

}  // namespace hmonitor
