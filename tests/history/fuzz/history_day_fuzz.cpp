// SPDX-License-Identifier: GPL-3.0-or-later
// A day's file from anywhere. A whole image is far longer than a fuzzer's input, so an input tells
// what is changed in a good one: two bytes a place, one byte what stands there then.
#include <sqlite3.h>

#include <cstdint>
#include <vector>

#include "history/crc.h"
#include "history/foreign_day.h"
#include "tests/fuzz/check.h"

namespace {

using namespace history;

/// A day of three minutes, on small pages so that each part of it is within reach.
std::vector<std::uint8_t> goodDay() {
    Database database(":memory:", Access::Write);
    database.run("PRAGMA page_size=512");
    prepareDay(database, Flush::Off);
    DayRows rows(database);
    addStation(database, 98500);
    addEvent(database, {60, 98500, EventKind::Tuned, "detector 0, mode 0"});
    for (std::int64_t minute = 0; minute < 180; minute += kMinute) {
        std::vector<Second> seconds(kMinute);
        for (std::size_t i = 0; i < seconds.size(); ++i) {
            seconds[i].t = minute + static_cast<std::int64_t>(i);
            seconds[i].figures[i % 4] = {static_cast<float>(i), 1000, State::Known};
        }
        const std::string data = packSeconds(seconds, rows.columns());
        Statement insert(database, "INSERT INTO second VALUES(98500,?1,0,60,?2,?3)");
        insert.bind(1, minute).bindBytes(2, data).bind(3, std::int64_t{crc32Of(data)});
        insert.run();
    }
    sqlite3_int64 size = 0;
    unsigned char* image = sqlite3_serialize(database.handle(), "main", &size, 0);
    std::vector<std::uint8_t> bytes(image, image + size);
    sqlite3_free(image);
    return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::vector<std::uint8_t> good = goodDay();
    std::vector<std::uint8_t> image = good;
    for (std::size_t i = 0; i + 2 < size; i += 3) {
        const std::size_t place = (data[i] * 256u + data[i + 1]) % image.size();
        image[place] = data[i + 2];
    }
    const auto opened = ForeignDay::fromBytes(image);
    const auto* day = std::get_if<std::unique_ptr<ForeignDay>>(&opened);
    FUZZ_CHECK(size >= 3 || day);
    if (!day) return 0;
    (*day)->stations();
    (*day)->events();
    for (const MinuteKey& key : (*day)->minutes()) {
        const auto seconds = (*day)->minute(key);
        FUZZ_CHECK(seconds.size() <= 2 * static_cast<std::size_t>(kMinute));
        for (const Second& second : seconds) {
            FUZZ_CHECK(second.t >= key.minute && second.t < key.minute + kMinute);
        }
    }
    return 0;
}
