// SPDX-License-Identifier: GPL-3.0-or-later
// Saving, deleting and cancelling, byte by byte.
#include "core/code_page.h"
#include "core/numbers.h"
#include "tests/tuner/editor_bench.h"
#include "tests/tuner/typed_table.h"
#include "tuner/preset_look.h"

namespace hmonitor::test {
namespace {

// A file in which every byte depends on its place, with one memory that holds a station.
std::string markedBlock(std::size_t size) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>('A' + i * 7 % 57);
    const std::string first = "-RADIO UNO-981  ";
    if (size >= 32) bytes.replace(16, 16, first);
    return bytes;
}

std::string paddedTo300(std::string bytes) {
    if (bytes.size() < 300) bytes.resize(300, ' ');
    return bytes;
}

struct MemoryStore : testing::Test {
    EditorBench bench;
    Form_bSetMemories& editor = bench.editor;
};

TEST_F(MemoryStore, SavingWritesTheRecordTunesItAndShowsItAgain) {
    bench.startInEditor();
    bench.select(5);
    bench.takeCalls();
    bench.save("98.15", "NUEVA");
    EXPECT_EQ(bench.record(5), "-NUEVA    -9815 ");
    EXPECT_EQ(editor.Text1.text, "98.15");
    EXPECT_EQ(editor.Text2.text, "NUEVA");
    EXPECT_EQ(editor.IsEmptySlot, 0);
    EXPECT_EQ(editor.presets[5].colour.get(), preset_look::kStored);
    EXPECT_EQ(bench.state.MemoryNumber, "5");
    EXPECT_EQ(bench.state.StationName, "NUEVA    ");
    EXPECT_EQ(bench.state.MemoryFreq, "981.5");
    EXPECT_EQ(bench.takeCalls(),
              (std::vector<std::string>{"HM_Parar", "HM_Normal(981.5, 0, 0, 0, 0)"}));
    EXPECT_TRUE(editor.enabled);
    EXPECT_TRUE(bench.rackDisabled());
}

TEST_F(MemoryStore, EveryTypedTextOfTheTableIsStoredAndTunedAsTheTableSays) {
    bench.desktop.answerEveryBox = true;
    bench.startInEditor();
    for (const char* table : {"typed_frequencies.txt", "typed_frequencies_by_hand.txt"}) {
        for (const TypedRow& row : typedRows(table)) {
            SCOPED_TRACE("typed: \"" + row.typed + "\"");
            bench.tuneBackToMemory1();
            bench.select(5);
            bench.desktop.boxes.clear();
            bench.save(row.typed, "");
            if (row.record == "wrong") {
                EXPECT_EQ(bench.record(5), "-         -     ");
                EXPECT_EQ(bench.desktop.boxes.size(), 1u);
                EXPECT_EQ(bench.formB.TunedFreq, 981);
                continue;
            }
            std::string field = row.record;
            field.resize(5, ' ');
            EXPECT_EQ(bench.record(5), "-         -" + field);
            EXPECT_EQ(editor.Text1.text, row.shown);
            EXPECT_EQ(shortText(bench.formB.TunedFreq), row.tuned);
            EXPECT_TRUE(bench.desktop.boxes.empty());
            bench.click(editor.SSCommand22);
        }
    }
}

TEST_F(MemoryStore, AWrongFrequencyIsReportedAndNothingIsSaved) {
    bench.startInEditor();
    const std::string before = bench.read("halden.dat");
    bench.desktop.boxAnswers = {"OK"};
    bench.takeCalls();
    bench.save("108.1", "OTRA");
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].title, "Memory Preset");
    EXPECT_EQ(bench.desktop.boxes[0].text, "The frequency is incorrect.");
    EXPECT_EQ(bench.desktop.boxes[0].icon, display::BoxIcon::Critical);
    EXPECT_EQ(bench.read("halden.dat"), before);
    EXPECT_TRUE(bench.takeCalls().empty());
    // What was typed stays, to be tried again.
    EXPECT_EQ(editor.Text1.text, "108.1");
    EXPECT_EQ(editor.Text2.text, "OTRA");
}

TEST(MemoryStoreInSpanish, AWrongFrequencyIsReportedInSpanish) {
    EditorBench bench(RackBench::kSpanish);
    bench.startInEditor();
    bench.desktop.boxAnswers = {"OK"};
    bench.save("87.4", "");
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].title, "Memory Preset");
    EXPECT_EQ(bench.desktop.boxes[0].text, "La frecuencia es incorrecta.");
}

TEST(MemoryStoreInSpanish, APortugueseSystemReadsEnglish) {
    EditorBench bench(RackBench::kPortuguese);
    bench.startInEditor();
    bench.desktop.boxAnswers = {"OK"};
    bench.save("87.4", "");
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].text, "The frequency is incorrect.");
}

TEST_F(MemoryStore, OnlyTheSixteenBytesOfItsRecordChange) {
    for (const std::size_t size : {300u, 301u, 1000u, 272u, 299u, 32u, 0u}) {
        SCOPED_TRACE(size);
        EditorBench fresh;
        fresh.start();
        const std::string before = markedBlock(size);
        fresh.write("halden.dat", before);
        fresh.openEditor();
        for (const int memory : {16, 1, 8}) {
            const std::string old = paddedTo300(fresh.read("halden.dat"));
            fresh.select(memory);
            fresh.save("102.55", "CIEN");
            std::string expected = old;
            expected.replace(16 * static_cast<std::size_t>(memory), 16, "-CIEN     -10255");
            EXPECT_EQ(fresh.read("halden.dat"), expected) << memory;
        }
        EXPECT_EQ(fresh.read("halden.dat").substr(0, 16), paddedTo300(before).substr(0, 16));
        EXPECT_EQ(fresh.read("halden.dat").substr(272), paddedTo300(before).substr(272));
    }
}

TEST_F(MemoryStore, NamesAreKeptInTheCodePageAndCutAtNineCharacters) {
    struct Row {
        const char* typed;
        std::string kept;
    };
    const Row rows[] = {
        {"", "         "},
        {"NUEVE LET", "NUEVE LET"},
        {"MORE THAN NINE", "MORE THAN"},
        {"\"QUOTE\" '", "\"QUOTE\" '"},
        {"lower", "lower    "},
        {"RADIO Ñ", "RADIO \xd1  "},
        {"ÁÉÍÓÚÜÑÇ€", "\xc1\xc9\xcd\xd3\xda\xdc\xd1\xc7\x80"},
        {"ÁÉÍÓÚÜÑÇ€more", "\xc1\xc9\xcd\xd3\xda\xdc\xd1\xc7\x80"},
        {"九FM", "?FM      "},
        {"Ωmega", "?mega    "},
        {"A\tB\nC\rD", "A\tB\nC\rD  "},
        {" LEADING", " LEADING "},
        {"-----", "-----    "},
        {"\xff\xfe", "??       "},
    };
    bench.startInEditor();
    bench.select(4);
    const std::string before = bench.read("halden.dat");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.typed);
        bench.save("98.1", row.typed);
        EXPECT_EQ(bench.record(4), "-" + row.kept + "-981  ");
        const std::string shown =
            utf8FromCodePage(row.kept.substr(0, row.kept.find_last_not_of(' ') + 1));
        EXPECT_EQ(editor.Text2.text, shown);
    }
    std::string after = bench.read("halden.dat");
    EXPECT_EQ(after.size(), before.size());
    after.replace(64, 16, before, 64, 16);
    EXPECT_EQ(after, before);
}

TEST_F(MemoryStore, ANameIsTypedInUpperCaseAndNoLongerThanNineLetters) {
    bench.startInEditor();
    bench.select(4);
    bench.type(editor.Text2, "radio ñandú más");
    EXPECT_EQ(editor.Text2.text, "RADIO ÑAN");
}

TEST_F(MemoryStore, SaveAndDeletDoNothingWhileNoPresetIsSelected) {
    bench.start();
    bench.tuneByHand(1012);
    bench.openEditor();
    const std::string before = bench.read("halden.dat");
    bench.takeCalls();
    bench.click(editor.SSCommand20);
    bench.edit(editor.Text1, "not a frequency");
    bench.click(editor.SSCommand20);
    bench.click(editor.SSCommand22);
    EXPECT_EQ(bench.read("halden.dat"), before);
    EXPECT_TRUE(bench.takeCalls().empty());
    EXPECT_TRUE(bench.desktop.boxes.empty());
    EXPECT_EQ(editor.SelectedMemory, "cero");
}

TEST_F(MemoryStore, DeletEmptiesTheRecordAndLeavesTheNameInItsField) {
    bench.startInEditor();
    bench.select(3);
    bench.takeCalls();
    const std::string before = bench.read("halden.dat");
    bench.click(editor.SSCommand22);
    std::string expected = before;
    expected.replace(48, 16, "-         -     ");
    EXPECT_EQ(bench.read("halden.dat"), expected);
    EXPECT_EQ(editor.IsEmptySlot, 1);
    EXPECT_EQ(editor.Text1.text, "");
    EXPECT_EQ(editor.Text2.text, "R. TRES");
    EXPECT_EQ(editor.presets[3].colour.get(), preset_look::kEmpty);
    // The rack is not tuned.
    EXPECT_TRUE(bench.takeCalls().empty());
    EXPECT_EQ(bench.formB.TunedFreq, 1025.5);
}

TEST_F(MemoryStore, DeletOfAnEmptyMemoryWritesNothing) {
    bench.startInEditor();
    bench.select(7);
    // Any write would restore the record's dashes, which this file lacks.
    std::string bare = bench.read("halden.dat");
    bare.replace(112, 16, std::string(16, ' '));
    bench.write("halden.dat", bare);
    bench.click(editor.SSCommand22);
    EXPECT_EQ(bench.read("halden.dat"), bare);
}

TEST_F(MemoryStore, ADeletedMemoryCanBeSavedAgainFromWhatItsNameFieldKept) {
    bench.startInEditor();
    bench.select(3);
    bench.click(editor.SSCommand22);
    bench.edit(editor.Text1, "103.3");
    bench.click(editor.SSCommand20);
    EXPECT_EQ(bench.record(3), "-R. TRES  -1033 ");
    EXPECT_EQ(editor.IsEmptySlot, 0);
}

TEST_F(MemoryStore, CancelBringsBackAllBytesAndTheLength) {
    for (const std::size_t size : {300u, 301u, 299u, 100u, 0u, 5000u}) {
        SCOPED_TRACE(size);
        EditorBench fresh;
        fresh.start();
        fresh.write("halden.dat", markedBlock(size));
        fresh.openEditor();
        fresh.select(1);
        fresh.save("99.9", "CAMBIADA");
        fresh.select(2);
        fresh.save("100.1", "OTRA");
        fresh.select(3);
        fresh.click(fresh.editor.SSCommand22);
        ASSERT_NE(fresh.read("halden.dat"), markedBlock(size));
        const double tuned = fresh.formB.TunedFreq;
        fresh.takeCalls();
        fresh.click(fresh.editor.SSCommand18);
        EXPECT_EQ(fresh.read("halden.dat"), markedBlock(size));
        // The rack stays on the station of the last save.
        EXPECT_TRUE(fresh.takeCalls().empty());
        EXPECT_EQ(fresh.formB.TunedFreq, tuned);
        EXPECT_TRUE(fresh.rackUsable());
        EXPECT_FALSE(fresh.editor.loaded());
    }
}

TEST_F(MemoryStore, CancelAfterDeletBringsTheMemoryBack) {
    bench.startInEditor();
    const std::string before = bench.read("halden.dat");
    bench.click(editor.SSCommand22);
    bench.click(editor.SSCommand18);
    EXPECT_EQ(bench.read("halden.dat"), before);
    bench.openEditor();
    EXPECT_EQ(editor.Text2.text, "RADIO UNO");
}

TEST_F(MemoryStore, CancelGoesBackToTheOpeningOnlyNotToAnEarlierOne) {
    bench.startInEditor();
    bench.save("99.9", "UNO");
    bench.click(editor.SSCommand17);
    bench.openEditor();
    bench.save("88.8", "DOS");
    bench.click(editor.SSCommand18);
    EXPECT_EQ(bench.record(1), "-UNO      -999  ");
}

TEST_F(MemoryStore, AcceptKeepsWhatWasSavedAndHandsOnTheMemory) {
    bench.startInEditor();
    bench.select(16);
    bench.save("99.9", "UNO");
    bench.select(9);
    bench.click(editor.SSCommand17);
    EXPECT_EQ(bench.record(16), "-UNO      -999  ");
    EXPECT_EQ(bench.state.MemoryNumber, "9");
    EXPECT_TRUE(bench.rackUsable());
    EXPECT_FALSE(editor.loaded());
}

TEST_F(MemoryStore, AcceptHandsOnEvenTheWordForNoMemory) {
    bench.start();
    bench.tuneByHand(1012);
    bench.openEditor();
    bench.click(editor.SSCommand17);
    EXPECT_EQ(bench.state.MemoryNumber, "cero");
}

TEST_F(MemoryStore, TheStepKeysFindTheNewStation) {
    bench.startInEditor();
    bench.select(2);
    bench.save("90.3", "NUEVA");
    bench.select(1);
    bench.click(editor.SSCommand17);
    bench.click(bench.formB.SSCommand1);
    EXPECT_EQ(bench.formB.MemoryNumber, 2);
    EXPECT_EQ(bench.formB.TunedFreq, 903);
    EXPECT_EQ(bench.formB.Label_RadioName.caption, "NUEVA    ");
}

}  // namespace
}  // namespace hmonitor::test
