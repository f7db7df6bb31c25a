// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/memory_block.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

// A block in which every byte depends on its place, so that any changed byte is noticed.
std::string markedBytes(std::size_t size) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>('A' + i * 7 % 57);
    return bytes;
}

struct MemoryBlockTest : testing::Test {
    test::TempFolder temp;
    Files files{temp.path()};
};

TEST_F(MemoryBlockTest, ARecordIsSixteenBytesAtSixteenTimesItsNumber) {
    std::string bytes(300, ' ');
    bytes.replace(16, 16, "-RADIO UNO-8755 ");
    bytes.replace(256, 16, "-LAST     -1080 ");
    temp.write("halden.dat", bytes);
    const auto block = MemoryBlock::read(files);
    ASSERT_TRUE(block);
    EXPECT_EQ(block->name(1), "RADIO UNO");
    EXPECT_EQ(block->frequencyText(1), "8755 ");
    EXPECT_EQ(block->frequency(1), (StoredFrequency{875, HalfStep::Yes}));
    EXPECT_EQ(block->name(16), "LAST     ");
    EXPECT_EQ(block->frequency(16), (StoredFrequency{1080, HalfStep::No}));
    EXPECT_FALSE(block->isEmpty(1));
    for (int memory = 2; memory < 16; ++memory) EXPECT_TRUE(block->isEmpty(memory)) << memory;
}

TEST_F(MemoryBlockTest, StoringTouchesTheSixteenBytesOfItsRecordOnly) {
    const std::string before = markedBytes(400);
    for (int memory = 1; memory <= 16; ++memory) {
        MemoryBlock block(before);
        block.store(memory, "NAME", "1025");
        std::string expected = before;
        expected.replace(static_cast<std::size_t>(memory) * 16, 16, "-NAME     -1025 ");
        EXPECT_EQ(block.bytes(), expected) << memory;
    }
}

TEST_F(MemoryBlockTest, TheLastRecordEndsAtPosition272) {
    MemoryBlock block(std::string(300, '.'));
    block.store(16, "123456789", "10805");
    EXPECT_EQ(block.bytes(), std::string(256, '.') + "-123456789-10805" + std::string(28, '.'));
}

TEST_F(MemoryBlockTest, ATextTooLongIsCutAtTheFieldsEnd) {
    MemoryBlock block(std::string(300, '.'));
    block.store(1, "TEN LETTERS", "1025555");
    EXPECT_EQ(block.bytes().substr(16, 16), "-TEN LETTE-10255");
    EXPECT_EQ(block.bytes().size(), 300u);
}

TEST_F(MemoryBlockTest, ErasingBlanksBothFieldsBetweenTheirDashes) {
    MemoryBlock block(markedBytes(300));
    block.erase(4);
    EXPECT_EQ(block.bytes().substr(64, 16), "-         -     ");
    EXPECT_TRUE(block.isEmpty(4));
    EXPECT_EQ(block.bytes().substr(0, 64), markedBytes(300).substr(0, 64));
    EXPECT_EQ(block.bytes().substr(80), markedBytes(300).substr(80));
}

TEST_F(MemoryBlockTest, WithNoMemorySelectedNothingIsStored) {
    for (int memory : {-1, 0, 17, 1000}) {
        MemoryBlock block(markedBytes(300));
        block.store(memory, "NAME", "1025");
        block.erase(memory);
        EXPECT_EQ(block.bytes(), markedBytes(300)) << memory;
    }
}

TEST_F(MemoryBlockTest, ReadingOutsideTheMemoriesIsHarmless) {
    std::string bytes(300, 'x');
    bytes.replace(0, 16, "-HEAD     -     ");
    const MemoryBlock block(bytes);
    EXPECT_EQ(block.name(0), "HEAD     ");
    EXPECT_TRUE(block.isEmpty(0));
    for (int memory : {-1, 17, -2147483647, 2147483647}) {
        EXPECT_TRUE(block.isEmpty(memory)) << memory;
        EXPECT_EQ(block.name(memory), "         ") << memory;
    }
}

TEST_F(MemoryBlockTest, NamesAreOneByteALetterOfTheCodePage) {
    MemoryBlock block(std::string(300, ' '));
    block.store(1, "A\u00d1O \u20ac \"\u0141\"", "981");
    EXPECT_EQ(block.bytes().substr(16, 16), "-A\xD1O \x80 \"?\"-981  ");
    EXPECT_EQ(block.name(1), "A\u00d1O \u20ac \"?\"");
}

TEST_F(MemoryBlockTest, UndefinedAndControlBytesAreKept) {
    std::string bytes(300, ' ');
    bytes.replace(32, 16, std::string("-\x81\x8D\0\r\n\x8F\x90\x9D\xFF-981  ", 16));
    MemoryBlock block(bytes);
    const std::string name = block.name(2);
    block.store(3, name, block.frequencyText(2));
    EXPECT_EQ(block.bytes().substr(48, 16), bytes.substr(32, 16));
}

TEST_F(MemoryBlockTest, AShortFileReadsAsBlankBehindAndIsWrittenWithThreeHundredBytes) {
    for (std::size_t size : {0u, 1u, 16u, 31u, 271u, 299u, 300u}) {
        temp.write("halden.dat", markedBytes(size));
        const auto block = MemoryBlock::read(files);
        ASSERT_TRUE(block);
        EXPECT_EQ(block->isEmpty(16), size <= 267) << size;
        EXPECT_FALSE(block->write(files));
        EXPECT_EQ(temp.read("halden.dat"), markedBytes(size) + std::string(300 - size, ' '));
    }
}

TEST_F(MemoryBlockTest, ALongerTailIsKept) {
    for (std::size_t size : {301u, 1u << 20}) {
        temp.write("halden.dat", markedBytes(size));
        auto block = MemoryBlock::read(files);
        block->store(16, "X", "875");
        EXPECT_FALSE(block->write(files));
        EXPECT_EQ(temp.read("halden.dat").size(), size);
        EXPECT_EQ(temp.read("halden.dat").substr(272), markedBytes(size).substr(272));
    }
}

TEST_F(MemoryBlockTest, RestoringBringsBackTheOldBytesAndTheOldLength) {
    for (std::size_t size : {0u, 299u, 300u, 301u}) {
        temp.write("halden.dat", markedBytes(size));
        auto block = MemoryBlock::read(files);
        block->erase(1);
        block->store(2, "NEW", "8755");
        EXPECT_FALSE(block->write(files));
        EXPECT_NE(temp.read("halden.dat"), markedBytes(size));
        EXPECT_FALSE(block->restore(files));
        EXPECT_EQ(temp.read("halden.dat"), markedBytes(size));
    }
}

TEST_F(MemoryBlockTest, AMissingFileSaysSo) {
    EXPECT_EQ(MemoryBlock::read(files).fault().sentence, "File not found: halden.dat");
}

}  // namespace
}  // namespace hmonitor
