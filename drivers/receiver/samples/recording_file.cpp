// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/samples/recording_file.h"

#include <string>
#include <system_error>

#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

void requireFile(const std::filesystem::path& file) {
    std::error_code wrong;
    const auto status = std::filesystem::status(file, wrong);
    if (!std::filesystem::exists(status)) return;
    const std::string name = file.string();
    if (std::filesystem::is_directory(status))
        throw SourceError(name + " is a folder, not a recording.");
    if (std::filesystem::is_fifo(status))
        throw SourceError(name + " is a pipe; a recording must be a file.");
    if (!std::filesystem::is_regular_file(status))
        throw SourceError(name + " is a device, not a file.");
    if (std::filesystem::file_size(file, wrong) == 0 && !wrong)
        throw SourceError(name + " is empty.");
}

}  // namespace hm16::receiver
