// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "drivers/hm16_more.h"
#include "drivers/hm16_report.h"
#include "drivers/receiver/library/open_source.h"
#include "drivers/receiver/library/receiver_options.h"
#include "drivers/receiver/library/receiver_unit.h"
#include "drivers/receiver/radio/soapy_library.h"
#include "drivers/receiver/radio/soapy_radio.h"
#include "drivers/receiver/sound/loudspeaker.h"
#include "drivers/unit/absence.h"
#include "drivers/unit/settings.h"
#include "drivers/unit/standard_error.h"
#include "drivers/unit/unit.h"

namespace hm16 {
namespace {

class OpenedUnit;

// The unit that is open, for the functions beside the nineteen. Those are called from the same
// thread as the nineteen, which own the unit.
OpenedUnit* openedUnit = nullptr;

// Forgets itself when it goes.
class OpenedUnit : public receiver::ReceiverUnit {
 public:
    OpenedUnit(const receiver::ReceiverOptions& options,
               std::unique_ptr<receiver::SampleSource> source, PublishedReadings& readings)
        // The program may change its folder later; the files stay where it was at the start.
        : ReceiverUnit(options, std::move(source), readings, std::filesystem::current_path()) {
        if (options.listen && options.pace == receiver::Pace::Real) speaker_.emplace(sound());
        openedUnit = this;
    }
    ~OpenedUnit() override { openedUnit = nullptr; }

    // Null unless the settings ask for it.
    receiver::Loudspeaker* speaker() { return speaker_ ? &*speaker_ : nullptr; }

 private:
    std::optional<receiver::Loudspeaker> speaker_;
};

std::int32_t HM16_CALL setListening(std::int32_t volume, std::int32_t muted) {
    receiver::Loudspeaker* const speaker = openedUnit ? openedUnit->speaker() : nullptr;
    if (!speaker || volume < 0 || volume > 100) return 1;
    speaker->set(volume, muted != 0);
    return 0;
}

std::int32_t HM16_CALL listening(HM16_ListenState* told) {
    if (!told || told->size < sizeof told->size) return 1;
    HM16_ListenState state{};
    state.size = std::min<std::uint32_t>(told->size, sizeof state);
    if (const auto* speaker = openedUnit ? openedUnit->speaker() : nullptr) {
        const auto now = speaker->state();
        state.playing = now.playing ? 1 : 0;
        state.volume = now.volume;
        state.muted = now.muted ? 1 : 0;
    }
    std::memcpy(told, &state, state.size);
    return 0;
}

constexpr HM16_ListenV1 kListen{sizeof(HM16_ListenV1), setListening, listening};

// What the source is that cannot be used.
std::int32_t causeOf(const receiver::ReceiverOptions& options, const receiver::SourceError& error) {
    using receiver::SourceKind;
    if (options.source == SourceKind::Recording) return HM16_BAD_RECORDING;
    if (options.source == SourceKind::Synthetic) return HM16_BAD_SETTING;
    if (dynamic_cast<const receiver::NoSoapy*>(&error) != nullptr) return HM16_NO_SOAPY;
    if (dynamic_cast<const receiver::RadioAbsent*>(&error) != nullptr) return HM16_NO_RADIO;
    return HM16_BAD_RADIO;
}

std::string settingOf(const receiver::ReceiverOptions& options) {
    if (options.source == receiver::SourceKind::Soapy) return options.radio.device;
    return options.source == receiver::SourceKind::Recording ? options.recording.file.string()
                                                             : "hm-16.ini";
}

}  // namespace

std::unique_ptr<Unit> openUnit(const std::filesystem::path& folder, PublishedReadings& readings) {
    Settings settings = Settings::read(folder / "hm-16.ini");
    const receiver::ReceiverOptions options = receiver::readOptions(settings, folder);
    const auto faults = settings.faults();
    for (const auto& fault : faults) sayOnStandardError(fault);
    if (!faults.empty()) tellAbsence(HM16_BAD_SETTING, "hm-16.ini", faults.front());
    if (!faults.empty() || options.version <= 0) return nullptr;
    try {
        auto source = receiver::openSource(options);
        return std::make_unique<OpenedUnit>(options, std::move(source), readings);
    } catch (const receiver::SourceError& error) {
        const char* key = options.source == receiver::SourceKind::Recording ? "file" : "source";
        settings.addFault(key, std::string("cannot be used: ") + error.what());
        sayOnStandardError(settings.faults().back());
        tellAbsence(causeOf(options, error), settingOf(options), error.what());
    }
    return nullptr;
}

float libraryVersion() {
    return 1.0F;
}

const void* libraryExtension(std::string_view id) {
    return id == HM16_LISTEN ? &kListen : nullptr;
}

}  // namespace hm16

int32_t HM16_CALL HM16_ReceiverReport(char* text, int32_t size) {
    if (!hm16::openedUnit || !text || size <= 0) return 1;
    const std::string report = hm16::openedUnit->report();
    const std::size_t length = std::min(report.size(), static_cast<std::size_t>(size) - 1);
    std::memcpy(text, report.data(), length);
    text[length] = 0;
    return 0;
}

int32_t HM16_CALL HM16_ReceiverStep(int32_t slots) {
    return hm16::openedUnit && hm16::openedUnit->step(slots) ? 0 : 1;
}
