// SPDX-License-Identifier: GPL-3.0-or-later
// What docs/formats.md says of the analyzer's files is what the program does.
#include <gmock/gmock.h>

#include <cstring>
#include <functional>
#include <limits>
#include <map>

#include "core/text_lines.h"
#include "spectrum/channel_spectrum_file.h"
#include "tests/analyzer/analyzer_bench.h"
#include "tests/core/formats_page.h"

namespace hmonitor::test {
namespace {

std::string bytesOfHex(const std::vector<std::string>& lines) {
    std::string bytes;
    for (const std::string& line : lines) {
        for (std::size_t i = 0; i + 1 < line.size(); i += 3)
            bytes += static_cast<char>(std::stoi(line.substr(i, 2), nullptr, 16));
    }
    return bytes;
}

SessionInfo exampleInfo() {
    SessionInfo info;
    info.Version = 1;
    info.Comment = "ñu";
    info.Created = 46347.75;
    info.StartMHz = 88;
    info.StopMHz = 108;
    info.Acquisitions = 7;
    info.Latitude = -34.5;
    info.Longitude = -58.25;
    info.Altitude = 25;
    return info;
}

TEST(AnalyzerFormats, TheSessionsExampleIsWhatIsWritten) {
    const std::string head = bytesOfHex(FormatsPage().example("Evening.3Ds"));
    const std::string bytes = sessionBytes(exampleInfo(), Density());
    EXPECT_EQ(head.size(), 1u + 2 + 4 + 40);
    EXPECT_EQ(bytes.substr(0, head.size()), head);
    EXPECT_EQ(bytes.substr(head.size()), std::string(256 + 56871 * 8, '\0'));
    SessionInfo read;
    Density density;
    EXPECT_EQ(readSession(bytes, read, density), SessionCondition::Whole);
    EXPECT_TRUE(read == exampleInfo());
}

/// The example's session with other bytes at an offset from its date, and the result of reading it.
class Damage {
 public:
    Damage() { density_.set(0, 0, 5); }
    template <typename Number>
    const SessionInfo& with(std::size_t behindDate, Number value) {
        std::string bytes = whole();
        std::memcpy(bytes.data() + 7 + behindDate, &value, sizeof value);
        return read(bytes);
    }
    std::string whole() const { return sessionBytes(exampleInfo(), density_); }
    const SessionInfo& read(std::string_view bytes) {
        EXPECT_EQ(readSession(bytes, info_, density_), SessionCondition::Damaged);
        return info_;
    }
    double firstCell() const { return density_.at(0, 0); }

 private:
    SessionInfo info_;
    Density density_;
};

TEST(AnalyzerFormats, ADamagedSessionBecomesWhatThePageSays) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr double kWideNan = std::numeric_limits<double>::quiet_NaN();
    const std::map<std::string, std::function<bool(Damage&)>> told = {
        {"a file that ends early",
         [](Damage& d) {
             const SessionInfo& info = d.read(d.whole().substr(0, 15));
             return info.Comment == "ñu" && info.Created == 46347.75 && info.StopMHz == 0;
         }},
        {"bytes behind the cells",
         [](Damage& d) { return d.read(d.whole() + "tail") == exampleInfo(); }},
        {"a date that is no number", [&](Damage& d) { return d.with(0, kWideNan).Created == 0; }},
        {"a start or stop that is no number",
         [&](Damage& d) {
             const SessionInfo& info = d.with(8, kNan);
             return !ScanRange::limited(info.StartMHz, info.StopMHz).measures();
         }},
        {"fewer than 0 sweeps",
         [](Damage& d) { return d.with(16, std::int32_t{-7}).Acquisitions == 0; }},
        {"a place or height that is no number",
         [&](Damage& d) {
             return d.with(20, kWideNan).Latitude == -777 && d.with(36, kNan).Altitude == -777;
         }},
        {"a cell that is no number or below 0",
         [&](Damage& d) {
             (void)d.with(296, kWideNan);
             return d.firstCell() == 0;
         }},
    };
    const auto rows = FormatsPage().rows("Sessions of the analyzer");
    EXPECT_EQ(rows.size(), told.size());
    for (const auto& row : rows) {
        ASSERT_TRUE(told.contains(row[0])) << row[0];
        Damage damage;
        EXPECT_TRUE(told.at(row[0])(damage)) << row[0];
    }
}

TEST(AnalyzerFormats, TheSweepsExampleIsHowASweepBegins) {
    SweepText text;
    for (const int level : {30, 31, 64, 100}) text.add(level);
    EXPECT_EQ(text.bytes({88, 89}), joinLines(FormatsPage().example("Evening.spc")) + "\r\n");
}

class SweepFormats : public AnalyzerBench {};

TEST_F(SweepFormats, TheSweepsTableIsWhatTheWindowDraws) {
    store("a.3Ds", 1);
    open();
    const auto rows = FormatsPage().rows("Last sweep of a session");
    ASSERT_EQ(rows.size(), 4u);
    for (const auto& row : rows) {
        bench.write("Logs/a.spc", unescaped(row[0]));
        form.ShowSpectrum_SpectralZoom("a.spc");
        int bars = 0;
        for (const display::Mark& mark : form.PictureZoom.drawing.marks())
            bars += mark.colour == display::Colour{49152} ? 1 : 0;
        EXPECT_EQ(std::to_string(bars), row[1]) << row[0];
    }
}

}  // namespace
}  // namespace hmonitor::test
