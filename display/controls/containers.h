// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "display/controls/appearance.h"
#include "display/controls/control_kind.h"

namespace display {

/// A container with a surface. Its children are placed in its units and clipped at its edge.
class Panel final : public KindOf<Panel> {
 public:
    using KindOf::KindOf;

    Text caption{*this};
    Property<Surface> surface{*this, Surface::None};
    /// Twips for one unit of the children's coordinates.
    Property<float> unit{*this, 1};

    MouseEvent onMouseDown, onMouseMove, onMouseUp;
    Event onDoubleClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("caption", caption), each("surface", surface), each("unit", unit);
    }
};

/// A row of tabs; each page is a panel that is shown while its tab is the current one.
class Tabs final : public KindOf<Tabs> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }

    void add(std::string_view caption, Panel& page);
    void choose(int tab);

    Property<int> current{*this, 0};
    struct Page {
        std::string caption;
        Panel* panel;
    };
    const std::vector<Page>& pages() const { return pages_; }
    Event onClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("current", current), each("pages", pages_);
    }

 private:
    std::vector<Page> pages_;
};

}  // namespace display
