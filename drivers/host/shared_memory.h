// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

#include "drivers/host/call_page.h"

namespace hm16 {

// One call page in memory that another process can map by its file descriptor.
class SharedPage {
 public:
    // A fresh page; empty when the system has no memory.
    static SharedPage make();
    // The page behind a descriptor, which it takes over; empty when it is none, or of another
    // build.
    static SharedPage open(int descriptor);

    SharedPage() = default;
    SharedPage(SharedPage&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, -1)),
          page_(std::exchange(other.page_, nullptr)) {}
    SharedPage& operator=(SharedPage&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        std::swap(page_, other.page_);
        return *this;
    }
    ~SharedPage();

    explicit operator bool() const { return page_ != nullptr; }
    CallPage* operator->() const { return page_; }
    CallPage& operator*() const { return *page_; }
    int descriptor() const { return descriptor_; }

 private:
    SharedPage(int descriptor, CallPage* page) : descriptor_(descriptor), page_(page) {}

    int descriptor_ = -1;
    CallPage* page_ = nullptr;
};

}  // namespace hm16
