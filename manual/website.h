// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "manual/book.h"

namespace hmonitor {

/// A file of the manual as a website: its path below the website's folder, and what is in it.
struct WebFile {
    std::string path;
    std::string text;
};

/// The whole manual as HTML: a folder for each language, a page that leads to both, and the style.
/// The pictures stand beside it in pictures/.
std::vector<WebFile> websiteOf(const Book& book);

}  // namespace hmonitor
