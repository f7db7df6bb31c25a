// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hmonitor {

/// The place of a form in the program. `->` loads the form if it is not loaded, peek() does not.
/// The object exists for the whole run, so a pointer to it never dangles.
template <class FormType>
class Slot {
 public:
    void fill(FormType& form) { form_ = &form; }
    bool filled() const { return form_ != nullptr; }

    FormType* operator->() const {
        form_->load();
        return form_;
    }
    FormType& operator*() const { return *operator->(); }

    FormType& peek() const { return *form_; }

 private:
    FormType* form_ = nullptr;
};

}  // namespace hmonitor
