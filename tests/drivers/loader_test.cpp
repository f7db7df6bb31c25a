// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/loader/library.h"
#include "tests/drivers/loaded_library.h"

#if defined(__linux__)
#include <dlfcn.h>
#endif

namespace hm16 {
namespace {

using hmonitor::test::TempFolder;

const std::filesystem::path kFixtures = HM16_FIXTURES;

// True while the system holds the file as a library.
bool isLoaded(const std::filesystem::path& file) {
    void* const handle = dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) dlclose(handle);
    return handle != nullptr;
}

TEST(Loader, SaysThatThereIsNoFile) {
    const TempFolder folder;
    const LoadResult result = Library::load(folder.path());
    EXPECT_EQ(result.library, nullptr);
    EXPECT_EQ(result.fault,
              "There is no driver library " + (folder.path() / libraryName()).string() + ".");
}

TEST(Loader, GivesTheSystemsReasonForAFileThatIsNoLibrary) {
    const TempFolder folder;
    folder.write(libraryName().string(), "this is a letter, not a library\n");
    const LoadResult result = Library::load(folder.path());
    EXPECT_EQ(result.library, nullptr);
    const std::string head =
        (folder.path() / libraryName()).string() + " cannot be loaded as a driver library: ";
    EXPECT_THAT(result.fault, testing::StartsWith(head));
    EXPECT_GT(result.fault.size(), head.size() + 5);
}

TEST(Loader, BearsALibraryCutAtAnyLength) {
    std::ifstream in(kFixtures / "sixteen" / libraryName(), std::ios::binary);
    const std::string whole{std::istreambuf_iterator<char>(in), {}};
    ASSERT_GT(whole.size(), 1000u);
    for (const std::size_t length :
         {std::size_t{0}, std::size_t{1}, std::size_t{4}, std::size_t{16}, std::size_t{63},
          std::size_t{64}, std::size_t{100}, std::size_t{200}, whole.size() / 4, whole.size() / 2,
          whole.size() - 1}) {
        const TempFolder folder;
        folder.write(libraryName().string(), whole.substr(0, length));
        EXPECT_EQ(Library::load(folder.path()).library, nullptr) << length;
    }
}

TEST(Loader, NamesTheFunctionsThatALibraryLacksAndCloses) {
    const auto folder = kFixtures / "lacking";
    const LoadResult result = Library::load(folder);
    EXPECT_EQ(result.library, nullptr);
    EXPECT_EQ(result.fault,
              (folder / libraryName()).string() +
                  " is no complete driver library; it lacks HM_DemoMode, HM_Normal, HM_Parar, "
                  "HM_Reset, HM_Data, HM_DataRDS, HM_Super, HM_StartEspectro, "
                  "HM_TramaEspectroRecibida, HM_GetEspectro, HM_RespFrecuencia, HM_setSintoMode, "
                  "HM_getHardwareVersion, HM_getDriverVersion.");
    EXPECT_FALSE(isLoaded(folder / libraryName()));
}

#if defined(__GLIBC__)
TEST(Loader, TakesDataUnderAFunctionsNameForALackingFunction) {
    const auto folder = kFixtures / "data_named";
    const LoadResult result = Library::load(folder);
    EXPECT_EQ(result.fault, (folder / libraryName()).string() +
                                " is no complete driver library; it lacks HM_Reset.");
}
#endif

TEST(Loader, DoesWithoutTheThreeThatAreNeverCalled) {
    const LoadResult result = Library::load(kFixtures / "sixteen");
    ASSERT_NE(result.library, nullptr) << result.fault;
    EXPECT_EQ(result.fault, "");
    const HM16_Functions& functions = result.library->functions();
    EXPECT_EQ(functions.directorio, nullptr);
    EXPECT_EQ(functions.setClient, nullptr);
    EXPECT_EQ(functions.getSintoMode, nullptr);
    EXPECT_EQ(functions.init(), 5);
    float version = 7;
    functions.getHardwareVersion(&version);
    EXPECT_EQ(version, 0);
}

TEST(Loader, PutsEachOfTheNineteenInItsPlace) {
    const auto file = std::filesystem::path(HM16_SIMULATED);
    const LoadResult result = Library::load(file.parent_path());
    ASSERT_NE(result.library, nullptr) << result.fault;
    expectEachInItsPlace(*result.library);
    EXPECT_EQ(result.library->extra("HM_NotThere"), nullptr);
}

TEST(Loader, UnloadsALibraryInTheEnd) {
    const auto file = kFixtures / "sixteen" / libraryName();
    {
        const LoadResult result = Library::load(kFixtures / "sixteen");
        ASSERT_NE(result.library, nullptr);
        EXPECT_TRUE(isLoaded(file));
    }
    EXPECT_FALSE(isLoaded(file));
}

}  // namespace
}  // namespace hm16
