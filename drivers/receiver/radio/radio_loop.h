// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "drivers/receiver/radio/soapy_radio.h"

namespace hm16::receiver {

// The state shared by the thread that keeps a radio open and those who want its samples. run() is
// that thread's function; all else may be called from one other thread and waits a second at most,
// whatever the radio's driver does.
class RadioLoop {
 public:
    explicit RadioLoop(SoapyRequest request) : request_(std::move(request)) {}
    RadioLoop(const RadioLoop&) = delete;
    RadioLoop& operator=(const RadioLoop&) = delete;

    // Opens the radio, reads its samples, tunes it, and opens it again when it was lost, until it
    // is asked to close; ends at once if the radio cannot be opened the first time.
    void run();

    // Waits until the radio sends or cannot be opened; the sentence says why.
    std::optional<std::string> opened();

    double rateHz() const;
    double centreHz() const;

    // Tunes and drops what was received before; false when the radio refuses or was lost.
    bool tune(double centreHz);

    // Fills `into` and tells in front of which samples some are missing. Throws SourceError when
    // the radio has gone or is a second late; from then on it is being opened again.
    void read(std::span<Sample> into, std::vector<SampleSource::Loss>& losses);

    // True when samples keep coming.
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
    bool givenUp_ = false;  // by the reader: what is open is to be opened again
    std::string fault_;     // why it has gone
    double rateHz_ = 0;
    double centreHz_ = 0;
    std::optional<double> wantedHz_;
    bool tuned_ = false;  // the answer to it

    // The samples that wait, by the number of each since the start.
    std::vector<Sample> ring_;
    std::uint64_t written_ = 0;
    std::uint64_t read_ = 0;
    std::deque<std::uint64_t> lostAt_;  // samples are missing before the one of that number
    Clock::time_point lastRead_{};
};

}  // namespace hm16::receiver
