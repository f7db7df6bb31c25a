// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

#include "drivers/host/call_journal.h"
#include "drivers/host/host_process.h"
#include "drivers/host/host_watch.h"
#include "drivers/host/shared_memory.h"
#include "drivers/loader/library.h"

namespace hm16 {

struct HostedLoad;

// A driver library in a process of its own. Each call is made there once, in the order in which it
// was asked for here, and the caller waits for it; a crash or a hang of the library is a question
// to the watch, never the end of the program. One thread uses it.
class HostedLibrary {
 public:
    struct Limits {
        std::chrono::milliseconds load{5000};    // then it counts as hanging
        std::chrono::milliseconds call{5000};    // then the watch is asked
        std::chrono::milliseconds unload{1000};  // then its process is killed
        // For so long the answer "go on without it" holds: a run that ends tunes back at once.
        std::chrono::milliseconds answer{2000};
    };

    // Starts `host` (hm16-host) and lets it load the library of `folder`.
    static HostedLoad load(const std::filesystem::path& host, const std::filesystem::path& folder,
                           Limits limits);
    static HostedLoad load(const std::filesystem::path& host, const std::filesystem::path& folder);
    ~HostedLibrary();
    HostedLibrary(const HostedLibrary&) = delete;
    HostedLibrary& operator=(const HostedLibrary&) = delete;

    // The functions as a library that was loaded here would give them, for as long as this object
    // lives. There is one at a time, since the interface has no word for which.
    const HM16_Functions& functions() const { return functions_; }
    // HM16_Extension.
    HM16_ExtensionFunction extension() const;

    // Who decides what becomes of a library in trouble; without it, the program goes on without
    // the library.
    void watchedBy(HostWatch* watch) { watch_ = watch; }

    // One call, as the page takes it. Answers its result; outputs are in `values`.
    std::int32_t call(CallValues& values);
    // What the last call handed over beside its values.
    const CallPage& page() const { return *page_; }
    // Words that go into the next call.
    void setText(const char* text);

    const std::filesystem::path& file() const { return file_; }
    bool hasFigures() const { return (extensions_ & kHasFigures) != 0; }
    bool hasListen() const { return (extensions_ & kHasListen) != 0; }
    bool hasAbsence() const { return (extensions_ & kHasAbsence) != 0; }
    // False once the program goes on without it.
    bool runs() const { return process_ != nullptr; }
    // The library's process, 0 for none; for tests.
    pid_t processId() const { return process_ ? process_->id() : 0; }

 private:
    enum class Outcome { Done, Crashed, NotLoaded, StartAgain, GoWithout };

    HostedLibrary(std::filesystem::path host, std::filesystem::path folder, Limits limits);

    bool launch();
    void retire();
    void leave();
    Outcome attempt(CallValues& values);
    bool awaitAnswer(std::uint32_t number, std::chrono::milliseconds most);
    bool answered(std::uint32_t number) const { return page_->answered.count() == number; }
    Outcome askAboutSilence(std::uint32_t number);
    bool recover(Outcome outcome, Call call);
    HostWatch::Next nextAfter(Outcome outcome);
    Outcome restore(Call call);
    Outcome repeat(const CallValues& values);
    bool startedAgainToTune(Call call);
    HostTrouble trouble(HostTrouble::Kind kind) const;
    std::optional<HostWatch::Next> decide(const HostTrouble& trouble,
                                          const std::function<bool()>& over);
    void remember(const CallValues& values);

    std::filesystem::path host_;
    std::filesystem::path folder_;
    std::filesystem::path file_;
    Limits limits_;
    HM16_Functions functions_{};
    HostWatch* watch_ = nullptr;
    SharedPage page_;
    std::unique_ptr<HostProcess> process_;
    std::uint32_t asked_ = 0;
    Patience patience_;
    std::uint32_t extensions_ = 0;
    LoadResult refusal_;
    CallJournal journal_;
    Call inWork_ = Call::None;
    std::chrono::steady_clock::time_point left_;

    // What a library that starts anew is told: what the one before it was.
    bool opened_ = false;
    bool demo_ = false;
    std::optional<CallValues> sintoMode_;
    std::optional<CallValues> running_;  // HM_Normal or HM_StartEspectro
    std::optional<CallValues> loudness_;
};

// The library, or why there is none as Library::load tells it.
struct HostedLoad {
    std::unique_ptr<HostedLibrary> library;
    LoadResult result;  // without a library of its own
    // The host program itself did not start: whoever asked may load the library by other means.
    bool noHost = false;
};

}  // namespace hm16
