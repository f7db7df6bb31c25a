#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The keys of the rack by mouse and keyboard. What they did is read from the settings files, the
pixels of the readouts, the windows and the exit code."""

import sys

sys.dont_write_bytecode = True
from cases import ENGLISH, THREE, case, main
from rack import AUDIO_MODE, DETECTOR, PRESET
from screen import wait_for

every = case(languages=THREE, factors=(1, 2))


@every
def detector(rack, album):
    rack.click("Form1", "Image_Average")
    rack.wait_line(DETECTOR, "1", "the average detector, by mouse")
    wait_for(lambda: rack.is_lit("Form1", "Image_Average"), "a lit AVG")
    rack.click("Form1", "Image6")
    rack.wait_line(DETECTOR, "0", "the peak detector, by mouse")
    wait_for(lambda: rack.is_lit("Form1", "Image6"), "a lit PEAK")
    assert not rack.is_lit("Form1", "Image_Average"), "AVG and PEAK are both lit"
    rack.screen.type("shift+Tab", "space")
    rack.wait_line(DETECTOR, "1", "the average detector, by keyboard")
    rack.wait_measuring()
    album.take(rack.screen, "rack")


@every
def audio_mode(rack, album):
    rack.click("Form_B", "Image2")
    rack.wait_line(AUDIO_MODE, "1", "L+R and L-R, by mouse")
    wait_for(lambda: rack.is_lit("Form_B", "Image2"), "a lit L+R key")
    rack.screen.type("shift+Tab", "space")
    rack.wait_line(AUDIO_MODE, "0", "L and R, by keyboard")
    wait_for(lambda: rack.is_lit("Form_B", "Image1"), "a lit L|R key")
    rack.wait_measuring()


@every
def memory_steps(rack, album):
    """Stepping passes the empty memories in both directions, by mouse and by keyboard."""
    stored = list(rack.presets())
    wait_for(lambda: rack.memory() == stored[0], f"memory {stored[0]} at the start")

    def stands(place, said):
        wait_for(lambda: rack.memory() == stored[place], f"memory {stored[place]}, {said}")

    rack.click("Form_B", "SSCommand1")
    stands(1, "by mouse")
    for place in range(2, len(stored)):
        rack.screen.type("space")
        stands(place, "by keyboard")
    rack.screen.type("space")
    stands(0, "behind the last one")
    rack.click("Form_B", "SSCommand2")
    stands(-1, "backwards from the first one")
    rack.screen.type("space")
    stands(-2, "backwards by keyboard")


@case(languages=(ENGLISH,), shared=False)
def digits_tune_memories_by_their_place(rack, album):
    """With a layout that has digits in the row, and with one that has them on Shift."""
    stored = list(rack.presets())
    for layout in ("us", "fr"):
        rack.screen.ask("setxkbmap", layout)
        for memory in reversed(stored):
            # The X server's key codes: 10 is the key of 1, whatever the layout.
            key = str(9 + memory) if memory <= 10 else f"shift+{memory - 1}"
            rack.screen.type(key)
            wait_for(lambda: rack.memory() == memory, f"memory {memory} by the {layout} keyboard")
    album.take(rack.screen, "digits")


@every
def tuning_bar(rack, album):
    """Arrows, wheel, page keys, the groove and the thumb agree with one another."""

    def frequency():
        return rack.look("Form_B", "Label_FrecRadio")

    def moved(from_, said):
        wait_for(lambda: frequency() != from_, said)
        return rack.steady_look("Form_B", "Label_FrecRadio")

    def back_to(wanted, said):
        wait_for(lambda: frequency() == wanted, said)

    at_start = rack.steady_look("Form_B", "Label_FrecRadio")
    # The groove beside the thumb: a page of ten steps, then ten arrows back.
    rack.click("Form_B", "HScroll1", 0.97)
    a_page_on = moved(at_start, "a page by a click on the groove")
    wait_for(lambda: rack.memory() is None, "dark memory digits off the memories")
    rack.screen.type(*["Left"] * 10)
    back_to(at_start, "ten arrows for a page")
    rack.screen.type("Prior")
    back_to(a_page_on, "a page by its key")
    rack.screen.type("Next")
    back_to(at_start, "a page back by its key")
    rack.screen.turn_wheel(*rack.point("Form_B", "HScroll1"), up=True)
    a_step_on = moved(at_start, "a step by the wheel")
    rack.screen.type("Left")
    back_to(at_start, "an arrow for a notch of the wheel")
    rack.screen.type("Right")
    back_to(a_step_on, "a step by an arrow")

    # While the thumb is held the frequency is shown only; the release tunes, to the band's end.
    left, top, width, height = rack.box("Form_B", "HScroll1")
    middle = top + height // 2
    rack.screen.type("Home")
    at_low_end = moved(a_step_on, "the low end by its key")
    rack.screen.type("End")
    at_high_end = moved(at_low_end, "the high end by its key")
    rack.screen.drag((left + width - 6, middle), (left - width // 2, middle),
                     held=lambda: back_to(at_low_end, "the low end while the thumb is held"))
    rack.wait_measuring()
    assert frequency() == at_low_end, "the release of the thumb did not stay at the low end"
    assert at_high_end != at_start
    album.take(rack.screen, "tuned_by_hand")


@every
def fold(rack, album):
    rack.click("Form1", "Image7")
    wait_for(lambda: rack.screen.is_folded(rack.window), "the rack folded")

    def unfolded():
        # As a user does at the task bar: again, if minimising was not finished.
        rack.screen.x.activate(rack.window)
        return not rack.screen.is_folded(rack.window) and rack.find() == rack.window

    wait_for(unfolded, "the rack unfolded")
    rack.wait_measuring()


@case(languages=THREE, managed=False)
def fold_without_a_window_manager(rack, album):
    """A small bar stays and unfolds the rack, by mouse and by keyboard."""

    def bar():
        return [window for window in rack.screen.windows("HMonitor")
                if window != rack.window and rack.screen.box(window)[2] < 300]

    for unfold in (lambda: rack.screen.click(x + 20, y + 10), lambda: rack.screen.type("Return")):
        rack.click("Form1", "Image7")
        window = wait_for(bar, "the bar of the folded rack")[0]
        wait_for(lambda: rack.window not in rack.screen.windows("HMonitor"), "the rack away")
        album.take(rack.screen, "folded")
        x, y, _, _ = rack.screen.box(window)
        rack.screen.activate(window)
        unfold()
        wait_for(lambda: rack.find() == rack.window and not bar(), "the rack unfolded")
        rack.wait_measuring()


@every
def handle(rack, album):
    """The four panels move as one with the pointer."""
    before = rack.screen.box(rack.window)
    start = rack.point("Form1", "Picture3")
    rack.screen.drag(start, (start[0] + 40, start[1] + 24))
    wanted = (before[0] + 40, before[1] + 24) + before[2:]
    # Moves are rounded to whole twips, and the server may merge them.
    wait_for(lambda: all(abs(a - b) <= 2 for a, b in zip(rack.screen.box(rack.window), wanted)),
             "the rack 40 pixels to the right and 24 down")
    rack.wait_back()


@every
def version_box(rack, album):
    rack.screen.double_click(*rack.point("Form1", "Picture3"))
    rack.answer_box("the version box", lambda: album.take(rack.screen, "box"))
    rack.wait_back()


@every
def print_key(rack, album):
    """Without a printer there is a message, and the rack goes on."""
    rack.click("Form1", "Image9")
    rack.answer_box("the box that tells of the missing printer",
                    lambda: album.take(rack.screen, "box"))
    rack.wait_back()


@every
def second_start(rack, album):
    second = rack.launch()

    def look():
        assert second.poll() is None, "the second start ended before its box was answered"
        album.take(rack.screen, "box")

    rack.answer_box("the box that tells of the first start", look)
    wait_for(lambda: second.poll() is not None, "the end of the second start")
    assert second.returncode == 0, f"the second start ended with {second.returncode}"
    rack.wait_back()


@every
def power(rack, album):
    """Steps to the next memory, which the power key stores."""
    stored = list(rack.presets())
    rack.click("Form_B", "SSCommand1")
    wait_for(lambda: rack.memory() == stored[1], "the next memory")
    rack.click("Form1", "Image_Power")
    rack.wait_end()
    assert rack.line(PRESET) == str(stored[1]), f"preset {rack.line(PRESET)} was kept"


@case(languages=THREE)
def power_by_keyboard(rack, album):
    rack.click("Form1", "SSbAMmode")  # does nothing else
    rack.screen.type("Tab", "Tab", "Tab", "space")
    rack.wait_end()


@case(languages=THREE)
def closed_by_the_window_manager(rack, album):
    """Does what the power key does."""
    rack.screen.close_window(rack.window)
    rack.wait_end()
    assert rack.line(PRESET) == "1"



@case(factors=(1, 2), units=({"silent_after": "15"},))
def tells_of_a_unit_that_fell_silent(rack, album):
    """Each panel's head says so, and the figures are dimmed."""

    def brightest():
        return max(colour for at, colour in enumerate(rack.look("Form1", "Label_FieldIntensity"))
                   if at % 4 != 3)

    live = brightest()
    for panel in ("Form1", "Form_B", "Form_C", "Form_D"):
        wait_for(lambda: rack.is_signed(panel), f"a word in the head of {panel}")
    assert brightest() < live * 2 / 3, "not dimmed"
    album.take(rack.screen, "silent")


if __name__ == "__main__":
    main()
