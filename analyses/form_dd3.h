// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "display/chart.h"
#include "display/family.h"
#include "program/program_form.h"

namespace hmonitor {

/// The window of the audio frequency response. It is never unloaded, so its chart keeps the curve.
class Form_Dd3 final : public ProgramForm {
 public:
    explicit Form_Dd3(Program& program);

    void closeRequested() override;
    void activated() override;

    /// When the shown curve was measured; none for the empty curve.
    void measuredAt(std::optional<display::Date> run);

    display::Panel Faceplate{*this, "Faceplate"};
    display::Panel Panel3D1{*this, "Panel3D1"};  ///< moves the window
    display::Label Label1{*this, "Label1"};
    display::Label Station{*this, "Station"};
    display::Panel ChartWell{*this, "ChartWell"};
    display::Family<display::Label, 7> ScaleNumber{*this, "ScaleNumber"};
    display::Label ScaleUnit{*this, "ScaleUnit"};
    display::Label ToneUnit{*this, "ToneUnit"};
    display::Chart Graph1{*this, "Graph1"};
    display::Key SSCommand1{*this, "SSCommand1"};  ///< print page
    display::Key Command3D2{*this, "Command3D2"};  ///< close

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    void close();
    void openPage();

    void tellStation();

    std::optional<display::Date> run_;
    bool placed_ = false;  ///< was shown before; from then on the user decides its position
};

}  // namespace hmonitor
