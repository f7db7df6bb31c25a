// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/files.h"

namespace hmonitor {

/// The lines of `hm-16.dat`.
enum class PanelLine {
    MemoryPreset = 1,    ///< current preset, a whole number
    DbCorrection = 2,    ///< field correction in dB, signed, decimals allowed
    OddFrequencies = 3,  ///< "Tune only odd Frequencies", "1" or "0"
    AllFrequencies = 4,  ///< "Tune all Frequencies", "1" or "0"
    MakeLog = 5,         ///< "Make Log Files of the actual Preset", "1" or "0"
    Detector = 6,        ///< "1" average, "0" peak
    AudioMode = 7,       ///< "0" L and R, "1" L+R and L-R
    ScannerOffset = 8,   ///< level offset of the band scanner, only carried along
};

/// The working settings of the panels, kept as the text that the file has: a rewrite changes one
/// line and leaves the others to the byte.
class PanelSettings {
 public:
    static constexpr std::string_view kFileName = "hm-16.dat";

    /// Reads up to line `last`, the last one that the caller uses.
    static FileResult<PanelSettings> read(const Files& files, PanelLine last);

    /// The text of a line; empty behind the last one read.
    std::string_view line(PanelLine which) const;
    /// `valueOf` that text.
    double value(PanelLine which) const;

    /// The same settings with one line's text replaced. `text` has no line end.
    PanelSettings with(PanelLine which, std::string_view text) const;

    /// Rewrites the file. Only of settings that were read up to `PanelLine::ScannerOffset`.
    std::optional<FileFault> write(const Files& files) const;

 private:
    explicit PanelSettings(std::vector<std::string> lines) : lines_(std::move(lines)) {}

    std::vector<std::string> lines_;
};

/// Reads all eight lines, replaces one and rewrites the file.
std::optional<FileFault> rewritePanelLine(const Files& files, PanelLine which,
                                          std::string_view text);

}  // namespace hmonitor
