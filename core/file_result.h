// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <variant>

namespace hmonitor {

enum class FileFaultKind { Missing, Unreadable, TooShort, NotWritten };

/// Why a file could not be used, and the sentence for the user: it names the file and the fault.
struct FileFault {
    FileFaultKind kind;
    std::string sentence;
    /// Of one that was not written: whether the user was told of such a trouble since it holds.
    std::shared_ptr<bool> told = nullptr;
};

/// What a file gave, or why it gave nothing.
template <typename T>
class FileResult {
 public:
    FileResult(T value) : held_(std::move(value)) {}
    FileResult(FileFault fault) : held_(std::move(fault)) {}

    explicit operator bool() const { return std::holds_alternative<T>(held_); }

    /// Only of a result that is true.
    T& operator*() { return std::get<T>(held_); }
    const T& operator*() const { return std::get<T>(held_); }
    T* operator->() { return &std::get<T>(held_); }
    const T* operator->() const { return &std::get<T>(held_); }

    /// Only of a result that is false.
    const FileFault& fault() const { return std::get<FileFault>(held_); }

 private:
    std::variant<T, FileFault> held_;
};

}  // namespace hmonitor
