// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/desktop_language.h"

#include "tests/display/qt/qt_bench.h"

namespace display::qt {

namespace {

/// Sets variables of the environment for a scope.
class Environment {
 public:
    explicit Environment(std::initializer_list<std::pair<const char*, const char*>> values) {
        for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
            before_.emplace_back(name, qgetenv(name));
            qunsetenv(name);
        }
        for (const auto& [name, value] : values) qputenv(name, value);
    }
    ~Environment() {
        for (const auto& [name, value] : before_) {
            if (value.isNull()) {
                qunsetenv(name);
            } else {
                qputenv(name, value);
            }
        }
    }

 private:
    std::vector<std::pair<const char*, QByteArray>> before_;
};

}  // namespace

TEST(Language, PrimaryIdStandsInTheLowTenBits) {
    EXPECT_EQ(languageIdFor("es_AR.UTF-8") & 0x3ff, 10);
    EXPECT_EQ(languageIdFor("pt_BR") & 0x3ff, 22);
    EXPECT_EQ(languageIdFor("en_GB.UTF-8") & 0x3ff, 9);
    EXPECT_EQ(languageIdFor("fr@euro") & 0x3ff, 12);
    EXPECT_EQ(languageIdFor("de-AT") & 0x3ff, 7);
    EXPECT_EQ(languageIdFor("C") & 0x3ff, 9);
    EXPECT_EQ(languageIdFor("es") - 1024 * (languageIdFor("es") / 1024), 10);
}

TEST(Language, IsDecidedByTheFirstVariableThatIsSet) {
    {
        const Environment all({{"LC_ALL", "es_ES.UTF-8"}, {"LANG", "pt_PT.UTF-8"}});
        EXPECT_EQ(languageIdOfUser() & 0x3ff, 10);
    }
    {
        const Environment messages({{"LC_MESSAGES", "pt_BR.UTF-8"}, {"LANG", "en_US.UTF-8"}});
        EXPECT_EQ(languageIdOfUser() & 0x3ff, 22);
    }
    {
        const Environment lang({{"LC_ALL", ""}, {"LANG", "es_AR.UTF-8"}});
        EXPECT_EQ(languageIdOfUser() & 0x3ff, 10);
    }
    const Environment none({});
    EXPECT_EQ(languageIdOfUser() & 0x3ff, 9);
}

class DateWords : public QtBench {};

TEST_F(DateWords, AreInTheUsersLanguage) {
    {
        const Environment spanish({{"LC_ALL", "es_AR.UTF-8"}});
        EXPECT_EQ(desktop->monthName(0), "enero");
        EXPECT_EQ(desktop->weekdayName(0), "domingo");
        EXPECT_EQ(desktop->weekdayName(3), "miércoles");
        EXPECT_EQ(desktop->shortMonthName(4), "may");
    }
    const Environment english({{"LC_ALL", "C"}});
    EXPECT_EQ(desktop->monthName(11), "December");
    EXPECT_EQ(desktop->weekdayName(6), "Saturday");
    EXPECT_EQ(desktop->shortMonthName(8), "Sep");
}

}  // namespace display::qt
