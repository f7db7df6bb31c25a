// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utf8_path.h"

#include <gtest/gtest.h>

namespace base {
namespace {

TEST(Utf8Path, ANameComesBackWhateverItsLetters) {
    for (const std::string text : {"", "hm-16.dat", "sesi\u00f3n.3Ds", "\u20ac", "\u03a9\u0416.3Ds",
                                   "\U0001F4FB.3Ds", "a/\u03a9"}) {
        EXPECT_EQ(utf8Of(pathOf(text)), text);
    }
}

#ifdef _WIN32

TEST(Utf8Path, HalfACharacterIsReplaced) {
    EXPECT_EQ(utf8Of(L"a\xd83d.3Ds"), "a\ufffd.3Ds");
    EXPECT_EQ(utf8Of(L"\xdcfb\xd83d"), "\ufffd\ufffd");
}

#else

TEST(Utf8Path, ANameThatIsNoTextKeepsItsBytes) {
    EXPECT_EQ(utf8Of("a\xff.3Ds"), "a\xff.3Ds");
}

#endif

}  // namespace
}  // namespace base
