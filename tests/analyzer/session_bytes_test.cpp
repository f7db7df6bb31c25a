// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/session_bytes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "tests/analyzer/table_lines.h"

namespace hmonitor::test {
namespace {

constexpr std::size_t kUsualSize = 455269;

std::uint64_t fnv(std::string_view bytes) {
    std::uint64_t value = 0xcbf29ce484222325;
    for (const char byte : bytes)
        value = (value ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    return value;
}

void spread(Density& density) {
    for (int row = 0; row < Density::kRows; ++row) {
        for (int x = 0; x < Density::kColumns; ++x) density.set(x, row, (7 * x + 13 * row) % 97);
    }
}

SessionInfo sample() {
    SessionInfo info;
    info.Version = 1;
    info.Comment = "Señal de la mañana, 3 €";
    info.Created = 46347.770833333336;
    info.StartMHz = 88;
    info.StopMHz = 108;
    info.Acquisitions = 528;
    info.Latitude = -34.608333;
    info.Longitude = -58.3725;
    info.Altitude = 25;
    return info;
}

struct Stored {
    SessionInfo info;
    Density density;
};

Stored stored(const std::string& name) {
    Stored of;
    if (name == "spanish") {
        of.info = sample();
        spread(of.density);
    } else if (name == "empty") {
        of.info = {1, "", "", 0.5, 87.5f, 89, 0, 0, 0, -777, {}};
    } else if (name == "longest") {
        std::string comment;
        for (int i = 0; i < 65535; ++i) comment += "é";
        of.info = {1, "", comment, 1, 88, 108, 2147483647, -777, -777, -777, {}};
        spread(of.density);
    } else if (name == "cut") {
        of.info = {1, "", "Ω" + std::string(70000, 'x'), 1, 88, 108, 1, 89.9, 180, 8848.86f, {}};
        for (double& cell : of.density.cells()) cell = 1;
    } else {
        ADD_FAILURE() << "a session of the table that nobody makes: " << name;
    }
    return of;
}

TEST(SessionBytes, AreThoseOfTheSecondProgram) {
    const auto table = tableLines("session");
    ASSERT_EQ(table.size(), 4u);
    for (const auto& line : table) {
        const Stored of = stored(line[0]);
        const std::string bytes = sessionBytes(of.info, of.density);
        EXPECT_EQ(std::to_string(bytes.size()), line[1]) << line[0];
        EXPECT_EQ(fnv(bytes), std::stoull(line[2], nullptr, 16)) << line[0];
    }
}

TEST(SessionBytes, ComeBackAsTheyWere) {
    for (const char* name : {"spanish", "empty", "longest"}) {
        const Stored of = stored(name);
        Stored back;
        back.density.set(5, 5, 99);
        EXPECT_EQ(readSession(sessionBytes(of.info, of.density), back.info, back.density),
                  SessionCondition::Whole);
        EXPECT_TRUE(back.info == of.info) << name;
        EXPECT_TRUE(std::ranges::equal(back.density.cells(), of.density.cells())) << name;
    }
}

TEST(SessionBytes, OfAnEmptyCommentAreTheUsualSize) {
    const Stored of = stored("empty");
    EXPECT_EQ(sessionBytes(of.info, of.density).size(), kUsualSize);
}

TEST(SessionBytes, KeepTheUnusedTextAndTheReservedOne) {
    SessionInfo info = sample();
    info.Unused = "ñ";
    info.Reserved[255] = 'z';
    SessionInfo back;
    Density cells;
    EXPECT_EQ(readSession(sessionBytes(info, cells), back, cells), SessionCondition::Whole);
    EXPECT_EQ(back.Unused, "ñ");
    EXPECT_EQ(back.Reserved[255], 'z');
}

TEST(SessionBytes, CutAtAnyLength_GiveWhatIsThereAndTheRestAsCleared) {
    Stored of = stored("spanish");
    const std::string bytes = sessionBytes(of.info, of.density);
    const std::size_t cells = bytes.size() - Density::kCells * 8;
    std::vector<std::size_t> lengths;
    for (std::size_t i = 0; i < cells + 40; ++i) lengths.push_back(i);
    for (std::size_t i = cells; i < bytes.size(); i += 9973) lengths.push_back(i);
    lengths.push_back(bytes.size() - 1);
    for (const std::size_t length : lengths) {
        Stored back = stored("longest");
        EXPECT_EQ(readSession(bytes.substr(0, length), back.info, back.density),
                  SessionCondition::Damaged)
            << length;
        EXPECT_EQ(back.info.Version, length > 0 ? 1 : 0) << length;
        const std::size_t whole = length > cells ? (length - cells) / 8 : 0;
        for (std::size_t i = 0; i < std::size_t{Density::kCells}; i += 1 + i / 50) {
            ASSERT_EQ(back.density.cells()[i], i < whole ? of.density.cells()[i] : 0)
                << length << " cell " << i;
        }
        if (length < cells) {
            EXPECT_NE(back.info.Acquisitions, 2147483647) << length;
        }
    }
}

TEST(SessionBytes, ATornCommentGivesWhatIsThere) {
    const Stored of = stored("spanish");
    Stored back;
    readSession(std::string_view(sessionBytes(of.info, of.density)).substr(0, 5 + 5), back.info,
                back.density);
    EXPECT_EQ(back.info.Comment, "Señal");
    EXPECT_EQ(back.info.Created, 0);
    EXPECT_EQ(back.info.StopMHz, 0);
}

class OddSession : public testing::Test {
 protected:
    /// The session with other bytes at an offset from `Created`.
    template <typename Number>
    SessionCondition readWith(std::size_t behindCreated, Number value) {
        const Stored of = stored("empty");
        std::string bytes = sessionBytes(of.info, of.density);
        std::memcpy(bytes.data() + 5 + behindCreated, &value, sizeof value);
        return readSession(bytes, back.info, back.density);
    }
    Stored back;
};

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST_F(OddSession, ADateThatIsNoNumberIsCleared) {
    EXPECT_EQ(readWith(0, kNan), SessionCondition::Damaged);
    EXPECT_EQ(back.info.Created, 0);
}

TEST_F(OddSession, EndsThatAreNoNumbersStayForTheScanToRefuse) {
    EXPECT_EQ(readWith(8, static_cast<float>(kNan)), SessionCondition::Damaged);
    EXPECT_NE(back.info.StartMHz, back.info.StartMHz);
}

TEST_F(OddSession, ACountBelow0IsNone) {
    EXPECT_EQ(readWith(16, std::int32_t{-1}), SessionCondition::Damaged);
    EXPECT_EQ(back.info.Acquisitions, 0);
}

TEST_F(OddSession, APlaceThatIsNoNumberIsNotAvailable) {
    EXPECT_EQ(readWith(20, kInfinity), SessionCondition::Damaged);
    EXPECT_EQ(back.info.Latitude, -777);
    EXPECT_EQ(readWith(28, kNan), SessionCondition::Damaged);
    EXPECT_EQ(back.info.Longitude, -777);
    EXPECT_EQ(readWith(36, static_cast<float>(kNan)), SessionCondition::Damaged);
    EXPECT_EQ(back.info.Altitude, -777);
}

TEST_F(OddSession, CellsThatAreNoCountsAreEmpty) {
    for (const double odd : {kNan, kInfinity, -1.0}) {
        EXPECT_EQ(readWith(296, odd), SessionCondition::Damaged);
        EXPECT_EQ(back.density.at(0, 0), 0);
    }
    EXPECT_EQ(readWith(296, 2.5), SessionCondition::Whole);
    EXPECT_EQ(back.density.at(0, 0), 2.5);
}

TEST_F(OddSession, AnotherVersionAndATailAreDamage) {
    const Stored of = stored("empty");
    std::string bytes = sessionBytes(of.info, of.density);
    bytes[0] = 2;
    EXPECT_EQ(readSession(bytes, back.info, back.density), SessionCondition::Damaged);
    EXPECT_EQ(back.info.Version, 2);
    bytes[0] = 1;
    EXPECT_EQ(readSession(bytes + "x", back.info, back.density), SessionCondition::Damaged);
    EXPECT_EQ(readSession(bytes, back.info, back.density), SessionCondition::Whole);
}

}  // namespace
}  // namespace hmonitor::test
