// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "display/form.h"
#include "program/program.h"

namespace hmonitor {

/// What the key beside Print is called and says.
inline constexpr const char* kPdfCaption = "PDF";
inline constexpr display::Words kPdfTip{"Guarda la misma página como archivo PDF",
                                        "Saves the same page as a PDF file"};

/// How a page is named that goes to a file: whose it is (see stationLine), and its title.
struct PageName {
    std::string station;
    std::string_view title;
};

/// A page as a file: asks for a place, proposing the name, and writes there what `pdf` gives, which
/// is asked for then alone. Changes nothing of the program; what goes wrong is told in a box.
void savePageAsPdf(Program& program, display::Language language, const PageName& name,
                   const std::function<std::string()>& pdf);

/// Dresses the key that does it.
void likePdfKey(display::Key& key);

}  // namespace hmonitor
