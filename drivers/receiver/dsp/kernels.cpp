// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/dsp/kernels.h"

#include <cmath>
#include <numbers>

#include "drivers/receiver/dsp/fast.h"

namespace hm16::receiver {
namespace {

constexpr float kPi = std::numbers::pi_v<float>;

}  // namespace

HM16_FAST void filterReal(const float* in, const float* taps, std::size_t floats, std::size_t step,
                          std::size_t outputs, float* out) {
    for (std::size_t o = 0; o < outputs; ++o) {
        const float* x = in + o * step;
        float sums[kKernelFloats] = {};
        for (std::size_t i = 0; i < floats; i += kKernelFloats)
            for (std::size_t j = 0; j < kKernelFloats; ++j) sums[j] += x[i + j] * taps[i + j];
        for (std::size_t width = kKernelFloats / 2; width > 0; width /= 2)
            for (std::size_t j = 0; j < width; ++j) sums[j] += sums[j + width];
        out[o] = sums[0];
    }
}

HM16_FAST void filterComplex(const float* iq, const float* doubledTaps, std::size_t floats,
                             std::size_t step, std::size_t outputs, float* outIq) {
    for (std::size_t o = 0; o < outputs; ++o) {
        const float* x = iq + 2 * o * step;
        float sums[kKernelFloats] = {};
        for (std::size_t i = 0; i < floats; i += kKernelFloats)
            for (std::size_t j = 0; j < kKernelFloats; ++j)
                sums[j] += x[i + j] * doubledTaps[i + j];
        for (std::size_t width = kKernelFloats / 2; width > 1; width /= 2)
            for (std::size_t j = 0; j < width; ++j) sums[j] += sums[j + width];
        outIq[2 * o] = sums[0];
        outIq[2 * o + 1] = sums[1];
    }
}

HM16_FAST void rotate(float* iq, const float* tableIq, float startRe, float startIm,
                      std::size_t samples) {
    for (std::size_t n = 0; n < samples; ++n) {
        const float re = startRe * tableIq[2 * n] - startIm * tableIq[2 * n + 1];
        const float im = startRe * tableIq[2 * n + 1] + startIm * tableIq[2 * n];
        const float i = iq[2 * n];
        const float q = iq[2 * n + 1];
        iq[2 * n] = i * re - q * im;
        iq[2 * n + 1] = i * im + q * re;
    }
}

HM16_FAST void angleSteps(const float* iq, std::size_t samples, float* out) {
    for (std::size_t n = 0; n < samples; ++n) {
        const float a = iq[2 * n];
        const float b = iq[2 * n + 1];
        const float c = iq[2 * n + 2];
        const float d = iq[2 * n + 3];
        const float x = c * a + d * b;
        const float y = d * a - c * b;
        const float ax = std::fabs(x);
        const float ay = std::fabs(y);
        const float large = ax > ay ? ax : ay;
        const float small = ax > ay ? ay : ax;
        const float t = small / (large + 1e-30F);
        const float u = t * t;
        // The arc tangent on 0 to 1, fitted at the Chebyshev points in the square.
        float p = 0.0027662836F;
        p = p * u - 0.015731249F;
        p = p * u + 0.042137623F;
        p = p * u - 0.07456855F;
        p = p * u + 0.10618371F;
        p = p * u - 0.14197798F;
        p = p * u + 0.19991872F;
        p = p * u - 0.33333037F;
        p = p * u + 0.99999998F;
        float angle = p * t;
        angle = ay > ax ? kPi / 2 - angle : angle;
        angle = x < 0 ? kPi - angle : angle;
        out[n] = y < 0 ? -angle : angle;
    }
}

HM16_FAST void lengths(const float* iq, std::size_t samples, float* out) {
    for (std::size_t n = 0; n < samples; ++n)
        out[n] = std::sqrt(iq[2 * n] * iq[2 * n] + iq[2 * n + 1] * iq[2 * n + 1]);
}

}  // namespace hm16::receiver
