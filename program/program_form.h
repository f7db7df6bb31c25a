// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/form.h"
#include "program/panel_sign.h"
#include "program/program.h"
#include "program/segment_digit.h"

namespace hmonitor {

/// A form of the program: it reaches the others, the driver and the shared state.
class ProgramForm : public display::Form {
 public:
    ProgramForm(Program& itsProgram, std::string itsName)
        : Form(itsProgram.desktop, std::move(itsName)),
          program(itsProgram),
          driver(itsProgram.driver),
          StationState(itsProgram.StationState) {}

 protected:
    /// A window of that size in twips, with its caption and its faceplate.
    void layWindow(float itsWidth, float itsHeight, std::string_view itsCaption,
                   display::Panel& faceplate);
    /// The strip at its top by which it is moved.
    void layStrip(display::Panel& strip);
    /// The strip with its title, and the note of its run.
    void layTitle(display::Panel& strip, display::Label& title, std::string_view words,
                  display::Label* note = nullptr);
    /// A panel of the rack, speaking the language of the panels, with its heading at the right.
    void layPanel(float itsHeight, display::Panel& faceplate, display::Label& heading, float down,
                  const display::Words& words);

    /// Places the seven lines of a digit in a box of the panel, all in the dark colour.
    void placeDigit(SegmentDigit& digit, const display::Box& box, display::Panel* in,
                    display::Colour dark);

    /// Places a panel's sign in its head, that far down, and its veils over the wells.
    void placeSign(PanelSign& sign, float down, std::initializer_list<const display::Panel*> wells);

    /// The tool tip of a key that does nothing without a unit says so.
    void tellIdleInDemo(display::Control& key) const;

    /// A key of two pictures: the pressed one while it is held, the other when it comes up; acts
    /// when it comes up on the key.
    static void bindKey(display::Picture& key, const char* atRest, const char* pressed,
                        display::Event act);

    /// The handle by which a window is moved: while a button is down, the pointer's difference to
    /// where it went down is added to each form's position.
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
