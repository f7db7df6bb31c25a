// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/samples/raw_recording.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <system_error>

#include "drivers/receiver/samples/recording_file.h"

namespace hm16::receiver {
namespace {

// Half a broadcast channel.
constexpr double kHalfChannelHz = 100e3;

void seekTo(std::FILE* file, std::uint64_t byte) {
    std::clearerr(file);
#if defined(_WIN32)
    _fseeki64(file, static_cast<long long>(byte), SEEK_SET);
#else
    fseeko(file, static_cast<off_t>(byte), SEEK_SET);
#endif
}

}  // namespace

RawRecording::RawRecording(const std::filesystem::path& file, const RawLayout& layout)
    : format_(layout.format), rateHz_(layout.rateHz) {
    const std::string name = file.string();
    requireFile(file);
    file_.reset(std::fopen(name.c_str(), "rb"));
    if (!file_) throw SourceError(name + " cannot be opened: " + std::strerror(errno) + ".");
    std::error_code wrong;
    const std::uint64_t bytes = std::filesystem::file_size(file, wrong);
    if (wrong) throw SourceError(name + " cannot be measured: " + wrong.message() + ".");
    divide(layout, bytes);
    if (parts_.empty()) throw SourceError(name + " holds no samples.");
    rewind();
}

// Neighbours of one frequency play as one; what lies beyond the end of the file is left out.
void RawRecording::divide(const RawLayout& layout, std::uint64_t bytes) {
    const std::uint64_t size = bytesOf(format_);
    std::vector<RawSegment> segments = layout.segments;
    if (segments.empty()) segments.push_back({});
    std::uint64_t headers = 0;
    for (std::size_t n = 0; n < segments.size(); ++n) {
        headers += segments[n].headerBytes;
        const std::uint64_t first = headers + segments[n].start * size;
        if (first >= bytes) break;
        std::uint64_t length = (bytes - first) / size;
        if (n + 1 < segments.size())
            length = std::min(length, segments[n + 1].start - segments[n].start);
        if (length == 0) continue;
        const bool goesOn = !parts_.empty() && parts_.back().centreHz == segments[n].centreHz &&
                            parts_.back().firstByte + parts_.back().length * size == first;
        if (goesOn) {
            parts_.back().length += length;
        } else {
            parts_.push_back({segments[n].centreHz, first, length, 0});
        }
    }
}

Domain RawRecording::domain() const {
    return isReal(format_) ? Domain::Composite : Domain::Band;
}

double RawRecording::centreHz() const {
    return isReal(format_) ? 0 : parts_[playing_].centreHz;
}

std::size_t RawRecording::read(std::span<Sample> into) {
    Part& part = parts_[playing_];
    const std::size_t size = bytesOf(format_);
    const auto wanted =
        static_cast<std::size_t>(std::min<std::uint64_t>(into.size(), part.length - part.at));
    bytes_.resize(wanted * size);
    const std::size_t whole = std::fread(bytes_.data(), size, wanted, file_.get());
    bad_ += convert(format_, std::span(bytes_).first(whole * size), into.first(whole));
    part.at += whole;
    return whole;
}

void RawRecording::seek(std::uint64_t sample) {
    Part& part = parts_[playing_];
    part.at = sample;
    seekTo(file_.get(), part.firstByte + sample * bytesOf(format_));
}

bool RawRecording::covers(const Part& part, double hz) const {
    return std::fabs(hz - part.centreHz) + kHalfChannelHz <= rateHz_ / 2;
}

bool RawRecording::retune(double hz) {
    if (covers(parts_[playing_], hz)) return false;
    const auto found = std::find_if(parts_.begin(), parts_.end(),
                                    [&](const Part& part) { return covers(part, hz); });
    if (found == parts_.end()) return false;
    playing_ = static_cast<std::size_t>(found - parts_.begin());
    seek(found->at);
    return true;
}

}  // namespace hm16::receiver
