// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <utility>

#include "base/shared_object.h"
#include "drivers/hm16.h"
#include "drivers/hm16_absence.h"
#include "drivers/hm16_more.h"
#include "drivers/unit/absence.h"
#include "drivers/unit/standard_error.h"
#include "drivers/unit/unit.h"

namespace hm16 {

namespace {

enum class Mode { Closed, Idle, Normal, Sweep, Demo };

constexpr std::int32_t kDone = 0;
constexpr std::int32_t kRefused = 1;  // illegal in this mode, or an invalid argument
constexpr std::int32_t kFailed = 2;

// The state shared by the nineteen functions. The readings are separate from the unit, so that they
// can be copied in any state of it.
struct Session {
    PublishedReadings readings;
    std::unique_ptr<Unit> unit;
    Mode mode = Mode::Closed;

    ~Session() {
        // A process may end without HM_Terminate, and the unit waits for its thread.
        if (base::threadsEndFirst()) static_cast<void>(unit.release());
    }
};

Session& session() {
    static Session one;
    return one;
}

// A C caller cannot catch exceptions: they end here, and are reported once.
template <typename Work>
std::int32_t guarded(const char* function, Work work) {
    try {
        return work(session());
    } catch (const std::exception& error) {
        sayOnStandardError(std::string("hm-16: ") + function + " failed: " + error.what());
    } catch (...) {
        sayOnStandardError(std::string("hm-16: ") + function + " failed.");
    }
    return kFailed;
}

bool makesSense(float frequency) {
    return std::isfinite(frequency) && frequency > 0;
}

bool deliversFrames(const Unit& unit) {
    const float version = unit.hardwareVersion();
    return version >= 1.7f && version < 2.0f;
}

// The folder of the library itself.
std::filesystem::path libraryFolder() {
    static const char here = 0;
    std::error_code error;
    const auto file = std::filesystem::absolute(base::fileOfCode(&here), error);
    return error || !file.has_parent_path() ? std::filesystem::path(".") : file.parent_path();
}

// Where the settings file lies: the working folder of whoever loaded the library, else its own.
std::filesystem::path settingsFolder() {
    std::error_code error;
    const auto working = std::filesystem::current_path(error);
    if (!error && std::filesystem::exists(working / "hm-16.ini", error)) return working;
    return libraryFolder();
}

std::int32_t init(Session& s) {
    if (s.mode != Mode::Closed) return kRefused;
    static const char here = 0;
    if (base::threadsEndFirst()) base::keepLoaded(&here);
    s.mode = Mode::Idle;
    s.readings.publish({});
    forgetAbsence();
    s.unit = openUnit(settingsFolder(), s.readings);
    return s.unit ? kDone : kFailed;
}

std::int32_t terminate(Session& s) {
    s.mode = Mode::Closed;
    s.unit.reset();
    return kDone;
}

std::int32_t stop(Session& s) {
    if (s.mode == Mode::Closed) return kRefused;
    if (s.mode != Mode::Demo) s.mode = Mode::Idle;
    if (s.unit) s.unit->stop();
    return kDone;
}

std::int32_t demo(Session& s) {
    if (s.mode == Mode::Closed) return kRefused;
    s.mode = Mode::Demo;
    if (s.unit) s.unit->stop();
    return kDone;
}

std::int32_t measure(Session& s, const Tuning& tuning) {
    if (s.mode != Mode::Idle || !s.unit) return kRefused;
    s.unit->measure(tuning);
    s.mode = Mode::Normal;
    return kDone;
}

std::int32_t clearResults(Session& s, std::int32_t what) {
    if (s.mode != Mode::Idle || !s.unit || what < 1 || what > 3) return kRefused;
    s.unit->clearResults(static_cast<StoredResult>(what));
    return kDone;
}

std::int32_t levelAt(Session& s, float frequency, float& level) {
    const bool legal = s.mode == Mode::Idle || s.mode == Mode::Normal;
    if (!legal || !s.unit || !makesSense(frequency)) return kRefused;
    const auto measured = s.unit->levelAt(frequency);
    if (!measured) return kFailed;
    level = *measured;
    return kDone;
}

std::int32_t sweep(Session& s, const SweepRange& range) {
    if (s.mode != Mode::Idle || !s.unit || !deliversFrames(*s.unit)) return kRefused;
    if (range.stepKhz < 25 || range.stepKhz % 25 != 0 || range.points() == 0) return kRefused;
    s.unit->frames().forgetArrival();
    s.unit->sweep(range);
    s.mode = Mode::Sweep;
    return kDone;
}

std::int32_t sweptLevel(Session& s, float frequency, float& level) {
    if (!s.unit || !makesSense(frequency)) return kRefused;
    level = s.unit->frames().level(frequency);
    return kDone;
}

std::int32_t HM16_CALL figureCount() {
    const Session& s = session();
    return s.unit ? static_cast<std::int32_t>(s.unit->figures().size()) : 0;
}

std::int32_t HM16_CALL describeFigure(std::int32_t index, HM16_FigureInfo* info) {
    if (index < 0 || index >= figureCount() || !info || info->size < sizeof info->size)
        return kRefused;
    HM16_FigureInfo told = session().unit->figures()[static_cast<std::size_t>(index)];
    told.size = std::min<std::uint32_t>(info->size, sizeof told);
    std::memcpy(info, &told, told.size);
    return kDone;
}

std::int32_t HM16_CALL copySlots(std::int32_t station, std::uint64_t from, HM16_Slot* out,
                                 std::uint32_t slotSize, std::int32_t room, std::uint64_t* next) {
    const Session& s = session();
    const SlotRing* const slots = s.unit && station == 0 ? s.unit->slots() : nullptr;
    return slots ? slots->copy(from, out, slotSize, room, next) : -1;
}

constexpr HM16_FiguresV1 kFigures{sizeof(HM16_FiguresV1), figureCount, describeFigure, copySlots};

}  // namespace

}  // namespace hm16

using hm16::guarded;
using hm16::Session;

int32_t HM16_CALL HM_Init(void) {
    return guarded("HM_Init", hm16::init);
}

int32_t HM16_CALL HM_Terminate(void) {
    return guarded("HM_Terminate", hm16::terminate);
}

int32_t HM16_CALL HM_DemoMode(void) {
    return guarded("HM_DemoMode", hm16::demo);
}

int32_t HM16_CALL HM_Directorio(const char*) {
    return hm16::kDone;
}

int32_t HM16_CALL HM_Normal(float frequency, int32_t average, int32_t audioMode, int32_t response,
                            int32_t logFiles) {
    if (!hm16::makesSense(frequency)) return hm16::kRefused;
    const hm16::Tuning tuning{
        frequency, average != 0 ? hm16::Detector::Average : hm16::Detector::Peak,
        audioMode != 0 ? hm16::AudioMode::SumDifference : hm16::AudioMode::LeftRight,
        response != 0 ? hm16::ResponseRun::Armed : hm16::ResponseRun::Off,
        logFiles != 0 ? hm16::DayLogging::On : hm16::DayLogging::Off};
    return guarded("HM_Normal", [&](Session& s) { return hm16::measure(s, tuning); });
}

int32_t HM16_CALL HM_Parar(void) {
    return guarded("HM_Parar", hm16::stop);
}

int32_t HM16_CALL HM_Reset(int32_t what) {
    return guarded("HM_Reset", [&](Session& s) { return hm16::clearResults(s, what); });
}

int32_t HM16_CALL HM_Data(float* peakModulation, float* levelFirst, float* levelSecond,
                          float* stereoPhase, float* relativePower, float* pilotError,
                          float* pilotLevel, float* noiseLeft, float* noiseRight,
                          float* separationLeft, float* separationRight, float* distortion,
                          float* carrierDeviation, float* field, float* multipath,
                          float* peaksPerMinute) {
    const hm16::Readings now = hm16::session().readings.latest();
    float* const outputs[] = {peakModulation,   levelFirst,     levelSecond,     stereoPhase,
                              relativePower,    pilotError,     pilotLevel,      noiseLeft,
                              noiseRight,       separationLeft, separationRight, distortion,
                              carrierDeviation, field,          multipath,       peaksPerMinute};
    static_assert(std::size(outputs) == figures::kDataOutputs);
    for (std::size_t i = 0; i < figures::kDataOutputs; ++i) *outputs[i] = now.*figures::kOutputs[i];
    return hm16::kDone;
}

int32_t HM16_CALL HM_DataRDS(float* error, float* level) {
    const hm16::Readings now = hm16::session().readings.latest();
    *error = now.rdsError;
    *level = now.rdsLevel;
    return hm16::kDone;
}

int32_t HM16_CALL HM_Super(float frequency, float* level) {
    return guarded("HM_Super", [&](Session& s) { return hm16::levelAt(s, frequency, *level); });
}

int32_t HM16_CALL HM_StartEspectro(float start, float stop, int32_t stepKhz) {
    if (!hm16::makesSense(start) || !hm16::makesSense(stop)) return hm16::kRefused;
    // 0 stands for the finest step: the points of the channel's modulation bandwidth.
    const hm16::SweepRange range{start, stop, stepKhz == 0 ? 25 : stepKhz};
    return guarded("HM_StartEspectro", [&](Session& s) { return hm16::sweep(s, range); });
}

int32_t HM16_CALL HM_TramaEspectroRecibida(void) {
    const Session& s = hm16::session();
    return s.unit && s.mode == hm16::Mode::Sweep && s.unit->frames().frameArrived() ? 1 : 0;
}

int32_t HM16_CALL HM_GetEspectro(float frequency, float* level) {
    return guarded("HM_GetEspectro",
                   [&](Session& s) { return hm16::sweptLevel(s, frequency, *level); });
}

int32_t HM16_CALL HM_setClient(int32_t) {
    return hm16::kDone;
}

int32_t HM16_CALL HM_RespFrecuencia(int32_t* frequency1, int32_t* level1, int32_t* frequency2,
                                    int32_t* level2, int32_t* frequency3, int32_t* level3,
                                    int32_t* frequency4, int32_t* level4, int32_t* frequency5,
                                    int32_t* level5, int32_t* frequency6, int32_t* level6,
                                    int32_t* frequency7, int32_t* level7, int32_t* frequency8,
                                    int32_t* level8) {
    return guarded("HM_RespFrecuencia", [&](Session& s) {
        if (!s.unit || s.mode != hm16::Mode::Idle) return hm16::kRefused;
        const hm16::ResponseResults results = s.unit->response();
        const std::array frequencies{frequency1, frequency2, frequency3, frequency4,
                                     frequency5, frequency6, frequency7, frequency8};
        const std::array levels{level1, level2, level3, level4, level5, level6, level7, level8};
        for (std::size_t i = 0; i < results.size(); ++i) {
            *frequencies[i] = results[i].frequency;
            *levels[i] = results[i].level;
        }
        return hm16::kDone;
    });
}

int32_t HM16_CALL HM_setSintoMode(int32_t) {
    return hm16::kDone;
}

int32_t HM16_CALL HM_getSintoMode(int32_t* mode) {
    *mode = 0;
    return hm16::kDone;
}

int32_t HM16_CALL HM_getHardwareVersion(float* version) {
    const Session& s = hm16::session();
    *version = s.unit ? s.unit->hardwareVersion() : 0.0f;
    return hm16::kDone;
}

int32_t HM16_CALL HM_getDriverVersion(float* version) {
    *version = hm16::libraryVersion();
    return hm16::kDone;
}

const void* HM16_CALL HM16_Extension(const char* id) {
    if (id == nullptr) return nullptr;
    const std::string_view name(id);
    if (name == HM16_FIGURES) return &hm16::kFigures;
    if (name == HM16_ABSENCE) return &hm16::absenceExtension();
    return hm16::libraryExtension(name);
}
