// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/files.h"
#include "core/stored_frequency.h"

namespace hmonitor {

/// The sixteen memory presets, `halden.dat`: a block of 300 bytes of the code page with a record of
/// 16 bytes for each memory. A shorter file is read as if it were filled with blanks, and written
/// with 300 bytes; bytes after the 300th are kept.
class MemoryBlock {
 public:
    static constexpr std::string_view kFileName = "halden.dat";
    static constexpr int kMemories = 16;
    static constexpr std::size_t kSize = 300;
    static constexpr std::size_t kNameSize = 9;
    static constexpr std::size_t kFrequencySize = 5;

    explicit MemoryBlock(std::string fileBytes);
    static FileResult<MemoryBlock> read(const Files& files);

    /// The nine characters of a name, blanks included (UTF-8). Memory 0 is the block's head; a
    /// number outside 0 to 16 reads as blank.
    std::string name(int memory) const;
    /// The five characters of a frequency, blanks included.
    std::string frequencyText(int memory) const;
    /// Whether the frequency is five blanks.
    bool isEmpty(int memory) const;
    StoredFrequency frequency(int memory) const;

    /// Writes a record of memory 1 to 16: `name` (UTF-8) and `frequency` are laid over blank
    /// fields and cut at the field's end. Any other number changes nothing.
    void store(int memory, std::string_view name, std::string_view frequency);
    /// Empties a record of memory 1 to 16.
    void erase(int memory) { store(memory, "", ""); }

    /// What the file holds after `write`: 300 bytes and the tail.
    const std::string& bytes() const { return bytes_; }
    /// What the file held when it was read, with its old length, for cancelling.
    const std::string& fileBytes() const { return fileBytes_; }

    std::optional<FileFault> write(const Files& files) const;
    /// Writes `fileBytes` back to the file.
    std::optional<FileFault> restore(const Files& files) const;

 private:
    std::string fileBytes_;
    std::string bytes_;
};

}  // namespace hmonitor
