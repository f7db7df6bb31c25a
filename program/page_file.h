// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "display/form.h"
#include "program/program.h"

namespace hmonitor {

/// Caption and tool tip of the key beside Print.
inline constexpr const char* kPdfCaption = "PDF";
inline constexpr display::Words kPdfTip{"Guarda la misma página como archivo PDF",
                                        "Saves the same page as a PDF file"};

/// The proposed file name of a page: station and date (see stationLine), and the page's title.
struct PageName {
    std::string station;
    std::string_view title;
};

/// Saves a page as a PDF: asks for the file name and then writes the bytes that `pdf` returns,
/// which is called only now. A fault is shown in a message box.
void savePageAsPdf(Program& program, display::Language language, const PageName& name,
                   const std::function<std::string()>& pdf);

/// Sets the look of the key that does it.
void likePdfKey(display::Key& key);

}  // namespace hmonitor
