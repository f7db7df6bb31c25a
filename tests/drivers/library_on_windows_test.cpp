// SPDX-License-Identifier: GPL-3.0-or-later
// Libraries and their files where the system is Windows; elsewhere loader_test.cpp and
// host/library_file_test.cpp.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <cstddef>
#include <string>

#include "base/read_file.h"
#include "drivers/loader/library.h"
#include "tests/support/temp_folder.h"

namespace hm16 {
namespace {

using testing::HasSubstr;

struct LibraryOnWindows : testing::Test {
    const std::string whole = base::readFile(HM16_SIMULATED).bytes;
    hmonitor::test::TempFolder folder;

    LoadResult loadWith(const std::string& bytes) const {
        folder.write(libraryName(), bytes);
        return Library::load(folder.path(), Trust::OwnerAlone);
    }
    /// Where the file's own headers begin.
    std::size_t headers() const {
        return static_cast<unsigned char>(whole[0x3c]) |
               static_cast<std::size_t>(static_cast<unsigned char>(whole[0x3d])) << 8;
    }
};

TEST_F(LibraryOnWindows, IsLoadedAndMeasures) {
    const LoadResult loaded = loadWith(whole);
    ASSERT_NE(loaded.library, nullptr) << loaded.fault;
    const HM16_Functions& library = loaded.library->functions();
    ASSERT_EQ(library.init(), 0);
    float version = 0;
    library.getHardwareVersion(&version);
    EXPECT_FLOAT_EQ(version, 1.8f);
    float level = 0;
    EXPECT_EQ(library.super(985, &level), 0);
    EXPECT_GT(level, 20);
    EXPECT_EQ(library.terminate(), 0);
}

TEST_F(LibraryOnWindows, MayBeLetGoWhileItMeasures) {
    // A copy, since it is never ended: this process has to end with it.
    {
        const LoadResult loaded = loadWith(whole);
        ASSERT_NE(loaded.library, nullptr) << loaded.fault;
        ASSERT_EQ(loaded.library->functions().init(), 0);
        ASSERT_EQ(loaded.library->functions().normal(985, 0, 0, 0, 0), 0);
    }
    const LoadResult again = Library::load(folder.path(), Trust::OwnerAlone);
    ASSERT_NE(again.library, nullptr) << again.fault;
    EXPECT_NE(again.library->functions().init(), 0) << "it is not as it was left";
}

TEST_F(LibraryOnWindows, ThatIsMissingOrAFolderIsSaid) {
    EXPECT_EQ(Library::load(folder.path()).refusal, Refusal::NoFile);
    std::filesystem::create_directory(folder.path() / libraryName());
    EXPECT_EQ(Library::load(folder.path()).fileFault, FileFault::Folder);
}

TEST_F(LibraryOnWindows, CutAtAnyLengthIsNeverLoaded) {
    ASSERT_GT(whole.size(), 10000u);
    for (std::size_t length = 2; length < whole.size(); length += 1 + length / 2) {
        const LoadResult loaded = loadWith(whole.substr(0, length));
        EXPECT_EQ(loaded.fileFault, FileFault::CutShort) << length;
        EXPECT_EQ(loaded.library, nullptr) << length;
    }
}

TEST_F(LibraryOnWindows, OfAnotherMachineIsSaid) {
    std::string other = whole;
    const std::size_t place = headers() + 4;
    const bool is64 = sizeof(void*) == 8;
    const unsigned machine = is64 ? IMAGE_FILE_MACHINE_I386 : IMAGE_FILE_MACHINE_AMD64;
    other[place] = static_cast<char>(machine & 0xff);
    other[place + 1] = static_cast<char>(machine >> 8);
    const LoadResult loaded = loadWith(other);
    EXPECT_EQ(loaded.fileFault, FileFault::OtherMachine);
    EXPECT_THAT(loaded.fault, HasSubstr("it is made for another kind of processor"));
}

TEST_F(LibraryOnWindows, WithHeadersThatPointAnywhereIsCutShort) {
    std::string bytes = whole;
    for (std::size_t i = 0; i < 4; ++i) bytes[0x3c + i] = '\xff';
    EXPECT_EQ(loadWith(bytes).fileFault, FileFault::CutShort);
    bytes = whole;
    // As many sections as there can be.
    bytes[headers() + 6] = bytes[headers() + 7] = '\xff';
    EXPECT_EQ(loadWith(bytes).fileFault, FileFault::CutShort);
}

TEST_F(LibraryOnWindows, ThatIsALetterIsLeftToTheSystem) {
    const LoadResult loaded = loadWith("a letter, not a library\r\n");
    EXPECT_EQ(loaded.refusal, Refusal::NoLibrary);
    EXPECT_FALSE(loaded.reason.empty());
}

TEST_F(LibraryOnWindows, ThatLacksFunctionsIsNamedWithThem) {
    const LoadResult loaded = Library::load(HM16_FIXTURES "/lacking");
    EXPECT_EQ(loaded.refusal, Refusal::LacksFunctions);
    EXPECT_FALSE(loaded.missing.empty());
}

}  // namespace
}  // namespace hm16
