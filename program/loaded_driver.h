// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "drivers/hm16.h"
#include "drivers/hm16_more.h"
#include "drivers/loader/read_data.h"
#include "program/driver.h"
#include "program/slot_states.h"
#include "program/unit_absence.h"

namespace hmonitor {

/// A driver library that was loaded at run time. The functions must outlive it.
class LoadedDriver final : public DriverLibrary {
 public:
    /// `extension` is the library's HM16_Extension, null where it has none.
    explicit LoadedDriver(const HM16_Functions& functions,
                          HM16_ExtensionFunction extension = nullptr)
        : call_(functions) {
        if (!extension) return;
        listen_ = static_cast<const HM16_ListenV1*>(extension(HM16_LISTEN));
        absence_ = static_cast<const HM16_AbsenceV1*>(extension(HM16_ABSENCE));
        if (const void* figures = extension(HM16_FIGURES)) {
            slots_.emplace(*static_cast<const HM16_FiguresV1*>(figures));
        }
    }

    /// Told why no unit answers, each time that none does and the library says why.
    std::function<void(const UnitAbsence&)> onAbsence;

    std::int32_t HM_Init() override {
        if (slots_) slots_->forget();
        return call_.init();
    }
    std::int32_t HM_Terminate() override { return call_.terminate(); }
    std::int32_t HM_DemoMode() override { return call_.demoMode(); }
    std::int32_t HM_Normal(float frequency, std::int32_t average, std::int32_t audioMode,
                           std::int32_t response, std::int32_t logFiles) override {
        const std::int32_t result = call_.normal(frequency, average, audioMode, response, logFiles);
        if (slots_) slots_->passOver();
        return result;
    }
    std::int32_t HM_Parar() override { return call_.parar(); }
    std::int32_t HM_Reset(std::int32_t what) override { return call_.reset(what); }
    std::int32_t HM_Data(Readings& readings) override { return hm16::readData(call_, readings); }
    std::int32_t HM_DataRDS(float& error, float& level) override {
        return call_.dataRds(&error, &level);
    }
    std::int32_t HM_Super(float frequency, float& level) override {
        return call_.super(frequency, &level);
    }
    std::int32_t HM_StartEspectro(float start, float stop, std::int32_t stepKhz) override {
        return call_.startEspectro(start, stop, stepKhz);
    }
    std::int32_t HM_TramaEspectroRecibida() override { return call_.tramaEspectroRecibida(); }
    std::int32_t HM_GetEspectro(float frequency, float& level) override {
        return call_.getEspectro(frequency, &level);
    }
    std::int32_t HM_RespFrecuencia(ResponsePairs& pairs) override {
        auto& f = pairs.frequency;
        auto& l = pairs.level;
        return call_.respFrecuencia(&f[0], &l[0], &f[1], &l[1], &f[2], &l[2], &f[3], &l[3], &f[4],
                                    &l[4], &f[5], &l[5], &f[6], &l[6], &f[7], &l[7]);
    }
    std::int32_t HM_setSintoMode(std::int32_t mode) override { return call_.setSintoMode(mode); }
    std::int32_t HM_getHardwareVersion(float& version) override {
        const std::int32_t result = call_.getHardwareVersion(&version);
        if (!(version > 0)) tellAbsence();
        return result;
    }
    std::int32_t HM_getDriverVersion(float& version) override {
        return call_.getDriverVersion(&version);
    }

    bool hasSlots() override { return slots_ && slots_->hasFigures(); }
    void readSlots(SlotTaker& taker) override {
        if (slots_) slots_->read(taker);
    }
    std::optional<SaidStates> states() override { return slots_ ? slots_->newest() : std::nullopt; }
    std::optional<Sound> sound() override {
        HM16_ListenState state{};
        state.size = sizeof state;
        if (!listen_ || listen_->state(&state) != 0) return std::nullopt;
        return Sound{state.playing != 0, state.volume, state.muted != 0};
    }
    void setSound(int volume, bool muted) override {
        if (listen_) listen_->set(volume, muted ? 1 : 0);
    }

 private:
    void tellAbsence() const {
        HM16_AbsenceInfo info{};
        info.size = sizeof info;
        if (!onAbsence || !absence_ || absence_->why(&info) != 0) return;
        const UnitAbsence absence = unitAbsence(info);
        if (absence.cause != UnitAbsence::Cause::NotTold) onAbsence(absence);
    }

    const HM16_Functions& call_;
    const HM16_ListenV1* listen_ = nullptr;
    const HM16_AbsenceV1* absence_ = nullptr;
    std::optional<SlotStates> slots_;
};

}  // namespace hmonitor
