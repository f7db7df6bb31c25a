// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/session_bytes.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>

#include "core/code_page.h"

namespace hmonitor {

namespace {

constexpr std::size_t kCellBytes = sizeof(double);

/// Little-endian bytes of a whole number.
template <typename Whole>
void putWhole(std::string& bytes, Whole value) {
    for (std::size_t i = 0; i < sizeof value; ++i) {
        bytes += static_cast<char>(static_cast<unsigned char>(value >> (8 * i)));
    }
}
void put(std::string& bytes, float value) {
    putWhole(bytes, std::bit_cast<std::uint32_t>(value));
}
void put(std::string& bytes, double value) {
    putWhole(bytes, std::bit_cast<std::uint64_t>(value));
}

void putText(std::string& bytes, std::string_view text) {
    const std::string page = codePageFromUtf8(text).substr(0, kLongestSessionText);
    putWhole(bytes, static_cast<std::uint16_t>(page.size()));
    bytes += page;
}

void putCells(std::string& bytes, const Density& density) {
    const auto cells = density.cells();
    if constexpr (std::endian::native == std::endian::little) {
        bytes.append(reinterpret_cast<const char*>(cells.data()), cells.size_bytes());
    } else {
        for (const double cell : cells) put(bytes, cell);
    }
}

double doubleAt(const char* bytes) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, bytes, sizeof bits);
    if constexpr (std::endian::native == std::endian::big) bits = __builtin_bswap64(bits);
    return std::bit_cast<double>(bits);
}

/// Reads the bytes in order; after their end every value is empty or 0.
class SessionReader {
 public:
    explicit SessionReader(std::string_view bytes) : rest_(bytes) {}

    bool whole() const { return whole_ && rest_.empty(); }
    void spoilt() { whole_ = false; }

    std::string_view take(std::size_t count) {
        if (count > rest_.size()) {
            whole_ = false;
            rest_ = {};
            return {};
        }
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(count);
        return taken;
    }

    /// 0 where the bytes have run out.
    template <typename Whole>
    Whole takeWhole() {
        Whole value = 0;
        const std::string_view taken = take(sizeof value);
        for (std::size_t i = 0; i < taken.size(); ++i) {
            value = static_cast<Whole>(
                value | static_cast<Whole>(Whole{static_cast<unsigned char>(taken[i])} << (8 * i)));
        }
        return value;
    }
    float takeFloat() { return std::bit_cast<float>(takeWhole<std::uint32_t>()); }
    double takeDouble() { return std::bit_cast<double>(takeWhole<std::uint64_t>()); }

    /// A text with its length before it; where the file ends inside the text, the part that is
    /// there.
    std::string takeText() {
        const std::size_t length = takeWhole<std::uint16_t>();
        const std::size_t there = std::min(length, rest_.size());
        if (there < length) whole_ = false;
        return utf8FromCodePage(take(there));
    }

    /// A latitude or longitude: a value that is no number counts as not given.
    template <typename Number>
    Number placed(Number value) {
        if (std::isfinite(value)) return value;
        spoilt();
        return static_cast<Number>(kNotAvailable);
    }

    void takeCells(Density& density) {
        const auto cells = density.cells();
        const std::size_t there = std::min(rest_.size() / kCellBytes, cells.size());
        if (there < cells.size()) spoilt();
        const std::string_view bytes = take(there * kCellBytes);
        for (std::size_t i = 0; i < there; ++i) {
            const double sweeps = doubleAt(bytes.data() + i * kCellBytes);
            if (std::isfinite(sweeps) && sweeps >= 0) {
                cells[i] = sweeps;
            } else {
                spoilt();
            }
        }
    }

 private:
    std::string_view rest_;
    bool whole_ = true;
};

void takeInfo(SessionReader& reader, SessionInfo& info) {
    info.Version = reader.takeWhole<std::uint8_t>();
    info.Unused = reader.takeText();
    info.Comment = reader.takeText();
    info.Created = reader.takeDouble();
    if (!std::isfinite(info.Created)) {
        info.Created = 0;
        reader.spoilt();
    }
    info.StartMHz = reader.takeFloat();
    info.StopMHz = reader.takeFloat();
    // Ends that are no numbers are kept: a scan between them measures nothing.
    if (!std::isfinite(info.StartMHz) || !std::isfinite(info.StopMHz)) reader.spoilt();
    info.Acquisitions = static_cast<std::int32_t>(reader.takeWhole<std::uint32_t>());
    if (info.Acquisitions < 0) {
        info.Acquisitions = 0;
        reader.spoilt();
    }
    info.Latitude = reader.placed(reader.takeDouble());
    info.Longitude = reader.placed(reader.takeDouble());
    info.Altitude = reader.placed(reader.takeFloat());
    const std::string_view reserved = reader.take(info.Reserved.size());
    std::ranges::copy(reserved, info.Reserved.begin());
    if (info.Version != 1) reader.spoilt();
}

}  // namespace

SessionInfo newSessionInfo(double now) {
    SessionInfo info;
    info.Version = 1;
    info.Comment = "Ingrese un comentario aquí";
    info.Created = now;
    info.StartMHz = 88.0f;
    info.StopMHz = 108.0f;
    // A place of 0 and not "not available": a new session shows 0 degrees until it was edited.
    info.Latitude = 0;
    info.Longitude = 0;
    info.Altitude = kNotAvailable;
    return info;
}

SessionCondition readSession(std::string_view bytes, SessionInfo& info, Density& density) {
    info = SessionInfo();
    density.clear();
    SessionReader reader(bytes);
    takeInfo(reader, info);
    reader.takeCells(density);
    return reader.whole() ? SessionCondition::Whole : SessionCondition::Damaged;
}

std::string sessionBytes(const SessionInfo& info, const Density& density) {
    std::string bytes;
    bytes.reserve(512 + 2 * info.Comment.size() + Density::kCells * kCellBytes);
    putWhole(bytes, info.Version);
    putText(bytes, info.Unused);
    putText(bytes, info.Comment);
    put(bytes, info.Created);
    put(bytes, info.StartMHz);
    put(bytes, info.StopMHz);
    putWhole(bytes, static_cast<std::uint32_t>(info.Acquisitions));
    put(bytes, info.Latitude);
    put(bytes, info.Longitude);
    put(bytes, info.Altitude);
    bytes.append(info.Reserved.data(), info.Reserved.size());
    putCells(bytes, density);
    return bytes;
}

}  // namespace hmonitor
