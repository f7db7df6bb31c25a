// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of the loudspeakers, visible only while the driver library plays the station.
#include <algorithm>
#include <initializer_list>

#include "core/numbers.h"
#include "panels/quality/form_c.h"
#include "program/look.h"

namespace hmonitor {

namespace {

constexpr int kVolumeStep = 5;
constexpr float kSoundKeyTop = 880;
constexpr float kSoundKeyHeight = 290;

}  // namespace

void Form_C::bindSound() {
    const auto change = [this](int step) {
        const auto sound = driver.sound();
        if (!sound) return;
        driver.setSound(std::clamp(sound->volume + step, 0, 100), false);
        showSound();
    };
    SoundDown.onClick = [change] { change(-kVolumeStep); };
    SoundUp.onClick = [change] { change(kVolumeStep); };
    SoundMute.onClick = [this] {
        const auto sound = driver.sound();
        if (!sound) return;
        driver.setSound(sound->volume, !sound->muted);
        showSound();
    };
}

void Form_C::layOutSound() {
    const float from = Error57Well.left;
    const float to = RdsWell.left + RdsWell.width;
    constexpr float kWide = 540;
    constexpr float kMuteWide = 760;
    place(SoundDown, {from, kSoundKeyTop, kWide, kSoundKeyHeight}, "VOL -",
          display::SaysAndTip{{"Volumen: más bajo (Ctrl+Abajo)", "Volume: lower (Ctrl+Down)"}})
        .shortcut = "Ctrl+Down";
    place(SoundWell, {from + 600, kSoundKeyTop, 500, kSoundKeyHeight}, display::Surface::Well);
    place(SoundVolume, {20, 45, 460, 210}, &SoundWell, look::kSmallReadoutText.centred(),
          display::Readout{{"Volumen de los altavoces", "Volume of the loudspeakers"}},
          display::Tip{{"Volumen de los altavoces, de 0 a 100; -- sin sonido",
                        "Volume of the loudspeakers, 0 to 100; -- muted"}});
    place(SoundUp, {from + 1160, kSoundKeyTop, kWide, kSoundKeyHeight}, "VOL +",
          display::SaysAndTip{{"Volumen: más alto (Ctrl+Arriba)", "Volume: higher (Ctrl+Up)"}})
        .shortcut = "Ctrl+Up";
    place(SoundMute, {to - kMuteWide, kSoundKeyTop, kMuteWide, kSoundKeyHeight},
          display::Words{"MUDO", "MUTE"},
          display::SaysAndTip{{"Altavoces en silencio (Ctrl+M)", "Loudspeakers muted (Ctrl+M)"}})
        .shortcut = "Ctrl+M";
    showSound();
}

void Form_C::showSound() {
    const auto sound = driver.sound();
    const bool there = sound && sound->playing;
    for (display::Control* control : std::initializer_list<display::Control*>{
             &SoundDown, &SoundWell, &SoundVolume, &SoundUp, &SoundMute})
        control->visible = there;
    if (!there) return;
    SoundVolume.caption = sound->muted ? "--" : wholeText(sound->volume);
    SoundMute.lit = sound->muted;
}

}  // namespace hmonitor
