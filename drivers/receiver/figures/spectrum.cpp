// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/spectrum.h"

#include <fftw3.h>

#include <algorithm>
#include <cmath>
#include <mutex>
#include <numbers>

namespace hm16::receiver {
namespace {

// FFTW plans are made and unmade by one thread at a time; running them is free of that.
std::mutex& planning() {
    static std::mutex mutex;
    return mutex;
}

}  // namespace

struct Spectrum::Plan {
    Plan(Input input, std::size_t length) : complexIn(input == Input::Complex) {
        const std::lock_guard lock(planning());
        in = static_cast<float*>(fftwf_malloc(sizeof(float) * 2 * length));
        out = fftwf_alloc_complex(length);
        const int size = static_cast<int>(length);
        plan = complexIn ? fftwf_plan_dft_1d(size, reinterpret_cast<fftwf_complex*>(in), out,
                                             FFTW_FORWARD, FFTW_ESTIMATE)
                         : fftwf_plan_dft_r2c_1d(size, in, out, FFTW_ESTIMATE);
        std::fill_n(in, 2 * length, 0.0F);
    }
    ~Plan() {
        const std::lock_guard lock(planning());
        fftwf_destroy_plan(plan);
        fftwf_free(out);
        fftwf_free(in);
    }

    bool complexIn;
    float* in;
    fftwf_complex* out;
    fftwf_plan plan;
};

std::vector<float> blackmanHarris(std::size_t length) {
    std::vector<float> window(length);
    for (std::size_t n = 0; n < length; ++n) {
        const double x =
            2 * std::numbers::pi * (static_cast<double>(n) + 0.5) / static_cast<double>(length);
        window[n] = static_cast<float>(0.35875 - 0.48829 * std::cos(x) + 0.14128 * std::cos(2 * x) -
                                       0.01168 * std::cos(3 * x));
    }
    return window;
}

Spectrum::Spectrum(Input input, std::size_t length, std::size_t stretch)
    : length_(length), window_(blackmanHarris(std::min(stretch, length))) {
    double energy = 0;
    for (const float value : window_) energy += static_cast<double>(value) * value;
    scale_ = 1 / (energy * static_cast<double>(length));
    plan_ = std::make_unique<Plan>(input, length);
    power_.resize(input == Input::Real ? length / 2 + 1 : length);
}

Spectrum::~Spectrum() = default;

std::size_t Spectrum::lobeBins() const {
    return static_cast<std::size_t>(std::ceil(4.0 * static_cast<double>(length_) /
                                              static_cast<double>(window_.size()))) +
           1;
}

std::span<const double> Spectrum::power(std::span<const float> stretch) {
    const std::size_t count = std::min(stretch.size(), window_.size());
    for (std::size_t n = 0; n < count; ++n) plan_->in[n] = stretch[n] * window_[n];
    std::fill(plan_->in + count, plan_->in + length_, 0.0F);
    fftwf_execute(plan_->plan);
    for (std::size_t k = 0; k < power_.size(); ++k) {
        const double re = plan_->out[k][0];
        const double im = plan_->out[k][1];
        const double halves = k == 0 || k + 1 == power_.size() ? 1 : 2;
        power_[k] = halves * scale_ * (re * re + im * im);
    }
    return power_;
}

std::span<const double> Spectrum::power(std::span<const std::complex<float>> stretch) {
    const std::size_t count = std::min(stretch.size(), window_.size());
    for (std::size_t n = 0; n < count; ++n) {
        plan_->in[2 * n] = stretch[n].real() * window_[n];
        plan_->in[2 * n + 1] = stretch[n].imag() * window_[n];
    }
    std::fill(plan_->in + 2 * count, plan_->in + 2 * length_, 0.0F);
    fftwf_execute(plan_->plan);
    for (std::size_t k = 0; k < power_.size(); ++k) {
        const double re = plan_->out[k][0];
        const double im = plan_->out[k][1];
        power_[k] = scale_ * (re * re + im * im);
    }
    return power_;
}

}  // namespace hm16::receiver
