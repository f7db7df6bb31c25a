// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/radio/radio_loop.h"

#include <algorithm>
#include <cmath>
#include <thread>

namespace hm16::receiver {
namespace {

// A radio that is this much late with its samples or with an answer has gone.
constexpr auto kPatience = std::chrono::seconds(1);
// Opening may load a radio's firmware first.
constexpr auto kOpening = std::chrono::seconds(20);
// Between two attempts at a radio that has gone.
constexpr auto kPause = std::chrono::milliseconds(500);
// A radio that has nothing is asked again after this time, even if it does not wait by itself.
constexpr auto kBreath = std::chrono::milliseconds(1);

constexpr double kKeptSeconds = 0.25;
// So much signal shows that a radio which had gone sends again.
constexpr double kProofSeconds = 0.05;
constexpr std::size_t kMostAtOnce = 16384;

// A radio's buffers are emptied within this time; what comes later is new.
constexpr auto kEmptying = std::chrono::milliseconds(50);

}  // namespace

void RadioLoop::run() {
    try {
        keepOpen();
    } catch (const std::exception& error) {
        gone(error.what());
    }
    const std::lock_guard lock(mutex_);
    ended_ = true;
    changed_.notify_all();
}

void RadioLoop::keepOpen() {
    const SoapyLibrary library(request_.library);
    bool everThere = false;
    while (true) {
        try {
            SoapyRadio radio(library, request_);
            if (everThere && radio.rateHz() != rateHz_)
                throw SourceError(radioName(request_) + " came back with another sample rate.");
            begin(radio);
            everThere = true;
            serve(radio);
        } catch (const SourceError& error) {
            if (!everThere) throw;
            gone(error.what());
        }
        std::unique_lock lock(mutex_);
        if (changed_.wait_for(lock, kPause, [&] { return closing_; })) return;
    }
}

void RadioLoop::begin(const SoapyRadio& radio) {
    const std::lock_guard lock(mutex_);
    rateHz_ = radio.rateHz();
    centreHz_ = radio.centreHz();
    ring_.resize(
        std::max<std::size_t>(2 * kMostAtOnce, static_cast<std::size_t>(kKeptSeconds * rateHz_)));
    forget();
    givenUp_ = false;
    wantedHz_.reset();
    phase_ = Phase::Sending;
    changed_.notify_all();
}

void RadioLoop::gone(const std::string& fault) {
    const std::lock_guard lock(mutex_);
    // A radio that stays away is told of once, by what was first seen.
    if (phase_ != Phase::Gone) fault_ = fault;
    if (!thrown_) thrown_ = std::current_exception();
    phase_ = Phase::Gone;
    changed_.notify_all();
}

// Until the radio fails, or somebody asks for an end.
void RadioLoop::serve(SoapyRadio& radio) {
    std::vector<Sample> room(kMostAtOnce);
    auto lastCame = Clock::now();
    while (true) {
        answerTuning(radio, room);
        std::size_t count = 0;
        const auto outcome = radio.read(room, count);
        {
            const std::lock_guard lock(mutex_);
            if (closing_ || givenUp_) return;
            if (outcome == SoapyRadio::Outcome::Lost &&
                (lostAt_.empty() || lostAt_.back() != written_))
                lostAt_.push_back(written_);
            put(std::span(room).first(count));
        }
        if (count > 0) {
            changed_.notify_all();
            lastCame = Clock::now();
        } else if (Clock::now() - lastCame > kPatience) {
            throw SourceError(radioName(request_) + " has stopped sending.");
        } else {
            std::this_thread::sleep_for(kBreath);
        }
    }
}

void RadioLoop::answerTuning(SoapyRadio& radio, std::span<Sample> room) {
    std::optional<double> wanted;
    {
        const std::lock_guard lock(mutex_);
        wanted = wantedHz_;
    }
    if (!wanted) return;
    const bool done = radio.tune(*wanted);
    // What the radio's buffers held belongs to the frequency before.
    const auto latest = Clock::now() + kEmptying;
    std::size_t count = done ? room.size() : 0;
    while (count > 0 && Clock::now() < latest) {
        radio.read(room, count);
        if (count < room.size()) break;
    }
    const std::lock_guard lock(mutex_);
    centreHz_ = radio.centreHz();
    if (done) forget();
    tuned_ = done;
    wantedHz_.reset();
    changed_.notify_all();
}

std::exception_ptr RadioLoop::opened() {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, kOpening, [&] { return phase_ != Phase::Opening; });
    if (phase_ == Phase::Sending) return nullptr;
    if (phase_ == Phase::Gone) return thrown_;
    return std::make_exception_ptr(SourceError(radioName(request_) + " does not answer."));
}

double RadioLoop::rateHz() const {
    const std::lock_guard lock(mutex_);
    return rateHz_;
}

double RadioLoop::centreHz() const {
    const std::lock_guard lock(mutex_);
    return centreHz_;
}

bool RadioLoop::tune(double centreHz) {
    std::unique_lock lock(mutex_);
    if (phase_ != Phase::Sending) return false;
    wantedHz_ = centreHz;
    const bool answered =
        changed_.wait_for(lock, kPatience, [&] { return !wantedHz_ || phase_ != Phase::Sending; });
    if (answered && phase_ == Phase::Sending) return tuned_;
    wantedHz_.reset();
    return false;
}

void RadioLoop::read(std::span<Sample> into, std::vector<SampleSource::Loss>& losses) {
    losses.clear();
    std::size_t done = 0;
    std::unique_lock lock(mutex_);
    const std::chrono::duration<double> onAir(static_cast<double>(into.size()) / rateHz_);
    const auto latest =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(onAir) + kPatience;
    while (!into.empty()) {
        lastRead_ = Clock::now();
        changed_.wait_until(lock, latest,
                            [&] { return phase_ != Phase::Sending || waiting() > 0; });
        if (phase_ != Phase::Sending) throw SourceError(fault_);
        if (waiting() == 0) giveUp(lock);
        const std::size_t count = std::min(into.size(), waiting());
        take(into.first(count), done, losses);
        into = into.subspan(count);
        done += count;
        if (!into.empty() && Clock::now() > latest) giveUp(lock);
    }
}

void RadioLoop::giveUp(std::unique_lock<std::mutex>& lock) {
    givenUp_ = true;
    phase_ = Phase::Gone;
    fault_ = radioName(request_) + " has stopped sending.";
    lock.unlock();
    changed_.notify_all();
    throw SourceError(fault_);
}

bool RadioLoop::sends() const {
    const std::lock_guard lock(mutex_);
    return phase_ == Phase::Sending && static_cast<double>(waiting()) >= kProofSeconds * rateHz_;
}

bool RadioLoop::close() {
    std::unique_lock lock(mutex_);
    closing_ = true;
    changed_.notify_all();
    return changed_.wait_for(lock, kPatience, [&] { return ended_; });
}

void RadioLoop::forget() {
    read_ = written_;
    lostAt_.clear();
}

// What nobody fetches goes; that is a loss only for somebody who reads.
void RadioLoop::put(std::span<const Sample> samples) {
    const std::size_t at = static_cast<std::size_t>(written_ % ring_.size());
    const std::size_t first = std::min(samples.size(), ring_.size() - at);
    std::copy_n(samples.begin(), first, ring_.begin() + static_cast<std::ptrdiff_t>(at));
    std::copy(samples.begin() + static_cast<std::ptrdiff_t>(first), samples.end(), ring_.begin());
    written_ += samples.size();
    if (waiting() <= ring_.size()) return;
    read_ = written_ - ring_.size();
    while (!lostAt_.empty() && lostAt_.front() <= read_) lostAt_.pop_front();
    if (Clock::now() - lastRead_ < kPatience) lostAt_.push_front(read_);
}

void RadioLoop::take(std::span<Sample> into, std::size_t done,
                     std::vector<SampleSource::Loss>& losses) {
    const std::uint64_t first = read_;
    const std::size_t at = static_cast<std::size_t>(read_ % ring_.size());
    const std::size_t straight = std::min(into.size(), ring_.size() - at);
    const auto from = ring_.begin() + static_cast<std::ptrdiff_t>(at);
    std::copy_n(from, straight, into.begin());
    std::copy_n(ring_.begin(), into.size() - straight,
                into.begin() + static_cast<std::ptrdiff_t>(straight));
    read_ += into.size();
    for (; !lostAt_.empty() && lostAt_.front() < read_; lostAt_.pop_front())
        losses.push_back({done + static_cast<std::size_t>(lostAt_.front() - first), 0});
}

}  // namespace hm16::receiver
