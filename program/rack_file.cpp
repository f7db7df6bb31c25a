// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/rack_file.h"

#include "base/number_in_text.h"
#include "base/number_text.h"
#include "base/plain_text.h"
#include "base/rewrite_file.h"
#include "core/text_lines.h"

namespace hmonitor {

namespace {

/// No screen is larger.
constexpr int kMostPixels = 100000;

void takePixels(int& pixels, std::string_view value) {
    const auto number = base::numberIn(value);
    if (number && *number >= -kMostPixels && *number <= kMostPixels) {
        pixels = static_cast<int>(*number);
    }
}

}  // namespace

RackFile RackFile::parse(std::string_view text) {
    RackFile file;
    TextLines lines(text);
    while (const auto line = lines.next()) {
        const std::size_t sign = line->find('=');
        if (sign == std::string_view::npos) continue;
        const std::string_view key = base::trimmed(line->substr(0, sign));
        const std::string_view value = base::trimmed(line->substr(sign + 1));
        if (key == "left") takePixels(file.place.left, value);
        if (key == "top") takePixels(file.place.top, value);
        if (key == "width") takePixels(file.place.width, value);
        if (key == "whole") file.place.whole = value == "1";
        if (key == "card") file.cardSeen = value == "seen";
    }
    return file;
}

RackFile RackFile::read(const Files& files) {
    if (!files.exists(kFileName)) return {};
    const auto bytes = files.read(kFileName);
    return bytes ? parse(*bytes) : RackFile{};
}

std::string RackFile::text() const {
    const auto number = [](const char* key, int value) {
        return std::string(key) + " = " + base::wholeText(value).str();
    };
    return joinLines({number("left", place.left), number("top", place.top),
                      number("width", place.width), number("whole", place.whole ? 1 : 0),
                      std::string("card = ") + (cardSeen ? "seen" : "new")});
}

void RackFile::write(const Files& files) const {
    static_cast<void>(base::rewriteFile(files.folder() / kFileName, text()));
}

}  // namespace hmonitor
