// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace hmonitor {

/// Text of the settings files is one byte a character, Windows code page 1252; the program works
/// in UTF-8. The five bytes that the page leaves undefined become the control characters of the
/// same number and come back unchanged, so any file survives the round trip.
std::string utf8FromCodePage(std::string_view bytes);

/// A letter that the page lacks, and each byte that is no UTF-8, becomes "?".
std::string codePageFromUtf8(std::string_view text);

/// Lower case of the page's letters, for names of files that are found without regard to case.
/// What is no UTF-8 stays as it is.
std::string foldedCase(std::string_view utf8);

}  // namespace hmonitor
