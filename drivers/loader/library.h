// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "base/shared_object.h"
#include "drivers/hm16.h"
#include "drivers/loader/library_file.h"

namespace hm16 {

struct LoadResult;

// A loaded driver library that has every required function. The destructor unloads it; the
// functions must not be called afterwards. This class calls none of them.
class Library {
 public:
    // Loads the file libraryName() from `folder`. On failure nothing stays loaded.
    static LoadResult load(const std::filesystem::path& folder, Trust trust = Trust::Anybody);

    const HM16_Functions& functions() const { return functions_; }
    const std::filesystem::path& file() const { return file_; }

    // An additional function by its name; null if the library has none.
    void* extra(const char* name) const { return object_.function(name); }

 private:
    Library(base::SharedObject object, const HM16_Functions& functions, std::filesystem::path file);

    base::SharedObject object_;
    HM16_Functions functions_;
    std::filesystem::path file_;
};

// Why a library was not loaded.
enum class Refusal {
    None,
    NoFile,          // there is no such file
    BadFile,         // the file is not one to load, see FileFault
    NoLibrary,       // the system does not take it for a library
    LacksFunctions,  // it is a library, but has not all that a driver library needs
    Crashed,         // it ended its process while it was loaded
    Hangs,           // it did not come back from being loaded
};

// The result of loading: the library, or a sentence that names file and fault, and the parts of
// that sentence.
struct LoadResult {
    std::unique_ptr<Library> library;
    std::string fault;
    Refusal refusal = Refusal::None;
    std::filesystem::path file;
    std::string reason;                // the system's reason, for Refusal::NoLibrary and Crashed
    std::vector<std::string> missing;  // the missing functions, for Refusal::LacksFunctions
    FileFault fileFault = FileFault::None;
};

// The sentence of a refusal from its parts.
std::string refusalSentence(const LoadResult& result);

// "hm-16.so", "hm-16.dll" or "hm-16.dylib", by the system.
std::filesystem::path libraryName();

}  // namespace hm16
