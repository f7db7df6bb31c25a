// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "base/shared_object.h"
#include "drivers/hm16.h"

namespace hm16 {

struct LoadResult;

// A loaded driver library that has every required function. The destructor unloads it; the
// functions must not be called afterwards. This class calls none of them.
class Library {
 public:
    // Loads the file libraryName() from `folder`. On failure nothing stays loaded.
    static LoadResult load(const std::filesystem::path& folder);

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

// Why a library was not loaded: the file is missing, the system cannot load it, or it lacks
// functions.
enum class Refusal { None, NoFile, NoLibrary, LacksFunctions };

// The result of loading: the library, or a sentence that names file and fault, and the parts of
// that sentence.
struct LoadResult {
    std::unique_ptr<Library> library;
    std::string fault;
    Refusal refusal = Refusal::None;
    std::filesystem::path file;
    std::string reason;                // the system's reason, for Refusal::NoLibrary
    std::vector<std::string> missing;  // the missing functions, for Refusal::LacksFunctions
};

// "hm-16.so", "hm-16.dll" or "hm-16.dylib", by the system.
std::filesystem::path libraryName();

}  // namespace hm16
