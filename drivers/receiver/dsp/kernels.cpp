// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/dsp/kernels.h"

namespace hm16::receiver {

namespace plain {
void filterReal(const float*, const float*, std::size_t, std::size_t, std::size_t, float*);
void filterComplex(const float*, const float*, std::size_t, std::size_t, std::size_t, float*);
void rotate(float*, const float*, const float*, float, float, std::size_t);
void angleSteps(const float*, std::size_t, float*);
void lengths(const float*, std::size_t, float*);
float farthest(const float*, std::size_t, float);
}  // namespace plain

#if defined(HM16_WIDE_KERNELS)
namespace wide {
void filterReal(const float*, const float*, std::size_t, std::size_t, std::size_t, float*);
void filterComplex(const float*, const float*, std::size_t, std::size_t, std::size_t, float*);
void rotate(float*, const float*, const float*, float, float, std::size_t);
void angleSteps(const float*, std::size_t, float*);
void lengths(const float*, std::size_t, float*);
float farthest(const float*, std::size_t, float);
}  // namespace wide
#endif

namespace {

// One kind of processor's loops.
struct Kernels {
    decltype(&plain::filterReal) filterReal;
    decltype(&plain::filterComplex) filterComplex;
    decltype(&plain::rotate) rotate;
    decltype(&plain::angleSteps) angleSteps;
    decltype(&plain::lengths) lengths;
    decltype(&plain::farthest) farthest;
};

Kernels choose() {
#if defined(HM16_WIDE_KERNELS)
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"))
        return {wide::filterReal, wide::filterComplex, wide::rotate,
                wide::angleSteps, wide::lengths,       wide::farthest};
#endif
    return {plain::filterReal, plain::filterComplex, plain::rotate,
            plain::angleSteps, plain::lengths,       plain::farthest};
}

const Kernels& kernels() {
    static const Kernels chosen = choose();
    return chosen;
}

}  // namespace

void filterReal(const float* in, const float* taps, std::size_t floats, std::size_t step,
                std::size_t outputs, float* out) {
    kernels().filterReal(in, taps, floats, step, outputs, out);
}

void filterComplex(const float* iq, const float* doubledTaps, std::size_t floats, std::size_t step,
                   std::size_t outputs, float* outIq) {
    kernels().filterComplex(iq, doubledTaps, floats, step, outputs, outIq);
}

void rotate(float* iq, const float* doubledCosines, const float* doubledSines, float startRe,
            float startIm, std::size_t samples) {
    kernels().rotate(iq, doubledCosines, doubledSines, startRe, startIm, samples);
}

void angleSteps(const float* iq, std::size_t samples, float* out) {
    kernels().angleSteps(iq, samples, out);
}

void lengths(const float* iq, std::size_t samples, float* out) {
    kernels().lengths(iq, samples, out);
}

float farthest(const float* values, std::size_t count, float centre) {
    return kernels().farthest(values, count, centre);
}

}  // namespace hm16::receiver
