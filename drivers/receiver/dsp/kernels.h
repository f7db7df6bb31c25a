// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

namespace hm16::receiver {

// The inner loops of the chain on plain arrays; complex samples lie as I, Q, I, Q.

// Filters are padded with zeros to a multiple of this many floats, so that loops have no remainder.
inline constexpr std::size_t kKernelFloats = 32;

// out[o] = sum of taps[i] * in[o * step + i]; `floats` taps, a multiple of kKernelFloats.
void filterReal(const float* in, const float* taps, std::size_t floats, std::size_t step,
                std::size_t outputs, float* out);

// The same on complex samples with real taps: each tap stands twice, `floats` counts both.
void filterComplex(const float* iq, const float* doubledTaps, std::size_t floats, std::size_t step,
                   std::size_t outputs, float* outIq);

// Multiplies each sample by a phasor, start * (cosine + i sine), taken from tables in which each
// value stands twice. `samples` is a multiple of 4.
void rotate(float* iq, const float* doubledCosines, const float* doubledSines, float startRe,
            float startIm, std::size_t samples);

// Angle from each sample to the next in radians: out[n] from samples n and n + 1 of `samples` + 1.
// Exact to 1e-7; this is what keeps the receiver's own distortion below 0.01 percent.
void angleSteps(const float* iq, std::size_t samples, float* out);

// The greatest distance of any value from `centre`; 0 for none.
float farthest(const float* values, std::size_t count, float centre);

// Length of each sample.
void lengths(const float* iq, std::size_t samples, float* out);

}  // namespace hm16::receiver
