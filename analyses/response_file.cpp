// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/response_file.h"

#include <cstdint>
#include <vector>

#include "core/numbers.h"
#include "core/text_lines.h"

namespace hmonitor {

ResponseFile::ResponseFile(double frequency) : name_(frequencyFileName(frequency, ".res").str()) {}

std::optional<ResponsePairs> ResponseFile::read(const Files& files) const {
    const auto bytes = files.read(name_);
    if (!bytes) return std::nullopt;
    return parse(*bytes);
}

std::optional<FileFault> ResponseFile::write(const Files& files, const ResponsePairs& pairs) const {
    return files.rewrite(name_, compose(pairs));
}

ResponsePairs ResponseFile::parse(std::string_view bytes) {
    TextLines text(bytes);
    const auto number = [&text] { return toWhole(valueOf(text.next().value_or(""))); };
    ResponsePairs pairs;
    for (std::int32_t& level : pairs.level) level = number();
    for (std::int32_t& frequency : pairs.frequency) frequency = number();
    return pairs;
}

std::string ResponseFile::compose(const ResponsePairs& pairs) {
    std::vector<std::string> lines;
    for (const std::int32_t level : pairs.level) lines.push_back(shortText(level).str());
    for (const std::int32_t frequency : pairs.frequency)
        lines.push_back(shortText(frequency).str());
    return joinLines(lines);
}

}  // namespace hmonitor
