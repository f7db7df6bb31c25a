// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <memory>
#include <string_view>
#include <thread>

#include "drivers/loader/library.h"
#include "drivers/loader/read_data.h"
#include "drivers/unit/readings.h"
#include "tests/support/temp_folder.h"

// A driver library through the real loader, with its own settings in its own folder, which is the
// current folder while this object exists.
class LoadedLibrary {
 public:
    LoadedLibrary(const std::filesystem::path& file, std::string_view settings)
        : before_(std::filesystem::current_path()) {
        std::filesystem::copy(file, folder_.path() / hm16::libraryName());
        folder_.write("hm-16.ini", settings);
        std::filesystem::current_path(folder_.path());
        auto loaded = hm16::Library::load(folder_.path());
        EXPECT_EQ(loaded.fault, "");
        library_ = std::move(loaded.library);
    }
    ~LoadedLibrary() {
        if (library_) library_->functions().terminate();
        library_.reset();
        std::filesystem::current_path(before_);
    }
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    const HM16_Functions& operator*() const { return library_->functions(); }
    const HM16_Functions* operator->() const { return &library_->functions(); }
    const hmonitor::test::TempFolder& folder() const { return folder_; }
    const hm16::Library& library() const { return *library_; }

    void tune(float frequency, int audioMode = 0, int response = 0, int logFiles = 0) const {
        (*this)->parar();
        EXPECT_EQ((*this)->normal(frequency, 0, audioMode, response, logFiles), 0);
    }

    float version() const {
        float version = -1;
        (*this)->getHardwareVersion(&version);
        return version;
    }

    hm16::Readings readings() const {
        hm16::Readings r;
        hm16::readData(library_->functions(), r);
        (*this)->dataRds(&r.rdsError, &r.rdsLevel);
        return r;
    }

    std::array<int32_t, 16> response() const {
        std::array<int32_t, 16> r;
        r.fill(-77);
        (*this)->respFrecuencia(&r[0], &r[1], &r[2], &r[3], &r[4], &r[5], &r[6], &r[7], &r[8],
                                &r[9], &r[10], &r[11], &r[12], &r[13], &r[14], &r[15]);
        return r;
    }

    float swept(float frequency) const {
        float level = -1;
        (*this)->getEspectro(frequency, &level);
        return level;
    }

    // Waits until a condition holds; false after half a minute.
    template <typename Condition>
    static bool eventually(Condition condition) {
        for (int i = 0; i < 15000; ++i) {
            if (condition()) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        return false;
    }

    bool frameComes() const {
        return eventually([this] { return (*this)->tramaEspectroRecibida() != 0; });
    }

 private:
    hmonitor::test::TempFolder folder_;
    std::filesystem::path before_;
    std::unique_ptr<hm16::Library> library_;
};

using figures::showsEndMark;

// Expects that each of the nineteen functions is the one of that name in the library.
inline void expectEachInItsPlace(const hm16::Library& library) {
    const HM16_Functions& f = library.functions();
    const auto is = [&](auto function, const char* name) {
        EXPECT_NE(function, nullptr) << name;
        EXPECT_EQ(reinterpret_cast<void*>(function), library.extra(name)) << name;
    };
    is(f.init, "HM_Init");
    is(f.terminate, "HM_Terminate");
    is(f.demoMode, "HM_DemoMode");
    is(f.directorio, "HM_Directorio");
    is(f.normal, "HM_Normal");
    is(f.parar, "HM_Parar");
    is(f.reset, "HM_Reset");
    is(f.data, "HM_Data");
    is(f.dataRds, "HM_DataRDS");
    is(f.super, "HM_Super");
    is(f.startEspectro, "HM_StartEspectro");
    is(f.tramaEspectroRecibida, "HM_TramaEspectroRecibida");
    is(f.getEspectro, "HM_GetEspectro");
    is(f.setClient, "HM_setClient");
    is(f.respFrecuencia, "HM_RespFrecuencia");
    is(f.setSintoMode, "HM_setSintoMode");
    is(f.getSintoMode, "HM_getSintoMode");
    is(f.getHardwareVersion, "HM_getHardwareVersion");
    is(f.getDriverVersion, "HM_getDriverVersion");
}
