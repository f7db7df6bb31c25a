// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>

#include "drivers/receiver/samples/raw_recording.h"

namespace hm16::receiver {

// What the metadata of a SigMF recording says about its samples.
struct SigmfDescription {
    std::filesystem::path data;
    RawLayout layout;
};

// Reads NAME.sigmf-meta; `file` may name either file of the pair or NAME alone. One channel only;
// each capture is a segment. Annotations are ignored. Throws SourceError with what is wrong.
SigmfDescription describeSigmf(const std::filesystem::path& file);

}  // namespace hm16::receiver
