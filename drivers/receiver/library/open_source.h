// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "drivers/receiver/library/receiver_options.h"
#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// Opens the source that the options name. Throws SourceError.
std::unique_ptr<SampleSource> openSource(const ReceiverOptions& options);

// A short description of the source, for reports and messages.
std::string nameOf(const ReceiverOptions& options);

}  // namespace hm16::receiver
