// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/host/shared_memory.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <new>

namespace hm16 {

namespace {

void* mapped(int descriptor) {
    void* const place =
        ::mmap(nullptr, sizeof(CallPage), PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    return place == MAP_FAILED ? nullptr : place;
}

}  // namespace

SharedPage SharedPage::make() {
    const int descriptor = ::memfd_create("hm16", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (descriptor < 0) return {};
    // A library that cut the page short would take the program down.
    if (::ftruncate(descriptor, sizeof(CallPage)) == 0 &&
        ::fcntl(descriptor, F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL) == 0) {
        if (void* const place = mapped(descriptor)) {
            return {descriptor, new (place) CallPage};
        }
    }
    ::close(descriptor);
    return {};
}

SharedPage SharedPage::open(int descriptor) {
    SharedPage page(descriptor, nullptr);
    struct stat is {};
    if (::fstat(descriptor, &is) != 0 || is.st_size != sizeof(CallPage)) return {};
    page.page_ = static_cast<CallPage*>(mapped(descriptor));
    if (!page || page->magic != CallPage::kMagic || page->size != sizeof(CallPage)) {
        return {};
    }
    return page;
}

SharedPage::~SharedPage() {
    if (page_ != nullptr) ::munmap(page_, sizeof(CallPage));
    if (descriptor_ >= 0) ::close(descriptor_);
}

}  // namespace hm16
