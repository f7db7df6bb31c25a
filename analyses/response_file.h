// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/files.h"
#include "program/driver.h"

namespace hmonitor {

/// The stored frequency response of one station, for instance `0875.res`: sixteen lines, the
/// levels of the eight pairs in tenths of dB and then their frequencies in Hz, in the order in
/// which the unit gave them.
class ResponseFile {
 public:
    /// The file of a frequency in units of 100 kHz.
    explicit ResponseFile(double frequency);

    const std::string& name() const { return name_; }

    /// The stored pairs; none without the file, or where it cannot be read. A line that a torn file
    /// lacks counts as 0, so that a pair whose frequency is lost carries no result.
    std::optional<ResponsePairs> read(const Files& files) const;
    std::optional<FileFault> write(const Files& files, const ResponsePairs& pairs) const;

    static ResponsePairs parse(std::string_view bytes);
    static std::string compose(const ResponsePairs& pairs);

 private:
    std::string name_;
};

}  // namespace hmonitor
