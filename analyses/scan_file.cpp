// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/scan_file.h"

#include "analyses/scan_channels.h"
#include "core/code_page.h"
#include "core/numbers.h"
#include "core/text_lines.h"

namespace hmonitor {

FileResult<ScanFile> ScanFile::read(const Files& files) {
    const auto bytes = files.read(kFileName);
    if (!bytes) return bytes.fault();
    ScanFile file;
    file.bytes_ = *bytes;
    return file;
}

std::size_t ScanFile::lineCount() const {
    TextLines text(bytes_);
    std::size_t count = 0;
    while (text.next()) ++count;
    return count;
}

std::vector<std::string> ScanFile::lines(std::string_view bytes) {
    const auto wanted = static_cast<std::size_t>(storedChannels().count());
    std::vector<std::string> levels;
    TextLines text(bytes);
    while (levels.size() < wanted) {
        const auto line = text.next();
        if (!line) break;
        levels.push_back(utf8FromCodePage(*line));
    }
    return levels;
}

void ScanFile::add(std::int32_t level) {
    bytes_.append(longText(level).view().substr(1)).append("\r\n");
}

std::optional<FileFault> ScanFile::write(const Files& files) const {
    return files.rewrite(kFileName, bytes_);
}

}  // namespace hmonitor
