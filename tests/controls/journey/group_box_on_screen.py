#!/usr/bin/env python3
"""Works controls in a group box with a real keyboard and mouse, while the box is enabled, while it is not, and
while only its contents are not.

Usage: group_box_on_screen.py PROGRAM [SCALE FACTOR]
"""

from form import work

ENABLED = (20, 22)
CONTENTS = (150, 22)
TEXT = (100, 82)
BUTTON = (72, 122)
OPEN_DATE = (115, 159)
GRID_CELL = (250, 96)
DEEP_TEXT = (280, 192)


def all_that_it_contains_can_be_worked(form):
    form.click(TEXT)
    form.expect("focus box.text.TextBox |")
    form.key("a")
    form.expect("text a")
    form.click(BUTTON)
    form.expect("focus box.button", "button")
    form.click(OPEN_DATE)
    form.expect("focus box.date.cmdOpen", "calendar open")
    form.click(OPEN_DATE)
    form.expect("calendar closed")
    form.click(GRID_CELL)
    form.expect("focus box.grid", "grid")
    form.click(DEEP_TEXT)
    form.expect("focus box.inner.deep.TextBox |")
    form.key("b")
    form.expect("deep b")
    form.key("ctrl+a", "Delete")
    form.expect("deep ")
    form.click(TEXT)
    form.expect("focus box.text.TextBox |[a]")
    form.key("Delete")
    form.expect("text ")


def nothing_else_in_it_can_be_worked(form):
    for place in (TEXT, OPEN_DATE, GRID_CELL, DEEP_TEXT):
        form.click(place)
        form.key("x", "Return")


def a_disabled_box_disables_all_that_it_contains(form):
    form.click(ENABLED)
    form.expect("focus enabled", "box off")
    form.click(BUTTON)
    nothing_else_in_it_can_be_worked(form)
    form.click(ENABLED)
    form.expect("box on")
    all_that_it_contains_can_be_worked(form)


def the_contents_can_be_disabled_alone(form):
    form.click(CONTENTS)
    form.expect("focus contents", "contents off")
    # A button that isn't enabled hands the focus on.
    form.click(BUTTON)
    form.expect("focus box.button", "focus enabled")
    nothing_else_in_it_can_be_worked(form)
    form.click(CONTENTS)
    form.expect("focus contents", "contents on")
    all_that_it_contains_can_be_worked(form)


if __name__ == "__main__":
    work(all_that_it_contains_can_be_worked,
         a_disabled_box_disables_all_that_it_contains,
         the_contents_can_be_disabled_alone)
