#!/usr/bin/env python3
"""Works a page heading with a real mouse: its tabs, to the edge, and its close image.

Usage: heading_on_screen.py PROGRAM [SCALE FACTOR]
"""

from form import work

FIRST = (56, 61)
SECOND = (162, 61)
DISABLED = (268, 61)
BETWEEN = (109, 61)
TITLE = (200, 25)
CLOSE = (385, 14)
GROUND = (250, 110)


def a_click_on_a_tab_selects_it_again_and_again(form):
    form.click(SECOND)
    form.expect("tab 1 Second")
    form.click(SECOND)
    form.expect("tab 1 Second")
    form.click(FIRST)
    form.expect("tab 0 First")


def any_button_clicks(form):
    form.click(SECOND, button=3)
    form.expect("tab 1 Second")
    form.click(FIRST, button=2)
    form.expect("tab 0 First")


def beside_the_enabled_tabs_a_click_does_nothing(form):
    for place in (DISABLED, BETWEEN, TITLE, (5, 61), (107, 61), (111, 61), (213, 61), (56, 49)):
        form.click(place)
    form.click(SECOND)
    form.expect("tab 1 Second")


def the_edges_belong_to_the_tab(form):
    for place in ((6, 61), (106, 61), (56, 50), (56, 72)):
        form.click(place)
        form.expect("tab 0 First")


def the_place_of_the_release_counts(form):
    form.press(TITLE)
    form.release(SECOND)
    form.expect("tab 1 Second")
    form.press(SECOND)
    form.release(FIRST)
    form.expect("tab 0 First")
    for place in (BETWEEN, GROUND):
        form.press(SECOND)
        form.release(place)
    form.press(GROUND)
    form.release(SECOND)
    form.click(FIRST)
    form.expect("tab 0 First")


def the_close_image_closes_if_pressed_and_let_go_there(form):
    form.press(CLOSE)
    form.release(CLOSE)
    form.expect("close")
    form.press(CLOSE)
    form.release(TITLE)
    form.press(TITLE)
    form.release(CLOSE)
    form.click(FIRST)
    form.expect("tab 0 First")


if __name__ == "__main__":
    work(a_click_on_a_tab_selects_it_again_and_again,
         any_button_clicks,
         beside_the_enabled_tabs_a_click_does_nothing,
         the_edges_belong_to_the_tab,
         the_place_of_the_release_counts,
         the_close_image_closes_if_pressed_and_let_go_there)
