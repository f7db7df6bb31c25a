// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/loader/library_file.h"

#if defined(__linux__)
#include <elf.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <fstream>
#else
#include <system_error>
#endif
#if defined(_WIN32)
#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/read_file.h"
#endif

namespace hm16 {

#if defined(__linux__)

namespace {

#if defined(__LP64__)
using FileHeader = Elf64_Ehdr;
using Segment = Elf64_Phdr;
#else
using FileHeader = Elf32_Ehdr;
using Segment = Elf32_Phdr;
#endif

// The header of the file that this code itself stands in says which machine runs it.
extern "C" const char __ehdr_start[] __attribute__((visibility("hidden")));

bool isOfThisMachine(const FileHeader& header) {
    FileHeader own;
    std::memcpy(&own, __ehdr_start, sizeof own);
    return header.e_ident[EI_CLASS] == own.e_ident[EI_CLASS] &&
           header.e_ident[EI_DATA] == own.e_ident[EI_DATA] && header.e_machine == own.e_machine;
}

template <typename Record>
bool readAt(std::ifstream& in, std::uint64_t place, Record& record) {
    in.seekg(static_cast<std::streamoff>(place));
    return static_cast<bool>(in.read(reinterpret_cast<char*>(&record), sizeof record));
}

// False when a part that the headers name lies beyond the end. The sums cannot overflow: a place
// beyond the size is refused before anything is added to it.
bool fits(std::uint64_t place, std::uint64_t length, std::uint64_t size) {
    return place <= size && length <= size - place;
}

bool isWhole(std::ifstream& in, const FileHeader& header, std::uint64_t size) {
    if (!fits(header.e_shoff, std::uint64_t{header.e_shnum} * header.e_shentsize, size) ||
        !fits(header.e_phoff, std::uint64_t{header.e_phnum} * header.e_phentsize, size)) {
        return false;
    }
    for (unsigned i = 0; i < header.e_phnum; ++i) {
        Segment segment;
        if (!readAt(in, header.e_phoff + std::uint64_t{i} * header.e_phentsize, segment)) {
            return false;
        }
        if (segment.p_type == PT_LOAD && !fits(segment.p_offset, segment.p_filesz, size)) {
            return false;
        }
    }
    return true;
}

FileFault checkContents(const std::filesystem::path& file, std::uint64_t size) {
    std::ifstream in(file, std::ios::binary);
    FileHeader header;
    if (!in || !readAt(in, 0, header) || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0) {
        return FileFault::None;
    }
    if (!isOfThisMachine(header)) return FileFault::OtherMachine;
    return isWhole(in, header, size) ? FileFault::None : FileFault::CutShort;
}

}  // namespace

FileFault checkLibraryFile(const std::filesystem::path& file, Trust trust) {
    struct stat is {};
    if (::stat(file.c_str(), &is) != 0) return FileFault::Missing;
    if (S_ISDIR(is.st_mode)) return FileFault::Folder;
    if (!S_ISREG(is.st_mode)) return FileFault::NotRegular;
    if (trust == Trust::OwnerAlone) {
        if (is.st_uid != ::geteuid() && is.st_uid != 0) return FileFault::ForeignOwner;
        if ((is.st_mode & (S_IWGRP | S_IWOTH)) != 0) return FileFault::OthersMayWrite;
    }
    return checkContents(file, static_cast<std::uint64_t>(is.st_size));
}

#else

namespace {

#if defined(_WIN32)

// Numbers of the headers, lowest byte first.
std::uint32_t numberAt(const std::string& bytes, std::size_t place, std::size_t length) {
    std::uint32_t number = 0;
    for (std::size_t i = length; i-- > 0;) {
        number = number << 8 | static_cast<unsigned char>(bytes[place + i]);
    }
    return number;
}

constexpr std::uint32_t ownMachine() {
#if defined(_M_X64) || defined(__x86_64__)
    return IMAGE_FILE_MACHINE_AMD64;
#elif defined(_M_ARM64) || defined(__aarch64__)
    return IMAGE_FILE_MACHINE_ARM64;
#else
    return IMAGE_FILE_MACHINE_I386;
#endif
}

// Whether the file has the symbols that a compiler may have left behind all sections: a table of
// records of 18 bytes and the texts behind it, which begin with their own length.
bool hasSymbols(const std::string& bytes, std::size_t place) {
    const std::uint64_t table = numberAt(bytes, place + 8, 4);
    if (table == 0) return true;
    const std::uint64_t texts = table + std::uint64_t{18} * numberAt(bytes, place + 12, 4);
    if (texts + 4 > bytes.size()) return false;
    return texts + numberAt(bytes, static_cast<std::size_t>(texts), 4) <= bytes.size();
}

// Whether the file has all sections that the headers at `place` name. They stand behind the head of
// twenty bytes and the optional header whose size it tells.
bool isWhole(const std::string& bytes, std::size_t place) {
    constexpr std::size_t kHead = sizeof(IMAGE_FILE_HEADER);
    constexpr std::size_t kSection = sizeof(IMAGE_SECTION_HEADER);
    const std::size_t count = numberAt(bytes, place + 2, 2);
    const std::size_t first = place + kHead + numberAt(bytes, place + 16, 2);
    if (first + count * kSection > bytes.size()) return false;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t section = first + i * kSection;
        const std::uint64_t length = numberAt(bytes, section + 16, 4);
        const std::uint64_t from = numberAt(bytes, section + 20, 4);
        if (from + length > bytes.size()) return false;
    }
    return true;
}

FileFault checkContents(const std::filesystem::path& file) {
    const std::string bytes = base::readFile(file).bytes;
    constexpr std::size_t kDosHeader = sizeof(IMAGE_DOS_HEADER);
    if (bytes.compare(0, 2, "MZ") != 0) return FileFault::None;
    if (bytes.size() < kDosHeader) return FileFault::CutShort;
    const std::size_t place = numberAt(bytes, offsetof(IMAGE_DOS_HEADER, e_lfanew), 4);
    if (place > bytes.size() || bytes.size() - place < 4 + sizeof(IMAGE_FILE_HEADER)) {
        return FileFault::CutShort;
    }
    if (bytes.compare(place, 4, std::string_view("PE\0\0", 4)) != 0) return FileFault::None;
    if (numberAt(bytes, place + 4, 2) != ownMachine()) return FileFault::OtherMachine;
    const bool whole = isWhole(bytes, place + 4) && hasSymbols(bytes, place + 4);
    return whole ? FileFault::None : FileFault::CutShort;
}

#else

FileFault checkContents(const std::filesystem::path&) {
    return FileFault::None;
}

#endif

}  // namespace

FileFault checkLibraryFile(const std::filesystem::path& file, Trust) {
    std::error_code error;
    const auto is = std::filesystem::status(file, error);
    if (!std::filesystem::exists(is)) return FileFault::Missing;
    if (std::filesystem::is_directory(is)) return FileFault::Folder;
    return std::filesystem::is_regular_file(is) ? checkContents(file) : FileFault::NotRegular;
}

#endif

}  // namespace hm16
