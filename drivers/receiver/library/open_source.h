// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "drivers/receiver/library/receiver_options.h"
#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// Opens what the options name. Throws SourceError.
std::unique_ptr<SampleSource> openSource(const ReceiverOptions& options);

// The source in a few words, for reports and for sentences about it.
std::string nameOf(const ReceiverOptions& options);

}  // namespace hm16::receiver
