// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// How a sample lies in a file: little-endian, I before Q. The real ones hold a composite signal.
enum class SampleFormat { Cu8, Cs8, Cs16, Cf32, Rs16, Rf32 };

// Bytes of one sample, both parts together.
std::size_t bytesOf(SampleFormat format);

// True for formats without a Q part.
bool isReal(SampleFormat format);

// Distance between neighbouring values of the eight-bit formats, full scale 1.0; 0 for the others.
double stepOf(SampleFormat format);

// "cu8", "cs8", "cs16", "cf32" in either case, with or without a dot before.
std::optional<SampleFormat> rawFormat(std::string_view word);

// Turns bytes into samples, full scale 1.0. `bytes` holds whole samples, `samples` as many. Gives
// how many were no finite numbers; those become 0.
std::uint64_t convert(SampleFormat format, std::span<const std::byte> bytes,
                      std::span<Sample> samples);

}  // namespace hm16::receiver
