// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

template <typename Value>
std::string bytesOfValues(const std::vector<Value>& values) {
    std::string bytes(values.size() * sizeof(Value), '\0');
    // An empty vector may have no place at all to copy from.
    if (!values.empty()) std::memcpy(bytes.data(), values.data(), bytes.size());
    return bytes;
}

// A WAV file of 16-bit samples.
inline std::string wav(std::uint16_t channels, std::uint32_t rate,
                       const std::vector<std::int16_t>& data) {
    const std::string samples = bytesOfValues(data);
    const auto number = [](auto value) { return bytesOfValues(std::vector{value}); };
    return "RIFF" + number(static_cast<std::uint32_t>(36 + samples.size())) + "WAVEfmt " +
           number(std::uint32_t{16}) + number(std::uint16_t{1}) + number(channels) + number(rate) +
           number(rate * channels * 2) + number(static_cast<std::uint16_t>(channels * 2)) +
           number(std::uint16_t{16}) + "data" + number(static_cast<std::uint32_t>(samples.size())) +
           samples;
}
