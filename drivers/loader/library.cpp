// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/loader/library.h"

#include <utility>

#include "drivers/loader/symbols.h"

namespace hm16 {

std::filesystem::path libraryName() {
#if defined(_WIN32)
    return "hm-16.dll";
#elif defined(__APPLE__)
    return "hm-16.dylib";
#else
    return "hm-16.so";
#endif
}

Library::Library(base::SharedObject object, const HM16_Functions& functions,
                 std::filesystem::path file)
    : object_(std::move(object)), functions_(functions), file_(std::move(file)) {}

LoadResult Library::load(const std::filesystem::path& folder) {
    std::error_code error;
    const auto file = std::filesystem::absolute(folder / libraryName(), error);
    if (!std::filesystem::exists(file, error)) {
        return {
            nullptr, "There is no driver library " + file.string() + ".", Refusal::NoFile, file, "",
            {}};
    }
    std::string reason;
    base::SharedObject object = base::SharedObject::open(file, reason);
    if (!object) {
        return {nullptr,
                file.string() + " cannot be loaded as a driver library: " + reason + ".",
                Refusal::NoLibrary,
                file,
                reason,
                {}};
    }
    const SymbolTable table = readSymbols(object);
    if (!table.missing.empty()) {
        std::string names;
        for (const auto& name : table.missing) names += (names.empty() ? "" : ", ") + name;
        return {nullptr,
                file.string() + " is no complete driver library; it lacks " + names + ".",
                Refusal::LacksFunctions,
                file,
                "",
                table.missing};
    }
    return {std::unique_ptr<Library>(new Library(std::move(object), table.functions, file)),
            "",
            Refusal::None,
            file,
            "",
            {}};
}

}  // namespace hm16
