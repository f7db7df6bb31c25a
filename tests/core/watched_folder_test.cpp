// SPDX-License-Identifier: GPL-3.0-or-later
// A folder of which the system tells what changes in it.
#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "core/code_page.h"
#include "core/files.h"
#include "core/folder_names.h"
#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

using test::TempFolder;

/// What looking into the folder itself finds.
std::optional<std::string> sought(const std::filesystem::path& folder, std::string_view name) {
    std::optional<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string other = entry.path().filename().string();
        if (foldedCase(other) == foldedCase(name) && (!found || other < *found)) found = other;
    }
    return found;
}

TEST(WatchedFolder, FindsInAnyCaseTheFirstInByteOrder) {
    TempFolder temp;
    for (const char* name : {"Hm-Res.dat", "HM-RES.DAT", "hm-rez.dat"}) temp.write(name, "");
    FolderNames names(temp.path());
    EXPECT_EQ(names.find("hm-res.dat"), "HM-RES.DAT");
    EXPECT_EQ(names.find("hm-res.da"), std::nullopt);
}

TEST(WatchedFolder, ReadsTheFolderOnceAndFollowsWhatChangesInIt) {
    TempFolder temp;
    temp.write("A.dat", "");
    FolderNames names(temp.path());
    EXPECT_EQ(names.find("a.dat"), "A.dat");
    EXPECT_EQ(names.find("b.dat"), std::nullopt);
    temp.write("B.dat", "");
    EXPECT_EQ(names.find("b.dat"), "B.dat");
    std::filesystem::rename(temp.path() / "B.dat", temp.path() / "c.DAT");
    EXPECT_EQ(names.find("b.dat"), std::nullopt);
    EXPECT_EQ(names.find("C.dat"), "c.DAT");
    std::filesystem::remove(temp.path() / "A.dat");
    EXPECT_EQ(names.find("a.dat"), std::nullopt);
    EXPECT_EQ(names.readings(), 1);
}

TEST(WatchedFolder, AgreesWithTheFolderThroughAWalk) {
    TempFolder temp;
    FolderNames names(temp.path());
    std::mt19937 random(8);
    const auto anyName = [&] {
        std::string name(1 + random() % 2, ' ');
        for (char& c : name) c = "aAbB"[random() % 4];
        return name;
    };
    for (int step = 0; step < 3000; ++step) {
        const auto file = temp.path() / anyName();
        std::error_code none;
        switch (random() % 4) {
            case 0:
                std::filesystem::remove(file, none);
                break;
            case 1:
                std::filesystem::rename(file, temp.path() / anyName(), none);
                break;
            default:
                std::ofstream(file).close();
                break;
        }
        const std::string asked = anyName();
        ASSERT_EQ(names.find(asked), sought(temp.path(), asked)) << "step " << step;
    }
    EXPECT_EQ(names.readings(), 1);
}

TEST(WatchedFolder, ATuningToANameThatIsNotThereReadsALargeFolderOnce) {
    TempFolder temp;
    for (int i = 0; i < 500; ++i) temp.write("file" + std::to_string(i), "");
    const Files files(temp.path());
    FolderNames names(temp.path());
    for (int frequency = 875; frequency <= 1081; frequency += 5) {
        const std::string name = "0" + std::to_string(frequency) + ".dat";
        EXPECT_FALSE(files.exists(name));
        EXPECT_EQ(names.find(name), std::nullopt);
        // The settings are rewritten between tunings.
        EXPECT_FALSE(files.rewrite("hm-16.dat", name).has_value());
    }
    EXPECT_EQ(names.readings(), 1);
    EXPECT_EQ(*files.read("HM-16.DAT"), "01080.dat");
}

}  // namespace
}  // namespace hmonitor
