// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/shared_object.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#if defined(__linux__)

namespace base {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

TEST(SharedObject, GivesTheFunctionsOfALibraryOfTheSystem) {
    std::string reason;
    const SharedObject object = SharedObject::open("libm.so.6", reason);
    ASSERT_TRUE(object) << reason;
    double (*squareRoot)(double) = nullptr;
    ASSERT_TRUE(object.take("sqrt", squareRoot));
    EXPECT_EQ(squareRoot(9), 3);
    EXPECT_FALSE(object.take("no such function", squareRoot));
    EXPECT_EQ(squareRoot, nullptr);
}

TEST(SharedObject, DataIsNoFunction) {
    std::string reason;
    const SharedObject object = SharedObject::open("libc.so.6", reason);
    EXPECT_NE(object.function("getenv"), nullptr);
    EXPECT_EQ(object.function("environ"), nullptr);
}

TEST(SharedObject, SaysWhyThereIsNone) {
    std::string reason;
    const SharedObject object = SharedObject::open("/no/such/library.so", reason);
    EXPECT_FALSE(object);
    EXPECT_THAT(reason, HasSubstr("/no/such/library.so"));
    EXPECT_EQ(object.function("sqrt"), nullptr);
}

TEST(SharedObject, CanBeHandedOn) {
    std::string reason;
    SharedObject first = SharedObject::open("libm.so.6", reason);
    SharedObject second;
    EXPECT_FALSE(second);
    second = std::move(first);
    EXPECT_NE(second.function("sqrt"), nullptr);
    const SharedObject third(std::move(second));
    EXPECT_NE(third.function("sqrt"), nullptr);
}

TEST(FileOfCode, IsTheFileThatAnAddressLiesIn) {
    static const char here = 0;
    EXPECT_EQ(std::filesystem::canonical(fileOfCode(&here)),
              std::filesystem::canonical("/proc/self/exe"));
    EXPECT_THAT(fileOfCode(nullptr).string(), IsEmpty());
}

}  // namespace
}  // namespace base

#endif
