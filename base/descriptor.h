// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unistd.h>

#include <cerrno>

namespace base {

/// An open file descriptor of a POSIX system, closed by the destructor.
class Descriptor {
 public:
    explicit Descriptor(int fd = -1) : fd_(fd) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    explicit operator bool() const { return fd_ >= 0; }
    int get() const { return fd_; }
    void reset(int fd) {
        close();
        fd_ = fd;
    }
    /// 0, or the `errno` value.
    int close() {
        const int fd = fd_;
        fd_ = -1;
        return fd >= 0 && ::close(fd) != 0 ? errno : 0;
    }

 private:
    int fd_;
};

}  // namespace base
