// SPDX-License-Identifier: GPL-3.0-or-later
// What a library says beyond the nineteen functions, from its process as from inside.
#include <cstring>

#include "tests/drivers/host/told_library.h"

namespace hm16::test {
namespace {

// The simulated unit, tuned, in a process of its own.
class HostedUnit : public testing::Test {
 protected:
    HostedUnit() : before_(std::filesystem::current_path()) {
        std::filesystem::copy(HM16_SIMULATED, folder_.path() / libraryName());
        std::filesystem::permissions(folder_.path() / libraryName(), std::filesystem::perms(0755));
        std::filesystem::current_path(folder_.path());
        loaded_ = HostedLibrary::load(HM16_HOST, folder_.path());
        EXPECT_NE(loaded_.library, nullptr) << loaded_.result.fault;
        loaded_.library->functions().init();
        const auto extension = loaded_.library->extension();
        figures_ = static_cast<const HM16_FiguresV1*>(extension(HM16_FIGURES));
    }
    ~HostedUnit() override {
        loaded_.library->functions().terminate();
        loaded_.library.reset();
        std::filesystem::current_path(before_);
    }

    TempFolder folder_;
    std::filesystem::path before_;
    HostedLoad loaded_;
    const HM16_FiguresV1* figures_ = nullptr;
};

TEST_F(HostedUnit, DescribesTheFiguresThatTheLibraryItselfDescribes) {
    const LoadResult inside = Library::load(folder_.path());
    ASSERT_NE(inside.library, nullptr);
    inside.library->functions().init();
    const auto extension =
        reinterpret_cast<HM16_ExtensionFunction>(inside.library->extra(HM16_EXTENSION_NAME));
    const auto* own = static_cast<const HM16_FiguresV1*>(extension(HM16_FIGURES));
    ASSERT_NE(figures_, nullptr);
    ASSERT_GT(own->count(), 5);
    EXPECT_EQ(figures_->count(), own->count());
    for (std::int32_t i = -1; i <= own->count(); ++i) {
        HM16_FigureInfo hosted{}, inner{};
        hosted.size = inner.size = sizeof hosted;
        EXPECT_EQ(figures_->describe(i, &hosted), own->describe(i, &inner)) << i;
        EXPECT_STREQ(hosted.key, inner.key);
        EXPECT_STREQ(hosted.unit, inner.unit);
        EXPECT_EQ(hosted.lowest, inner.lowest);
        EXPECT_EQ(hosted.highest, inner.highest);
    }
    inside.library->functions().terminate();
}

TEST_F(HostedUnit, FillsNoMoreOfADescriptionThanTheCallerHasRoomFor) {
    struct {
        HM16_FigureInfo info;
        char behind[4];
    } held;
    std::memset(&held, 'x', sizeof held);
    held.info.size = offsetof(HM16_FigureInfo, unit);
    EXPECT_EQ(figures_->describe(0, &held.info), 0);
    EXPECT_EQ(held.info.unit[0], 'x');
    EXPECT_EQ(held.behind[0], 'x');
}

TEST_F(HostedUnit, HandsOverSlotsWithoutALoss) {
    loaded_.library->functions().normal(985, 0, 0, 0, 0);
    std::uint64_t next = 0;
    std::vector<std::uint64_t> numbers;
    ASSERT_TRUE(comes([&] {
        std::array<HM16_Slot, 3> slots;
        const std::int32_t count = figures_->slots(0, next, slots.data(), sizeof(HM16_Slot),
                                                   static_cast<int>(slots.size()), &next);
        EXPECT_GE(count, 0);
        EXPECT_LE(count, 3);
        for (std::int32_t i = 0; i < count; ++i) {
            const HM16_Slot& slot = slots[static_cast<std::size_t>(i)];
            EXPECT_EQ(slot.lengthMs, 50u);
            numbers.push_back(slot.number);
        }
        return numbers.size() >= 12;
    }));
    for (std::size_t i = 1; i < numbers.size(); ++i) EXPECT_EQ(numbers[i], numbers[i - 1] + 1);
    EXPECT_EQ(figures_->slots(4, 0, nullptr, sizeof(HM16_Slot), 0, &next), -1);
}

TEST_F(HostedUnit, LaysSlotsWhereACallerOfAnotherAgeWantsThem) {
    loaded_.library->functions().normal(985, 0, 0, 0, 0);
    constexpr std::size_t kWider = sizeof(HM16_Slot) + 16;
    std::vector<unsigned char> room(kWider * 2, 0xee);
    std::uint64_t next = 0;
    ASSERT_TRUE(comes([&] {
        next = 0;
        return figures_->slots(0, 0, reinterpret_cast<HM16_Slot*>(room.data()), kWider, 2, &next) ==
               2;
    }));
    HM16_Slot first, second;
    std::memcpy(&first, room.data(), sizeof first);
    std::memcpy(&second, room.data() + kWider, sizeof second);
    EXPECT_EQ(second.number, first.number + 1);
    EXPECT_EQ(next, second.number + 1);
    EXPECT_EQ(room[kWider - 1], 0xee);
}

TEST_F(HostedUnit, SaysWhyNoUnitAnswers) {
    const auto* absence =
        static_cast<const HM16_AbsenceV1*>(loaded_.library->extension()(HM16_ABSENCE));
    ASSERT_NE(absence, nullptr);
    HM16_AbsenceInfo info{};
    info.size = sizeof info;
    EXPECT_EQ(absence->why(&info), 0);
    EXPECT_EQ(info.cause, HM16_NOT_TOLD);
    loaded_.library->functions().terminate();
    folder_.write("hm-16.ini", "pace = quick\n");
    loaded_.library->functions().init();
    std::memset(&info, 'x', sizeof info);
    info.size = offsetof(HM16_AbsenceInfo, words) + 6;
    EXPECT_EQ(absence->why(&info), 0);
    EXPECT_EQ(info.size, offsetof(HM16_AbsenceInfo, words) + 6);
    EXPECT_EQ(info.cause, HM16_BAD_SETTING);
    EXPECT_STREQ(info.what, "hm-16.ini");
    EXPECT_EQ(std::string(info.words, 7).back(), 'x');
}

TEST_F(HostedUnit, HasNoExtensionThatTheLibraryLacks) {
    EXPECT_EQ(loaded_.library->extension()("hm16.unheard_of.1"), nullptr);
    const LoadResult inside = Library::load(folder_.path());
    const auto extension =
        reinterpret_cast<HM16_ExtensionFunction>(inside.library->extra(HM16_EXTENSION_NAME));
    EXPECT_EQ(loaded_.library->extension()(HM16_LISTEN) != nullptr,
              extension(HM16_LISTEN) != nullptr);
}

TEST(HostedExtensions, AreNoneWhereTheLibraryHasNone) {
    ToldLibrary told;
    told.load();
    EXPECT_EQ(told.library().extension(), nullptr);
}

}  // namespace
}  // namespace hm16::test
