// SPDX-License-Identifier: GPL-3.0-or-later
// Names of sessions and the folder that they lie in.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "analyzer/session_folder.h"
#include "analyzer/session_names.h"
#include "tests/support/as_nobody.h"
#include "tests/support/temp_folder.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string uniqueAmong(const std::set<std::string>& taken, std::string_view name = {}) {
    return uniqueSessionName(
        name, [&](std::string_view file) { return taken.contains(std::string(file)); });
}

std::set<std::string> firstNames(int count) {
    std::set<std::string> names;
    for (int i = 0; i < count; ++i) names.insert(uniqueAmong(names));
    return names;
}

TEST(UniqueSessionName, IsTheFirstThatIsFree) {
    EXPECT_EQ(uniqueAmong({}), "Sin Nombre.3Ds");
    EXPECT_EQ(uniqueAmong(firstNames(1)), "Sin Nombre (1).3Ds");
    EXPECT_EQ(uniqueAmong({"Sin Nombre (1).3Ds"}), "Sin Nombre.3Ds");
    EXPECT_EQ(uniqueAmong(firstNames(100)), "Sin Nombre (100).3Ds");
    EXPECT_EQ(uniqueAmong({"a.3Ds"}, "a"), "a (1).3Ds");
}

TEST(UniqueSessionName, With1000TakenIsTheLastThoughItExists) {
    const std::set<std::string> names = firstNames(1000);
    EXPECT_EQ(names.size(), 1000u);
    EXPECT_TRUE(names.contains("Sin Nombre (999).3Ds"));
    EXPECT_EQ(uniqueAmong(firstNames(999)), "Sin Nombre (999).3Ds");
    EXPECT_EQ(uniqueAmong(names), "Sin Nombre (999).3Ds");
}

TEST(SweepFileName, ExchangesTheEndingInAnyCaseAndTheMarkWhereverItStands) {
    EXPECT_EQ(sweepFileName("Evening.3Ds"), "Evening.spc");
    EXPECT_EQ(sweepFileName("Other.3DS"), "Other.spc");
    EXPECT_EQ(sweepFileName("a3Dsb3Ds.3Ds"), "aspcbspc.spc");
    EXPECT_EQ(sweepFileName("a3dsb.3ds"), "a3dsb.spc");
    EXPECT_EQ(sweepFileName(""), "");
}

TEST(FileTitle, HasAnUnderlineForEachOfTheEightCharacters) {
    EXPECT_EQ(fileTitle("/\\*?:><|"), "________");
    EXPECT_EQ(fileTitle("Mañana, 3 \"MHz\""), "Mañana, 3 \"MHz\"");
}

TEST(SessionTitle, HasNoEndingInAnyCase) {
    EXPECT_EQ(sessionTitle("a3Ds.3Ds.3Ds"), "a3Ds.3Ds");
    EXPECT_EQ(sessionTitle("Other.3DS"), "Other");
    EXPECT_EQ(sessionTitle("plain"), "plain");
}

TEST(ItemOfSession, IsTheFirstThatOccursInTheCurrentName) {
    EXPECT_EQ(itemOfSession({"ab.3Ds", "xab.3Ds"}, "xab.3Ds"), 0);
    EXPECT_EQ(itemOfSession({"xab.3Ds", "ab.3Ds"}, "xab.3Ds"), 0);
    EXPECT_EQ(itemOfSession({"a.3Ds", "B.3DS", "c.3Ds"}, "b.3Ds"), 1);
}

TEST(ItemOfSession, WithoutAMatchIsTheLast) {
    EXPECT_EQ(itemOfSession({"a.3Ds", "b.3Ds", "c.3Ds"}, ""), 2);
    EXPECT_EQ(itemOfSession({"a.3Ds", "b.3Ds"}, "gone.3Ds"), 1);
    EXPECT_EQ(itemOfSession({}, "a.3Ds"), -1);
}

struct SessionFolderTest : testing::Test {
    TempFolder temp;
    Files working{temp.path()};
    SessionFolder folder{working};

    void makeLogs(const char* name = "Logs") {
        std::filesystem::create_directory(temp.path() / name);
    }
};

TEST_F(SessionFolderTest, ListsAnEndingOfAnyCase) {
    makeLogs();
    temp.write("Logs/Other.3DS", "");
    EXPECT_THAT(folder.list(), ElementsAre("Other.3DS"));
}

TEST_F(SessionFolderTest, WithoutAFolderListsNothing) {
    EXPECT_THAT(folder.list(), IsEmpty());
    EXPECT_EQ(folder.uniqueName(""), "Sin Nombre.3Ds");
    EXPECT_FALSE(folder.exists("Sin Nombre.3Ds"));
}

TEST_F(SessionFolderTest, IsMadeByTheFirstWrite) {
    EXPECT_FALSE(folder.write("a.3Ds", "bytes"));
    EXPECT_EQ(temp.read("Logs/a.3Ds"), "bytes");
    EXPECT_EQ(*folder.read("A.3DS"), "bytes");
}

TEST_F(SessionFolderTest, SaysWhyItCannotBeMade) {
    setRights(temp.path(), 0555);
    std::optional<FileFault> fault;
    {
        const AsNobody nobody;
        fault = folder.write("a.3Ds", "bytes");
    }
    setRights(temp.path(), 0755);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->sentence, "Logs cannot be made: Permission denied");
}

TEST_F(SessionFolderTest, SeeksAFreeNameWithoutRegardToCase) {
    makeLogs();
    temp.write("Logs/SIN NOMBRE.3DS", "");
    EXPECT_EQ(folder.uniqueName(""), "Sin Nombre (1).3Ds");
    EXPECT_EQ(folder.uniqueName("sin nombre", "Sin Nombre.3Ds"), "sin nombre.3Ds");
}

TEST_F(SessionFolderTest, TellsWhenNoNameIsFree) {
    makeLogs();
    for (const std::string& name : firstNames(1000)) temp.write("Logs/" + name, "");
    EXPECT_EQ(folder.uniqueName(""), "Sin Nombre (999).3Ds");
    EXPECT_FALSE(folder.hasFreeName(""));
    EXPECT_TRUE(folder.hasFreeName("other"));
    EXPECT_TRUE(folder.hasFreeName("", "Sin Nombre (7).3Ds"));
    EXPECT_TRUE(folder.hasFreeName("", "Sin Nombre (999).3Ds"));
}

}  // namespace
}  // namespace hmonitor::test
