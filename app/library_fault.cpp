// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/library_fault.h"

#include "core/numbers.h"

namespace hmonitor {

namespace {

/// The system's reason often begins with the file name, which the sentence already has.
std::string reasonOf(const hm16::LoadResult& loaded) {
    const std::string named = loaded.file.string() + ": ";
    return loaded.reason.starts_with(named) ? loaded.reason.substr(named.size()) : loaded.reason;
}

/// Names the first few and the number of the others: the sentence must fit a small window.
std::string namesOf(const hm16::LoadResult& loaded, const char* and_, const char* more) {
    constexpr std::size_t kNamed = 3;
    std::string names;
    for (std::size_t i = 0; i < loaded.missing.size() && i < kNamed; ++i) {
        names += (i == 0 ? "" : ", ") + loaded.missing[i];
    }
    if (loaded.missing.size() <= kNamed) return names;
    const auto others = static_cast<int>(loaded.missing.size() - kNamed);
    return names + and_ + wholeText(others).str() + more;
}

}  // namespace

LibraryFault libraryFault(const hm16::LoadResult& loaded) {
    const std::string file = loaded.file.string();
    switch (loaded.refusal) {
        case hm16::Refusal::None:
            break;
        case hm16::Refusal::NoFile:
            return {"No está la biblioteca de la unidad " + file + ".",
                    "There is no driver library " + file + "."};
        case hm16::Refusal::NoLibrary:
            return {file + " no se puede cargar como biblioteca de la unidad: " + reasonOf(loaded) +
                        ".",
                    file + " cannot be loaded as a driver library: " + reasonOf(loaded) + "."};
        case hm16::Refusal::LacksFunctions:
            return {file + " no es una biblioteca completa; faltan " +
                        namesOf(loaded, " y ", " más") + ".",
                    file + " is no complete driver library; it lacks " +
                        namesOf(loaded, " and ", " more") + "."};
    }
    return {};
}

}  // namespace hmonitor
