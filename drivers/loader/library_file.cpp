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

FileFault checkLibraryFile(const std::filesystem::path& file, Trust) {
    std::error_code error;
    const auto is = std::filesystem::status(file, error);
    if (!std::filesystem::exists(is)) return FileFault::Missing;
    if (std::filesystem::is_directory(is)) return FileFault::Folder;
    return std::filesystem::is_regular_file(is) ? FileFault::None : FileFault::NotRegular;
}

#endif

}  // namespace hm16
