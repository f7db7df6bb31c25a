// SPDX-License-Identifier: GPL-3.0-or-later
// Which files are given to the system as a library at all.
#include "drivers/loader/library_file.h"

#include <elf.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "drivers/loader/library.h"
#include "tests/support/temp_folder.h"

namespace hm16::test {
namespace {

using hmonitor::test::TempFolder;

class LibraryFile : public testing::Test {
 protected:
    FileFault fault(Trust trust = Trust::Anybody) const { return checkLibraryFile(file_, trust); }

    // A whole library, in which tests change bytes.
    std::string whole() const {
        const std::filesystem::path told = HM16_TOLD;
        std::ifstream in(told, std::ios::binary);
        std::ostringstream bytes;
        bytes << in.rdbuf();
        return bytes.str();
    }
    void write(const std::string& bytes) const {
        folder_.write(libraryName(), bytes);
        std::filesystem::permissions(file_, std::filesystem::perms(0755));
    }

    TempFolder folder_;
    std::filesystem::path file_ = folder_.path() / libraryName();
};

TEST_F(LibraryFile, IsMissing) {
    EXPECT_EQ(fault(), FileFault::Missing);
}

TEST_F(LibraryFile, OfADanglingLinkIsMissing) {
    std::filesystem::create_symlink("nowhere", file_);
    EXPECT_EQ(fault(), FileFault::Missing);
    EXPECT_EQ(Library::load(folder_.path()).refusal, Refusal::NoFile);
}

TEST_F(LibraryFile, BehindALinkIsLookedAt) {
    write(whole());
    std::filesystem::rename(file_, folder_.path() / "elsewhere.so");
    std::filesystem::create_symlink("elsewhere.so", file_);
    EXPECT_EQ(fault(Trust::OwnerAlone), FileFault::None);
}

TEST_F(LibraryFile, ThatIsAFolderIsSaid) {
    std::filesystem::create_directory(file_);
    EXPECT_EQ(fault(), FileFault::Folder);
    EXPECT_EQ(Library::load(folder_.path()).fault,
              file_.string() + " cannot be loaded as a driver library: it is a folder.");
}

TEST_F(LibraryFile, ThatIsAPipeIsNotOpened) {
    ASSERT_EQ(::mkfifo(file_.c_str(), 0755), 0);
    // Opening it would wait for a writer.
    EXPECT_EQ(Library::load(folder_.path()).fileFault, FileFault::NotRegular);
}

TEST_F(LibraryFile, ThatIsADeviceIsNotOpened) {
    std::filesystem::create_symlink("/dev/zero", file_);
    EXPECT_EQ(fault(), FileFault::NotRegular);
}

TEST_F(LibraryFile, IsWhole) {
    write(whole());
    EXPECT_EQ(fault(Trust::OwnerAlone), FileFault::None);
}

TEST_F(LibraryFile, CutAtAnyLengthIsNeverLoaded) {
    const std::string bytes = whole();
    ASSERT_GT(bytes.size(), 10000u);
    for (std::size_t length = 0; length < bytes.size(); length += 1 + length / 3) {
        write(bytes.substr(0, length));
        // A shorter file is refused by the system itself.
        if (length >= sizeof(Elf64_Ehdr)) {
            EXPECT_EQ(fault(), FileFault::CutShort) << length;
        }
        EXPECT_EQ(Library::load(folder_.path()).library, nullptr) << length;
    }
    write(bytes.substr(0, bytes.size() - 1));
    EXPECT_EQ(fault(), FileFault::CutShort);
}

TEST_F(LibraryFile, OfAnotherMachineIsSaid) {
    std::string bytes = whole();
    bytes[offsetof(Elf64_Ehdr, e_machine)] = EM_SPARC;
    write(bytes);
    EXPECT_EQ(fault(), FileFault::OtherMachine);
    bytes = whole();
    bytes[EI_CLASS] = bytes[EI_CLASS] == ELFCLASS64 ? ELFCLASS32 : ELFCLASS64;
    write(bytes);
    EXPECT_EQ(fault(), FileFault::OtherMachine);
}

TEST_F(LibraryFile, WithHeadersThatPointAnywhereIsCutShort) {
    std::string bytes = whole();
    // An offset of the segments so large that adding to it overflows.
    for (std::size_t i = 0; i < 8; ++i) bytes[offsetof(Elf64_Ehdr, e_phoff) + i] = '\xff';
    write(bytes);
    EXPECT_EQ(fault(), FileFault::CutShort);
}

TEST_F(LibraryFile, ThatIsALetterIsLeftToTheSystem) {
    write("a letter, not a library\n");
    EXPECT_EQ(fault(), FileFault::None);
    EXPECT_EQ(Library::load(folder_.path()).refusal, Refusal::NoLibrary);
}

TEST_F(LibraryFile, ThatOthersMayWriteIsRefusedToTheProgramAlone) {
    write(whole());
    for (const unsigned mode : {0775u, 0757u, 0722u}) {
        std::filesystem::permissions(file_, std::filesystem::perms(mode));
        EXPECT_EQ(fault(Trust::OwnerAlone), FileFault::OthersMayWrite) << mode;
        EXPECT_EQ(fault(Trust::Anybody), FileFault::None) << mode;
    }
}

TEST_F(LibraryFile, OfSomebodyElseIsRefusedToTheProgramAlone) {
    write(whole());
    if (::chown(file_.c_str(), 12345, 12345) != 0) GTEST_SKIP() << "only root gives files away";
    EXPECT_EQ(fault(Trust::OwnerAlone), FileFault::ForeignOwner);
    EXPECT_EQ(fault(Trust::Anybody), FileFault::None);
}

}  // namespace
}  // namespace hm16::test
