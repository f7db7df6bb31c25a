// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are missing, torn or no text, and a folder that cannot be written.
#include <filesystem>
#include <functional>

#include "tests/support/as_nobody.h"
#include "tests/tuner/editor_bench.h"

namespace hmonitor::test {
namespace {

struct EditorFaults : testing::Test {
    EditorBench bench;
    Form_bSetMemories& editor = bench.editor;

    /// Acts while the working folder cannot be written.
    template <class Act>
    void withoutWriting(Act act) {
        const std::filesystem::path& folder = bench.scratch.path();
        setRights(folder, 0555);
        {
            AsNobody nobody;
            act();
        }
        setRights(folder, 0755);
    }
};

TEST_F(EditorFaults, AMissingPresetFileEndsTheProgramWithItsName) {
    bench.start();
    bench.remove("halden.dat");
    bench.desktop.boxAnswers = {"OK"};
    bench.openEditor();
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].text, "File not found: halden.dat");
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_FALSE(bench.exists("halden.dat"));
}

TEST_F(EditorFaults, APresetFileThatVanishesWhileTheEditorIsOpenIsNotMadeAnew) {
    struct Row {
        const char* what;
        std::function<void(EditorBench&)> act;
    };
    const Row rows[] = {
        {"select", [](EditorBench& at) { at.select(3); }},
        {"save", [](EditorBench& at) { at.click(at.editor.SSCommand20); }},
        {"delete", [](EditorBench& at) { at.click(at.editor.SSCommand22); }},
        {"cancel", [](EditorBench& at) { at.click(at.editor.SSCommand18); }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        EditorBench fresh;
        fresh.startInEditor();
        fresh.remove("halden.dat");
        fresh.desktop.boxAnswers = {"OK"};
        row.act(fresh);
        ASSERT_EQ(fresh.desktop.boxes.size(), 1u);
        EXPECT_EQ(fresh.desktop.boxes[0].text, "File not found: halden.dat");
        EXPECT_TRUE(fresh.desktop.ended());
        EXPECT_FALSE(fresh.exists("halden.dat"));
    }
}

TEST_F(EditorFaults, WhateverIsPastedIntoTheFieldsChangesNoOtherRecord) {
    const char* texts[] = {"-98.1",    "+98.1",    "98,1", "1e2",      " 98.1 ",
                           "98.1\r\n", "\t98.1",   "0x62", "98.1\xff", "9999999999999999999999",
                           "\u0661",   "\"98.1\"", "%s%n", "-"};
    bench.desktop.answerEveryBox = true;
    bench.startInEditor();
    bench.select(8);
    const std::string before = bench.read("halden.dat");
    for (const char* frequency : texts) {
        for (const char* name : {"", "PASTED, WITH MORE", "\x01\x02\x1f\x7f", "\u4e5d\u4e5d"}) {
            bench.save(frequency, name);
            std::string after = bench.read("halden.dat");
            ASSERT_EQ(after.size(), before.size());
            EXPECT_EQ(after[128], '-');
            EXPECT_EQ(after[138], '-');
            after.replace(128, 16, before, 128, 16);
            EXPECT_EQ(after, before) << frequency << " and " << name;
            bench.click(editor.SSCommand22);
        }
    }
    for (const display::MessageBox& box : bench.desktop.boxes) {
        EXPECT_EQ(box.text, "The frequency is incorrect.");
    }
    EXPECT_FALSE(bench.desktop.ended());
}

TEST_F(EditorFaults, ASettingsFileThatIsTooShortEndsTheProgramWithTheLine) {
    bench.start();
    bench.write("hm-16.dat", lines({"1", "0", "0", "1"}));
    bench.desktop.boxAnswers = {"OK"};
    bench.openEditor();
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].text, "hm-16.dat: line 5 is missing");
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_EQ(bench.read("hm-16.dat"), lines({"1", "0", "0", "1"}));
}

TEST_F(EditorFaults, PresetFilesOfAnyLengthOpenWithTheMemoriesThatTheyHold) {
    const std::string whole = memoryBlock({{1, "RADIO UNO", "981"}, {16, "DIECISEIS", "875"}});
    struct Row {
        std::string bytes;
        const char* name1;
        const char* frequency16;
    };
    const Row rows[] = {{"", "", ""},
                        {whole.substr(0, 31), "RADIO UNO", ""},
                        {whole.substr(0, 271), "RADIO UNO", "87.5"},
                        {whole.substr(0, 299), "RADIO UNO", "87.5"},
                        {whole, "RADIO UNO", "87.5"},
                        {whole + "x", "RADIO UNO", "87.5"},
                        {whole + std::string(1 << 20, '\xff'), "RADIO UNO", "87.5"}};
    bench.start();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.bytes.size());
        bench.write("halden.dat", row.bytes);
        bench.openEditor();
        bench.select(1);
        EXPECT_EQ(editor.Text2.text, row.name1);
        bench.select(16);
        EXPECT_EQ(editor.Text1.text, row.frequency16);
        bench.click(editor.SSCommand18);
        EXPECT_EQ(bench.read("halden.dat"), row.bytes);
    }
    EXPECT_TRUE(bench.desktop.boxes.empty());
}

TEST_F(EditorFaults, APresetFileOfAnyBytesIsShownAndTunedInsideTheBand) {
    bench.start();
    for (int byte = 0; byte < 256; byte += 5) {
        SCOPED_TRACE(byte);
        const std::string bytes(300, static_cast<char>(byte));
        bench.write("halden.dat", bytes);
        bench.openEditor();
        for (int memory = 1; memory <= 16; ++memory) bench.select(memory);
        EXPECT_GE(bench.formB.TunedFreq, 875);
        EXPECT_LE(bench.formB.TunedFreq, 1081.5);
        bench.click(editor.SSCommand18);
        EXPECT_EQ(bench.read("halden.dat"), bytes);
    }
    EXPECT_TRUE(bench.desktop.boxes.empty());
}

TEST_F(EditorFaults, AFileThatCannotBeWrittenIsOneSentenceAndTheMemoryStays) {
    bench.startInEditor();
    bench.select(3);
    const std::string before = bench.read("halden.dat");
    withoutWriting([&] {
        bench.desktop.boxAnswers = {"OK"};
        bench.save("99.9", "NUEVA");
        ASSERT_EQ(bench.desktop.boxes.size(), 1u);
        EXPECT_TRUE(bench.desktop.boxes[0].text.starts_with("halden.dat cannot be written: "));
        EXPECT_EQ(bench.read("halden.dat"), before);
        // The handler goes on: the memory is shown and tuned as stored.
        EXPECT_EQ(editor.Text1.text, "102.55");
        EXPECT_EQ(bench.formB.TunedFreq, 1025.5);
        EXPECT_TRUE(editor.enabled);
    });
}

TEST_F(EditorFaults, AFailedSaveOfAnEmptyMemoryDoesNotTune) {
    bench.startInEditor();
    bench.select(7);
    withoutWriting([&] {
        bench.desktop.boxAnswers = {"OK"};
        bench.takeCalls();
        bench.save("99.9", "NUEVA");
        EXPECT_EQ(bench.desktop.boxes.size(), 1u);
        EXPECT_TRUE(bench.takeCalls().empty());
        EXPECT_EQ(bench.formB.TunedFreq, 981);
    });
}

TEST_F(EditorFaults, AFailedDeletKeepsTheMemory) {
    bench.startInEditor();
    withoutWriting([&] {
        bench.desktop.boxAnswers = {"OK"};
        bench.click(editor.SSCommand22);
        EXPECT_EQ(bench.desktop.boxes.size(), 1u);
        EXPECT_EQ(editor.IsEmptySlot, 0);
        EXPECT_EQ(editor.Text1.text, "98.1");
    });
}

TEST_F(EditorFaults, CancelWithoutAChangeNeedsNoWriting) {
    bench.startInEditor();
    withoutWriting([&] { bench.click(editor.SSCommand18); });
    EXPECT_TRUE(bench.desktop.boxes.empty());
    EXPECT_TRUE(bench.rackUsable());
    EXPECT_FALSE(editor.loaded());
}

TEST_F(EditorFaults, AFailedCancelSaysSoAndClosesAllTheSame) {
    bench.startInEditor();
    bench.save("99.9", "NUEVA");
    withoutWriting([&] {
        bench.desktop.boxAnswers = {"OK"};
        bench.click(editor.SSCommand18);
        EXPECT_EQ(bench.desktop.boxes.size(), 1u);
    });
    EXPECT_TRUE(bench.rackUsable());
    EXPECT_FALSE(editor.loaded());
    EXPECT_EQ(bench.record(1), "-NUEVA    -999  ");
}

TEST_F(EditorFaults, AFailedAcceptSaysSoKeepsTheCorrectionAndClosesAllTheSame) {
    bench.startInEditor();
    bench.click(editor.SSCommand19);
    bench.click(editor.SSCommand21);
    bench.edit(editor.label_dbCorrection, "5");
    withoutWriting([&] {
        bench.desktop.boxAnswers = {"OK"};
        bench.click(editor.SSCommand17);
        ASSERT_EQ(bench.desktop.boxes.size(), 1u);
        EXPECT_TRUE(bench.desktop.boxes[0].text.starts_with("hm-16.dat cannot be written: "));
    });
    EXPECT_EQ(bench.state.DbCorrection10, "0");
    EXPECT_EQ(bench.read("hm-16.dat"), lines({"1", "0", "0", "1", "0", "0", "0", "0"}));
    EXPECT_TRUE(bench.rackUsable());
    EXPECT_FALSE(editor.loaded());
}

}  // namespace
}  // namespace hmonitor::test
