// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/library_fault.h"

#include <string>

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

namespace {

LibraryFault wordsOf(hm16::FileFault fault) {
    using hm16::FileFault;
    switch (fault) {
        case FileFault::None:
        case FileFault::Missing:
            break;
        case FileFault::Folder:
            return {"es una carpeta", "it is a folder"};
        case FileFault::NotRegular:
            return {"no es un archivo normal", "it is no regular file"};
        case FileFault::CutShort:
            return {"está cortado", "it is cut short"};
        case FileFault::OtherMachine:
            return {"es para otro tipo de procesador", "it is made for another kind of processor"};
        case FileFault::ForeignOwner:
            return {"no pertenece ni a usted ni a root", "it belongs neither to you nor to root"};
        case FileFault::OthersMayWrite:
            return {"otros que su dueño pueden modificarlo", "others than its owner may write it"};
    }
    return {};
}

LibraryFault cannotBeLoaded(const std::string& file, const LibraryFault& reason) {
    return {file + " no se puede cargar como biblioteca de la unidad: " + reason.spanish + ".",
            file + " cannot be loaded as a driver library: " + reason.english + "."};
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
        case hm16::Refusal::BadFile:
            return cannotBeLoaded(file, wordsOf(loaded.fileFault));
        case hm16::Refusal::NoLibrary:
            return cannotBeLoaded(file, {reasonOf(loaded), reasonOf(loaded)});
        case hm16::Refusal::Crashed:
            return cannotBeLoaded(file, {"ha fallado mientras tanto (" + loaded.reason + ")",
                                         "it crashed meanwhile (" + loaded.reason + ")"});
        case hm16::Refusal::Hangs:
            return cannotBeLoaded(file, {"no vuelve", "it does not come back"});
        case hm16::Refusal::LacksFunctions:
            return {file + " no es una biblioteca completa; faltan " +
                        namesOf(loaded, " y ", " más") + ".",
                    file + " is no complete driver library; it lacks " +
                        namesOf(loaded, " and ", " more") + "."};
    }
    return {};
}

LibraryFault absenceFault(const UnitAbsence& absence) {
    using Cause = UnitAbsence::Cause;
    const auto& [cause, what, words] = absence;
    // Without a name the first radio that there is was meant.
    const std::string name = what.empty() ? "" : " \"" + what + "\"";
    switch (cause) {
        case Cause::NoRadio:
            return {"No se encuentra la radio" + name +
                        ". Compruebe que está conectada, que ningún otro programa la usa y que "
                        "está instalado su módulo de SoapySDR.",
                    "The radio" + name +
                        " was not found. Check that it is plugged in, that no other program uses "
                        "it and that its SoapySDR module is installed."};
        case Cause::NoSoapy:
            return {"La radio" + name + " necesita SoapySDR, que no se puede cargar: " + words,
                    "The radio" + name + " needs SoapySDR. " + words};
        case Cause::BadRadio:
            return {"La radio no se puede usar como lo pide hm-16.ini: " + words,
                    "The radio cannot be used as hm-16.ini asks: " + words};
        case Cause::BadSetting:
            return {"Hay un ajuste equivocado: " + words, "A setting is wrong: " + words};
        case Cause::BadRecording:
            return {"La grabación no se puede medir: " + words,
                    "The recording cannot be measured: " + words};
        case Cause::NotTold:
            break;
    }
    return {};
}

}  // namespace hmonitor
