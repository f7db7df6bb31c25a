// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "display/form.h"
#include "program/panel_sign.h"
#include "program/program.h"
#include "program/segment_digit.h"

namespace hmonitor {

/// Base of the program's forms, with access to the other forms, the driver and the shared state.
class ProgramForm : public display::Form {
 public:
    ProgramForm(Program& itsProgram, std::string itsName)
        : Form(itsProgram.desktop, std::move(itsName)),
          program(itsProgram),
          driver(itsProgram.driver),
          StationState(itsProgram.StationState) {}

 protected:
    /// Lays out a window of that size in twips, with its caption and its faceplate.
    void layWindow(float itsWidth, float itsHeight, std::string_view itsCaption,
                   display::Panel& faceplate);
    /// Lays out the strip at its top, by which it is moved.
    void layStrip(display::Panel& strip);
    /// Lays out the strip with a title and, if given, a note about the window's run and the station
    /// that it measures.
    void layTitle(display::Panel& strip, display::Label& title, std::string_view words,
                  display::Label* note = nullptr, display::Label* station = nullptr);
    /// Lays out a panel of the rack, in the language of the panels, with its heading at the right.
    void layPanel(float itsHeight, display::Panel& faceplate, display::Label& heading, float down,
                  const display::Words& words);

    /// Lays out the seven lines of a digit in a box of the panel, all in the unlit colour.
    void placeDigit(SegmentDigit& digit, const display::Box& box, display::Panel* in,
                    display::Colour dark);

    /// Lays out a panel's sign in its head, at that distance from the top, and its veils over the
    /// wells.
    void placeSign(PanelSign& sign, float down, std::initializer_list<const display::Panel*> wells);

    /// Adds to the tool tip of a key that it does nothing in demo mode.
    void tellIdleInDemo(display::Control& key) const;

    /// Binds a key with two pictures: it shows `pressed` while it is held, and acts when it is
    /// released on the key.
    static void bindKey(display::Picture& key, const char* atRest, const char* pressed,
                        display::Event act);

    /// Binds a handle: while the button is down, the forms move by the distance of the pointer from
    /// where it was pressed.
    void bindHandle(display::MouseEvent& down, display::MouseEvent& move,
                    std::vector<display::Form*> moved);
    /// The same for the rack: its four panels move as one.
    void bindRackHandle(display::MouseEvent& down, display::MouseEvent& move);

    bool inDemoMode() const { return StationState.DemoMode == "si"; }

    Program& program;
    DriverDoor& driver;
    hmonitor::StationState& StationState;

 private:
    template <class Forms>
    void follow(const display::Mouse& at, const Forms& moved);
    float grippedX_ = 0;
    float grippedY_ = 0;
};

}  // namespace hmonitor
