// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/dsp/kernels.h"

#include <cmath>
#include <cstddef>
#include <cstring>

// Each loop once for any processor and once for those with 256-bit vectors and fused multiply-add,
// chosen by the system when the library is loaded. The loops call no function of the standard
// library that could be shared with code for another processor. The thread sanitizer is not there
// yet when the system chooses.
#if defined(__GNUC__) && !defined(__clang__) && __GNUC__ >= 12 && defined(__x86_64__) && \
    defined(__gnu_linux__) && !defined(HMONITOR_SANITIZED_THREAD)
#define HM16_EACH_PROCESSOR __attribute__((target_clones("default", "arch=x86-64-v3")))
#else
#define HM16_EACH_PROCESSOR
#endif

namespace hm16::receiver {
namespace {

constexpr float kPi = 3.14159265358979F;
constexpr std::size_t kLaneBytes = 32;
constexpr std::size_t kLanes = kLaneBytes / sizeof(float);

// Floats that are worked on together. Loops over arrays of sums are not reliably kept in registers
// by the compiler; these are.
typedef float Lanes __attribute__((vector_size(kLaneBytes)));
typedef float UnalignedLanes __attribute__((vector_size(kLaneBytes), aligned(4), may_alias));

#if defined(__clang__)
// By value: with clang a reference loses the reduced alignment of the type.
inline Lanes lanesAt(const float* address) {
    return *reinterpret_cast<const UnalignedLanes*>(address);
}
#else
inline const UnalignedLanes& lanesAt(const float* address) {
    return *reinterpret_cast<const UnalignedLanes*>(address);
}
#endif

}  // namespace

HM16_EACH_PROCESSOR void filterReal(const float* in, const float* taps, std::size_t floats,
                                    std::size_t step, std::size_t outputs, float* out) {
    for (std::size_t o = 0; o < outputs; ++o) {
        const float* x = in + o * step;
        Lanes a{};
        Lanes b{};
        Lanes c{};
        Lanes d{};
        for (std::size_t i = 0; i < floats; i += 4 * kLanes) {
            a += lanesAt(x + i) * lanesAt(taps + i);
            b += lanesAt(x + i + kLanes) * lanesAt(taps + i + kLanes);
            c += lanesAt(x + i + 2 * kLanes) * lanesAt(taps + i + 2 * kLanes);
            d += lanesAt(x + i + 3 * kLanes) * lanesAt(taps + i + 3 * kLanes);
        }
        const Lanes all = (a + b) + (c + d);
        float sum = 0;
        for (std::size_t lane = 0; lane < kLanes; ++lane) sum += all[lane];
        out[o] = sum;
    }
}

HM16_EACH_PROCESSOR void filterComplex(const float* iq, const float* doubledTaps,
                                       std::size_t floats, std::size_t step, std::size_t outputs,
                                       float* outIq) {
    for (std::size_t o = 0; o < outputs; ++o) {
        const float* x = iq + 2 * o * step;
        Lanes a{};
        Lanes b{};
        Lanes c{};
        Lanes d{};
        for (std::size_t i = 0; i < floats; i += 4 * kLanes) {
            a += lanesAt(x + i) * lanesAt(doubledTaps + i);
            b += lanesAt(x + i + kLanes) * lanesAt(doubledTaps + i + kLanes);
            c += lanesAt(x + i + 2 * kLanes) * lanesAt(doubledTaps + i + 2 * kLanes);
            d += lanesAt(x + i + 3 * kLanes) * lanesAt(doubledTaps + i + 3 * kLanes);
        }
        const Lanes all = (a + b) + (c + d);
        float re = 0;
        float im = 0;
        for (std::size_t lane = 0; lane < kLanes; lane += 2) {
            re += all[lane];
            im += all[lane + 1];
        }
        outIq[2 * o] = re;
        outIq[2 * o + 1] = im;
    }
}

HM16_EACH_PROCESSOR void rotate(float* iq, const float* doubledCosines, const float* doubledSines,
                                float startRe, float startIm, std::size_t samples) {
    Lanes alternate;
    for (std::size_t lane = 0; lane < kLanes; ++lane)
        alternate[lane] = lane % 2 == 0 ? -1.0F : 1.0F;
    const Lanes swappedRe = startRe * alternate;
    const Lanes swappedIm = startIm * alternate;
    for (std::size_t i = 0; i < 2 * samples; i += kLanes) {
        const Lanes cosines = lanesAt(doubledCosines + i);
        const Lanes sines = lanesAt(doubledSines + i);
        const Lanes x = lanesAt(iq + i);
        const Lanes crossed = __builtin_shufflevector(x, x, 1, 0, 3, 2, 5, 4, 7, 6);
        const Lanes result = x * (startRe * cosines - startIm * sines) +
                             crossed * (swappedRe * sines + swappedIm * cosines);
        std::memcpy(iq + i, &result, sizeof result);
    }
}

HM16_EACH_PROCESSOR void angleSteps(const float* iq, std::size_t samples, float* out) {
    constexpr std::size_t kBlock = 256;
    float xs[kBlock];
    float ys[kBlock];
    for (std::size_t from = 0; from < samples; from += kBlock) {
        const std::size_t count = samples - from < kBlock ? samples - from : kBlock;
        const float* z = iq + 2 * from;
        for (std::size_t n = 0; n < count; ++n) {
            xs[n] = z[2 * n + 2] * z[2 * n] + z[2 * n + 3] * z[2 * n + 1];
            ys[n] = z[2 * n + 3] * z[2 * n] - z[2 * n + 2] * z[2 * n + 1];
        }
        for (std::size_t n = 0; n < count; ++n) {
            const float x = xs[n];
            const float y = ys[n];
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
            out[from + n] = y < 0 ? -angle : angle;
        }
    }
}

HM16_EACH_PROCESSOR void lengths(const float* iq, std::size_t samples, float* out) {
    for (std::size_t n = 0; n < samples; ++n)
        out[n] = std::sqrt(iq[2 * n] * iq[2 * n] + iq[2 * n + 1] * iq[2 * n + 1]);
}

HM16_EACH_PROCESSOR float farthest(const float* values, std::size_t count, float centre) {
    Lanes highest{};
    std::size_t n = 0;
    for (; n + kLanes <= count; n += kLanes) {
        const Lanes away = lanesAt(values + n) - centre;
        const Lanes distance = away < 0 ? -away : away;
        highest = distance > highest ? distance : highest;
    }
    float result = 0;
    for (; n < count; ++n) {
        const float distance = std::fabs(values[n] - centre);
        result = distance > result ? distance : result;
    }
    for (std::size_t lane = 0; lane < kLanes; ++lane)
        result = highest[lane] > result ? highest[lane] : result;
    return result;
}

}  // namespace hm16::receiver
