// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "drivers/receiver/radio/soapy_radio.h"

namespace hm16::receiver {

// The state shared by the thread that keeps a radio open and the users of its samples. run() is
// that thread's function; everything else may be called from one other thread and waits a second at
// most, whatever the radio's driver does.
class RadioLoop {
 public:
    explicit RadioLoop(SoapyRequest request) : request_(std::move(request)) {}
    RadioLoop(const RadioLoop&) = delete;
    RadioLoop& operator=(const RadioLoop&) = delete;

    // Opens the radio, reads its samples, tunes it, and opens it again if it was lost, until it is
    // asked to close. Ends at once if the radio cannot be opened the first time.
    void run();

    // Waits until the radio sends or cannot be opened; then what was thrown, whose sentence says
    // why. Null when it sends.
    std::exception_ptr opened();

    double rateHz() const;
    double centreHz() const;

    // Tunes and drops what was received before; false if the radio refuses or was lost.
    bool tune(double centreHz);

    // Fills `into` and reports before which samples some are missing. Throws SourceError if the
    // radio has gone or is a second late; it is then opened again.
    void read(std::span<Sample> into, std::vector<SampleSource::Loss>& losses);

    // True if samples keep coming.
    bool sends() const;

    // Asks run() to end; true when it has ended within the second.
    bool close();

 private:
    using Clock = std::chrono::steady_clock;
    enum class Phase { Opening, Sending, Gone };

    void keepOpen();
    void serve(SoapyRadio& radio);
    void answerTuning(SoapyRadio& radio, std::span<Sample> room);
    void begin(const SoapyRadio& radio);
    void gone(const std::string& fault);
    void giveUp(std::unique_lock<std::mutex>& lock);
    void forget();
    void put(std::span<const Sample> samples);
    void take(std::span<Sample> into, std::size_t done, std::vector<SampleSource::Loss>& losses);
    std::size_t waiting() const { return static_cast<std::size_t>(written_ - read_); }

    const SoapyRequest request_;
    mutable std::mutex mutex_;
    std::condition_variable changed_;

    Phase phase_ = Phase::Opening;
    bool closing_ = false;
    bool ended_ = false;
    bool givenUp_ = false;       // set by the reader: the radio is to be opened again
    std::string fault_;          // why it has gone
    std::exception_ptr thrown_;  // likewise, the first time
    double rateHz_ = 0;
    double centreHz_ = 0;
    std::optional<double> wantedHz_;
    bool tuned_ = false;  // the answer to it

    // Waiting samples, each numbered since the start.
    std::vector<Sample> ring_;
    std::uint64_t written_ = 0;
    std::uint64_t read_ = 0;
    std::deque<std::uint64_t> lostAt_;  // samples are missing before this number
    Clock::time_point lastRead_{};
};

}  // namespace hm16::receiver
