// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/loader/library.h"

#include <system_error>
#include <utility>

#include "base/utf8_path.h"
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

namespace {

std::string reasonOf(FileFault fault) {
    switch (fault) {
        case FileFault::None:
        case FileFault::Missing:
            break;
        case FileFault::Folder:
            return "it is a folder";
        case FileFault::NotRegular:
            return "it is no regular file";
        case FileFault::CutShort:
            return "it is cut short";
        case FileFault::OtherMachine:
            return "it is made for another kind of processor";
        case FileFault::ForeignOwner:
            return "it belongs neither to you nor to root";
        case FileFault::OthersMayWrite:
            return "others than its owner may write it";
    }
    return "";
}

LoadResult refused(LoadResult result, Refusal refusal) {
    result.refusal = refusal;
    result.fault = refusalSentence(result);
    return result;
}

}  // namespace

std::string refusalSentence(const LoadResult& result) {
    const std::string file = base::utf8Of(result.file);
    const std::string cannot = file + " cannot be loaded as a driver library: ";
    switch (result.refusal) {
        case Refusal::None:
            break;
        case Refusal::NoFile:
            return "There is no driver library " + file + ".";
        case Refusal::BadFile:
            return cannot + reasonOf(result.fileFault) + ".";
        case Refusal::NoLibrary:
            return cannot + result.reason + ".";
        case Refusal::LacksFunctions: {
            std::string names;
            for (const auto& name : result.missing) names += (names.empty() ? "" : ", ") + name;
            return file + " is no complete driver library; it lacks " + names + ".";
        }
        case Refusal::Crashed:
            return cannot + "it crashed meanwhile (" + result.reason + ").";
        case Refusal::Hangs:
            return cannot + "it does not come back.";
    }
    return "";
}

LoadResult Library::load(const std::filesystem::path& folder, Trust trust) {
    LoadResult result;
    std::error_code error;
    result.file = std::filesystem::absolute(folder / libraryName(), error);
    result.fileFault = checkLibraryFile(result.file, trust);
    if (result.fileFault == FileFault::Missing) return refused(std::move(result), Refusal::NoFile);
    if (result.fileFault != FileFault::None) return refused(std::move(result), Refusal::BadFile);

    base::SharedObject object = base::SharedObject::open(result.file, result.reason);
    if (!object) return refused(std::move(result), Refusal::NoLibrary);
    SymbolTable table = readSymbols(object);
    result.missing = std::move(table.missing);
    if (!result.missing.empty()) return refused(std::move(result), Refusal::LacksFunctions);
    result.library.reset(new Library(std::move(object), table.functions, result.file));
    return result;
}

}  // namespace hm16
