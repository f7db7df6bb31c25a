// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/samples/raw_recording.h"

#include <cerrno>
#include <cstring>
#include <system_error>

namespace hm16::receiver {

RawRecording::RawRecording(const std::filesystem::path& file, const RawLayout& layout)
    : layout_(layout) {
    const std::string name = file.string();
    std::error_code wrong;
    if (std::filesystem::is_directory(file, wrong))
        throw SourceError(name + " is a folder, not a recording.");
    file_.reset(std::fopen(name.c_str(), "rb"));
    if (!file_) throw SourceError(name + " cannot be opened: " + std::strerror(errno) + ".");
    const std::uint64_t bytes = std::filesystem::file_size(file, wrong);
    if (wrong) throw SourceError(name + " cannot be measured: " + wrong.message() + ".");
    if (bytes > layout_.headerBytes)
        length_ = (bytes - layout_.headerBytes) / bytesOf(layout_.format);
    if (length_ == 0) throw SourceError(name + " holds no samples.");
    rewind();
}

Domain RawRecording::domain() const {
    return isReal(layout_.format) ? Domain::Composite : Domain::Band;
}

std::size_t RawRecording::read(std::span<Sample> into) {
    const std::size_t size = bytesOf(layout_.format);
    bytes_.resize(into.size() * size);
    const std::size_t whole = std::fread(bytes_.data(), size, into.size(), file_.get());
    bad_ += convert(layout_.format, std::span(bytes_).first(whole * size), into.first(whole));
    return whole;
}

void RawRecording::rewind() {
    std::clearerr(file_.get());
    std::fseek(file_.get(), static_cast<long>(layout_.headerBytes), SEEK_SET);
}

}  // namespace hm16::receiver
