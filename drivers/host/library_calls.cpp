// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/host/library_calls.h"

#include <algorithm>
#include <cstdint>

namespace hm16 {

namespace {

// As much of an extension as this build knows, where the library has all of it.
template <typename Functions>
const Functions* wholeOf(const void* extension) {
    const auto* const functions = static_cast<const Functions*>(extension);
    return functions != nullptr && functions->size >= sizeof(Functions) ? functions : nullptr;
}

std::int32_t callNineteen(const HM16_Functions& f, CallValues& values, const char* text) {
    float* const n = values.numbers;
    std::int32_t* const w = values.wholes;
    switch (values.call) {
        case Call::Init:
            return f.init();
        case Call::Terminate:
            return f.terminate();
        case Call::DemoMode:
            return f.demoMode();
        case Call::Directorio:
            return f.directorio(text);
        case Call::Normal:
            return f.normal(n[0], w[0], w[1], w[2], w[3]);
        case Call::Parar:
            return f.parar();
        case Call::Reset:
            return f.reset(w[0]);
        case Call::Data:
            return f.data(&n[0], &n[1], &n[2], &n[3], &n[4], &n[5], &n[6], &n[7], &n[8], &n[9],
                          &n[10], &n[11], &n[12], &n[13], &n[14], &n[15]);
        case Call::DataRds:
            return f.dataRds(&n[0], &n[1]);
        case Call::Super:
            return f.super(n[0], &n[1]);
        case Call::StartEspectro:
            return f.startEspectro(n[0], n[1], w[0]);
        case Call::TramaEspectroRecibida:
            return f.tramaEspectroRecibida();
        case Call::GetEspectro:
            return f.getEspectro(n[0], &n[1]);
        case Call::SetClient:
            return f.setClient(w[0]);
        case Call::RespFrecuencia:
            return f.respFrecuencia(&w[0], &w[1], &w[2], &w[3], &w[4], &w[5], &w[6], &w[7], &w[8],
                                    &w[9], &w[10], &w[11], &w[12], &w[13], &w[14], &w[15]);
        case Call::SetSintoMode:
            return f.setSintoMode(w[0]);
        case Call::GetSintoMode:
            return f.getSintoMode(&w[0]);
        case Call::GetHardwareVersion:
            return f.getHardwareVersion(&n[0]);
        case Call::GetDriverVersion:
            return f.getDriverVersion(&n[0]);
        default:
            return 1;
    }
}

}  // namespace

void LibraryCalls::make() {
    // The library writes into memory of this process; only what came of a call crosses the page.
    CallValues values = page_.values;
    switch (values.call) {
        case Call::Load:
            load();
            return;
        case Call::Quit:
            loaded_.library.reset();
            return;
        case Call::FiguresCount:
        case Call::FiguresDescribe:
        case Call::FiguresSlots:
            callFigures(values);
            break;
        case Call::ListenSet:
        case Call::ListenState:
            callListen(values);
            break;
        case Call::AbsenceWhy:
            callAbsence(values);
            break;
        default:
            if (!loaded_.library) return;
            values.result = callNineteen(loaded_.library->functions(), values, page_.text);
    }
    page_.values = values;
}

void LibraryCalls::load() {
    loaded_ = Library::load(page_.text, Trust::OwnerAlone);
    writeRefusal(loaded_, page_);
    if (!loaded_.library) return;
    const HM16_Functions& functions = loaded_.library->functions();
    page_.optional = (functions.directorio != nullptr ? kHasDirectorio : 0) |
                     (functions.setClient != nullptr ? kHasSetClient : 0) |
                     (functions.getSintoMode != nullptr ? kHasGetSintoMode : 0);
    const auto extension =
        reinterpret_cast<HM16_ExtensionFunction>(loaded_.library->extra(HM16_EXTENSION_NAME));
    figures_ = extension ? wholeOf<HM16_FiguresV1>(extension(HM16_FIGURES)) : nullptr;
    listen_ = extension ? wholeOf<HM16_ListenV1>(extension(HM16_LISTEN)) : nullptr;
    absence_ = extension ? wholeOf<HM16_AbsenceV1>(extension(HM16_ABSENCE)) : nullptr;
    page_.extensions = (figures_ != nullptr ? kHasFigures : 0) |
                       (listen_ != nullptr ? kHasListen : 0) |
                       (absence_ != nullptr ? kHasAbsence : 0);
}

void LibraryCalls::callFigures(CallValues& values) {
    if (figures_ == nullptr) {
        values.result = values.call == Call::FiguresSlots   ? -1
                        : values.call == Call::FiguresCount ? 0
                                                            : 1;
        return;
    }
    if (values.call == Call::FiguresCount) {
        values.result = figures_->count();
    } else if (values.call == Call::FiguresDescribe) {
        values.result = figures_->describe(values.wholes[0], &values.figure);
    } else {
        values.result =
            figures_->slots(values.wholes[0], values.from, page_.slots, sizeof(HM16_Slot),
                            std::clamp(values.wholes[1], 0, kSlotsOnPage), &values.next);
    }
}

void LibraryCalls::callListen(CallValues& values) {
    if (listen_ == nullptr) {
        values.result = 1;
    } else if (values.call == Call::ListenSet) {
        values.result = listen_->set(values.wholes[0], values.wholes[1]);
    } else {
        values.result = listen_->state(&values.listen);
    }
}

void LibraryCalls::callAbsence(CallValues& values) {
    HM16_AbsenceInfo info{};
    info.size = sizeof info;
    values.result = absence_ != nullptr ? absence_->why(&info) : 1;
    page_.absence = info;
}

}  // namespace hm16
