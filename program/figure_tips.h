// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/figures.h"
#include "display/form.h"

namespace hmonitor {

/// The tool tip of a figure at one place of the rack: what it is, its unit and range there, and
/// which values are good.
std::string figureTip(const figures::Figure& figure, const figures::Place& place,
                      display::Language language);

/// The tool tips of the figures on the rack. Controls keep them as plain pointers, so every text
/// that was made lives as long as the program: one for each set of figures that stand together.
class FigureTips {
 public:
    /// Gives each control of the form that shows a figure its tool tip, and the well around it one
    /// of all that stands in it.
    void tell(display::Form& form);

 private:
    struct Text {
        std::string spanish, english;
    };
    /// A figure at one of its places.
    struct Shown {
        const figures::Figure* figure;
        const figures::Place* place;
    };
    display::Words tipOf(const std::vector<Shown>& together);

    std::map<std::vector<const figures::Place*>, Text> made_;
};

}  // namespace hmonitor
