// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/samples/sample_format.h"

#include <cctype>
#include <cmath>
#include <cstring>
#include <string>

namespace hm16::receiver {
namespace {

// A stick's unsigned converter has its zero between 127 and 128.
constexpr float kUnsignedZero = 127.5F;

// Reads `count` values of a type that may lie at any address.
template <typename Value>
Value valueAt(const std::byte* bytes, std::size_t index) {
    Value value;
    std::memcpy(&value, bytes + index * sizeof(Value), sizeof(Value));
    return value;
}

template <typename Value>
void scale(const std::byte* bytes, float* out, std::size_t count, float zero, float factor) {
    for (std::size_t i = 0; i < count; ++i)
        out[i] = (static_cast<float>(valueAt<Value>(bytes, i)) - zero) * factor;
}

std::uint64_t cleanFloats(float* values, std::size_t samples, std::size_t parts) {
    std::uint64_t bad = 0;
    for (std::size_t i = 0; i < samples; ++i) {
        bool good = true;
        for (std::size_t p = 0; p < parts; ++p) good &= std::isfinite(values[i * parts + p]);
        if (good) continue;
        for (std::size_t p = 0; p < parts; ++p) values[i * parts + p] = 0;
        ++bad;
    }
    return bad;
}

// Spreads real values, which stand at the front, over real parts; from the back, in place.
void spread(float* values, std::size_t samples) {
    for (std::size_t i = samples; i-- > 0;) {
        values[2 * i] = values[i];
        values[2 * i + 1] = 0;
    }
}

}  // namespace

std::size_t bytesOf(SampleFormat format) {
    switch (format) {
        case SampleFormat::Cu8:
        case SampleFormat::Cs8:
        case SampleFormat::Rs16:
            return 2;
        case SampleFormat::Cs16:
        case SampleFormat::Rf32:
            return 4;
        case SampleFormat::Cf32:
            return 8;
    }
    return 8;
}

double stepOf(SampleFormat format) {
    if (format == SampleFormat::Cu8) return 1 / static_cast<double>(kUnsignedZero);
    return format == SampleFormat::Cs8 ? 1.0 / 128 : 0;
}

bool isReal(SampleFormat format) {
    return format == SampleFormat::Rs16 || format == SampleFormat::Rf32;
}

std::optional<SampleFormat> rawFormat(std::string_view word) {
    if (!word.empty() && word.front() == '.') word.remove_prefix(1);
    std::string low;
    for (const char c : word) low += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (low == "cu8") return SampleFormat::Cu8;
    if (low == "cs8") return SampleFormat::Cs8;
    if (low == "cs16") return SampleFormat::Cs16;
    if (low == "cf32") return SampleFormat::Cf32;
    return std::nullopt;
}

std::uint64_t convert(SampleFormat format, std::span<const std::byte> bytes,
                      std::span<Sample> samples) {
    float* out = reinterpret_cast<float*>(samples.data());
    const std::size_t count = samples.size();
    const std::byte* in = bytes.data();
    std::uint64_t bad = 0;
    switch (format) {
        case SampleFormat::Cu8:
            scale<std::uint8_t>(in, out, 2 * count, kUnsignedZero, 1 / kUnsignedZero);
            break;
        case SampleFormat::Cs8:
            scale<std::int8_t>(in, out, 2 * count, 0, 1.0F / 128);
            break;
        case SampleFormat::Cs16:
            scale<std::int16_t>(in, out, 2 * count, 0, 1.0F / 32768);
            break;
        case SampleFormat::Cf32:
            std::memcpy(out, in, count * sizeof(Sample));
            bad = cleanFloats(out, count, 2);
            break;
        case SampleFormat::Rs16:
            scale<std::int16_t>(in, out, count, 0, 1.0F / 32768);
            spread(out, count);
            break;
        case SampleFormat::Rf32:
            std::memcpy(out, in, count * sizeof(float));
            bad = cleanFloats(out, count, 1);
            spread(out, count);
            break;
    }
    return bad;
}

}  // namespace hm16::receiver
