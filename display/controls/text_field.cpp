// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/text_field.h"

#include <string_view>

#include "display/form.h"

namespace display {

void TextField::edit(std::string_view wanted) {
    if (text == wanted) return;
    allSelected_ = false;
    text.text_ = wanted;
    if (onChange && !form().layingOut()) onChange();
}

void TextField::Value::reset() {
    field_.allSelected_ = false;
    text_.reset();
}

void TextField::selectAll() {
    allSelected_ = true;
    selections = selections + 1;
}

}  // namespace display
