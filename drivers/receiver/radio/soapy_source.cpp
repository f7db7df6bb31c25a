// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/radio/soapy_source.h"

#include <cmath>
#include <exception>
#include <span>

#include "base/shared_object.h"

namespace hm16::receiver {

SoapySource::SoapySource(const SoapyRequest& request)
    : loop_(std::make_shared<RadioLoop>(request)), thread_([loop = loop_] { loop->run(); }) {
    if (const auto fault = loop_->opened()) {
        close();
        std::rethrow_exception(fault);
    }
}

SoapySource::~SoapySource() {
    close();
}

void SoapySource::close() {
    if (loop_->close()) {
        thread_.join();
        return;
    }
    static const char here = 0;
    base::keepLoaded(&here);
    thread_.detach();
}

std::size_t SoapySource::read(std::span<Sample> into) {
    loop_->read(into, losses_);
    timesLost_ += losses_.size();
    for (Sample& sample : into) {
        if (std::isfinite(sample.real()) && std::isfinite(sample.imag())) continue;
        sample = Sample();
        ++bad_;
    }
    return into.size();
}

}  // namespace hm16::receiver
