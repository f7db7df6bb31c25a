// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/desktop.h"

#include "display/form.h"

namespace display {

Desktop::Desktop() : queue_([this] { return now(); }) {}

Desktop::~Desktop() = default;

void Desktop::end() {
    if (!ended_) {
        ended_ = true;
        ending();
        finishWork();
    }
    throw ProgramEnded{};
}

void Desktop::wantEnd() {
    if (ended_) return;
    endWanted_ = true;
    endComes();
}

void Desktop::endIfWanted() {
    if (!endWanted_ || ended_) return;
    if (onEndWanted) onEndWanted();
    end();
}

Form* Desktop::find(std::string_view formName) const {
    for (Form* form : forms_) {
        if (form->name() == formName) return form;
    }
    return nullptr;
}

}  // namespace display
