#!/usr/bin/env python3
"""Works buttons with a real mouse on a real screen: hovering, pressing, dragging off, dialogs, other programs.

Usage: button_on_screen.py PROGRAM [SCALE FACTOR]
"""

from form import READY, Form, program_and_scale
from on_screen import Screen

FIRST = (92, 52)
SECOND = (197, 52)
OPENER = (92, 112)
GROUND = (350, 180)
CLOSE = (92, 52)


def hovering(screen, form):
    form.move(FIRST)
    form.expect("first state 1")
    form.move(GROUND)
    form.expect("first state 0")
    form.move(FIRST)
    form.expect("first state 1")
    screen.move_to_desktop(5, 790)
    form.expect("first state 0")


def dragging_off_and_back_is_a_click(screen, form):
    form.move(FIRST)
    form.expect("first state 1")
    screen.press()
    form.expect("first state 2")
    form.move(GROUND)
    form.expect("first state 1")
    form.move(FIRST)
    form.expect("first state 2")
    screen.release()
    form.expect("first state 1", "first clicked")
    form.move(GROUND)
    form.expect("first state 0")


def dragging_off_and_releasing_is_none(screen, form):
    for leave in (lambda: form.move(GROUND), lambda: screen.move_to_desktop(5, 790)):
        press_and_drag_off(screen, form, leave)
        screen.release()
        form.expect("first state 0")
        form.move(GROUND)
    press_and_drag_off(screen, form, lambda: form.move(SECOND))
    screen.release()
    form.expect("first state 0", "second state 1")
    form.move(GROUND)
    form.expect("second state 0")


def press_and_drag_off(screen, form, leave):
    form.move(FIRST)
    form.expect("first state 1")
    screen.press()
    form.expect("first state 2")
    leave()
    form.expect("first state 1")


def a_double_click_is_one_click(screen, form):
    form.move(FIRST)
    form.expect("first state 1")
    screen.double_click()
    form.expect("first state 2", "first state 1", "first clicked", "first state 2", "first state 1")
    form.move(GROUND)
    form.expect("first state 0")


def from_one_button_to_the_next(screen, form):
    form.move(FIRST)
    form.expect("first state 1")
    form.move(SECOND)
    form.expect("first state 0", "second state 1")
    screen.press()
    form.expect("second state 2")
    screen.release()
    form.expect("second state 1", "second clicked")
    form.move(FIRST)
    form.expect("second state 0", "first state 1")
    form.move(GROUND)
    form.expect("first state 0")


def a_dialog_gets_the_mouse(screen, form):
    form.move(OPENER)
    form.expect("opener state 1")
    screen.press()
    form.expect("opener state 2")
    screen.release()
    form.expect("opener state 1", "opener clicked", "opener state 0")
    dialog = form.ready()
    form.move(CLOSE, dialog)
    form.expect("close state 1")
    screen.press()
    form.expect("close state 2")
    screen.release()
    form.expect("close state 1", "close clicked", "close state 0", "dialog closed")
    # The focus comes back to the button that opened the dialog.
    form.expect("opener state 1")


def enter_presses_the_focused_button(screen, form):
    form.move(GROUND)
    screen.key("Return")
    form.expect("opener clicked")
    _, ready = form.program.expect_together("opener state 0", READY)
    form.move(CLOSE, ready.group(1))
    form.expect("close state 1")
    screen.press()
    screen.release()
    form.expect("close state 2", "close state 1", "close clicked", "close state 0", "dialog closed",
                "opener state 1")


def a_busy_program_keeps_no_mouse_from_others(screen, form, other):
    # The other program's form came to the front, and with it the focus.
    form.expect("opener state 0")
    form.move(FIRST)
    form.expect("first state 1")
    form.program.pause()
    other.move(SECOND)
    other.expect("second state 1")
    screen.press()
    other.expect("second state 2")
    screen.release()
    other.expect("second state 1", "second clicked")
    form.program.go_on()
    form.expect("first state 0")


def main():
    program, scale = program_and_scale()
    with Screen() as screen:
        form = Form(screen, program, scale, 20, 40)
        hovering(screen, form)
        dragging_off_and_back_is_a_click(screen, form)
        dragging_off_and_releasing_is_none(screen, form)
        a_double_click_is_one_click(screen, form)
        from_one_button_to_the_next(screen, form)
        a_dialog_gets_the_mouse(screen, form)
        enter_presses_the_focused_button(screen, form)
        other = Form(screen, program, scale, 20, 300)
        a_busy_program_keeps_no_mouse_from_others(screen, form, other)
    print("All buttons did as they should.")


if __name__ == "__main__":
    main()
