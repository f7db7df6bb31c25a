// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/control_kind.h"

#include <string_view>

#include "display/chart.h"
#include "display/controls/buttons.h"
#include "display/controls/containers.h"
#include "display/controls/control_visitor.h"
#include "display/controls/labels.h"
#include "display/controls/lists.h"
#include "display/controls/pictures.h"
#include "display/controls/plot.h"
#include "display/controls/scroll_bar.h"
#include "display/controls/shapes.h"
#include "display/controls/text_field.h"
#include "display/page.h"

namespace display {

template <class Kind>
void KindOf<Kind>::accept(ControlVisitor& visitor) {
    visitor.visit(static_cast<Kind&>(*this));
}

template <class Kind>
void KindOf<Kind>::resetKind() {
    static_cast<Kind&>(*this).forEachProperty(
        [](std::string_view, auto& property) { resetProperty(property); });
}

template class KindOf<Label>;
template class KindOf<Line>;
template class KindOf<Shape>;
template class KindOf<Picture>;
template class KindOf<Panel>;
template class KindOf<PictureBox>;
template class KindOf<Key>;
template class KindOf<TextField>;
template class KindOf<CheckBox>;
template class KindOf<Option>;
template class KindOf<ComboBox>;
template class KindOf<ListBox>;
template class KindOf<ScrollBar>;
template class KindOf<Tabs>;
template class KindOf<Chart>;
template class KindOf<PagePreview>;
template class KindOf<Plot>;

}  // namespace display
