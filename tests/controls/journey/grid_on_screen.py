#!/usr/bin/env python3
"""Works lists with a real keyboard and mouse: moving through them, clicking, scrolling, resting on a cell.

Usage: grid_on_screen.py PROGRAM [SCALE FACTOR]
"""

from form import work

FIELD = (60, 17)

# Places on a list, in pixels from its top left.
FIRST_HEADING = (60, 9)
SECOND_HEADING = (160, 9)
SELECTOR_STRIP = (5, 40)
BESIDE_THE_COLUMNS = (240, 40)
BELOW_THE_ROWS = (60, 95)
SCROLL_UP = (287, 8)
SCROLL_DOWN = (287, 85)
THUMB_AT_THE_TOP = (287, 30)
THUMB_AT_THE_END = (287, 90)
TROUGH_BELOW = (287, 70)


def cell(row, column):
    return (60, 160)[column - 1], 18 + (row - 1) * 15 + 8


def in_list(place):
    return place[0] + 10, place[1] + 40


def in_empty(place):
    return place[0] + 10, place[1] + 160


def in_disabled(place):
    return place[0] + 10, place[1] + 240


def up_without_a_row_finds_the_first(form):
    form.click(FIELD)
    form.key("Tab")
    form.expect("focus list")
    form.key("Up")
    form.expect("list from 0,1 to 1,1")


def sideways_keys_end_at_the_outer_columns(form):
    form.key("Right", "Right", "Left", "Left")
    form.expect("list from 1,1 to 1,2", "list from 1,2 to 1,2", "list from 1,2 to 1,1", "list from 1,1 to 1,1")


def down_scrolls_from_the_last_row_on_view(form):
    form.key("Down", "Down", "Down", "Down")
    form.expect("list from 1,1 to 2,1", "list from 2,1 to 3,1", "list from 3,1 to 4,1", "list from 4,1 to 5,1")
    for top in range(2, 6):
        form.key("Down")
        form.expect("list from 5,1 to 4,1", f"list top {top}", "list from 4,1 to 5,1")
    form.key("Down")
    form.expect("list from 5,1 to 5,1")


def up_scrolls_from_the_first(form):
    form.key("Up", "Up", "Up", "Up")
    form.expect("list from 5,1 to 4,1", "list from 4,1 to 3,1", "list from 3,1 to 2,1", "list from 2,1 to 1,1")
    for top in range(4, 0, -1):
        form.key("Up")
        form.expect("list from 1,1 to 2,1", f"list top {top}", "list from 2,1 to 1,1")
    form.key("Up")
    form.expect("list from 1,1 to 1,1")


def two_characters_beep_and_other_keys_do_nothing(form):
    form.key("Home", "End", "Prior", "Next", "a", "space", "Return", "ampersand", "parenleft")
    form.expect("beep", "beep", "beep")
    form.key("Right")
    form.expect("list from 1,1 to 1,2")


def a_click_selects_and_is_told(form):
    form.click(in_list(cell(2, 1)))
    form.expect("list from 1,2 to 2,1", "list click t2")
    # A click elsewhere in between, as two at one place could come so fast that they are a double click.
    form.click(in_list(SELECTOR_STRIP))
    form.click(in_list(cell(2, 1)))
    form.expect("list click t2")
    form.click(in_list(cell(5, 1)))
    form.expect("list from 2,1 to 5,1", "list click t5")


def a_click_on_a_link_is_told_as_such(form):
    form.click(in_list(cell(3, 2)))
    form.expect("list from 5,1 to 3,2", "list link 2 p3")


def a_double_click_comes_after_its_first_click(form):
    form.move(in_list(cell(4, 1)))
    form.screen.double_click()
    form.expect("list from 3,2 to 4,1", "list click t4", "list double click t4")


def a_click_on_a_heading_moves_nothing(form):
    form.click(in_list(FIRST_HEADING))
    form.expect("list heading 0")
    form.click(in_list(SECOND_HEADING))
    form.expect("list heading 1")


def elsewhere_a_click_does_nothing(form):
    for place in (SELECTOR_STRIP, BESIDE_THE_COLUMNS, BELOW_THE_ROWS):
        form.click(in_list(place))
    for button in (2, 3):
        form.click(in_list(cell(1, 1)), button)
    form.press(in_list(cell(1, 1)))
    form.release(in_list(cell(2, 1)))
    form.press(in_list(FIRST_HEADING))
    form.release(in_list(SECOND_HEADING))
    form.click(in_list(cell(4, 1)))
    form.expect("list click t4")


def scrolling_down_drags_the_selection_along(form):
    form.click(in_list(cell(2, 1)))
    form.expect("list from 4,1 to 2,1", "list click t2")
    for row, top in ((2, 2), (1, 3), (1, 4)):
        form.click(in_list(SCROLL_DOWN))
        form.expect(f"list from {row},1 to 1,1", f"list top {top}")
    form.click(in_list(cell(1, 1)))
    form.expect("list click t4")


def scrolling_up_leaves_it_where_it_is(form):
    form.click(in_list(cell(5, 1)))
    form.expect("list from 1,1 to 5,1", "list click t8")
    form.click(in_list(SCROLL_UP))
    form.expect("list from 5,1 to 6,1", "list top 3")
    form.click(in_list(SCROLL_DOWN))
    form.expect("list from 6,1 to 5,1", "list top 4")


def the_wheel_scrolls_three_rows(form):
    form.move(in_list(cell(2, 1)))
    form.screen.click(4)
    form.expect("list from 5,1 to 8,1", "list top 1")
    form.screen.click(5)
    form.expect("list from 8,1 to 5,1", "list top 4")
    form.screen.click(4)
    form.expect("list from 5,1 to 8,1", "list top 1")


def a_click_beside_the_thumb_scrolls_a_page_less_a_row(form):
    form.click(in_list(TROUGH_BELOW))
    form.expect("list from 8,1 to 4,1", "list top 5")
    form.move(in_list(cell(2, 1)))
    form.screen.click(4)
    form.screen.click(4)
    form.expect("list from 4,1 to 7,1", "list top 2", "list from 7,1 to 8,1", "list top 1")


def a_dragged_thumb_scrolls_when_it_is_let_go(form):
    form.press(in_list(THUMB_AT_THE_TOP))
    form.move(in_list(THUMB_AT_THE_END))
    form.expect("list thumb at 9")
    form.key("Right")
    form.expect("list from 8,1 to 8,2")
    form.release(in_list(THUMB_AT_THE_END))
    form.expect("list from 8,2 to 4,2", "list top 5")


def a_long_text_can_be_read_where_the_mouse_rests(form):
    form.move(in_list(cell(5, 1)))
    form.expect("long tool tip t9 with a name that is long")
    form.move(FIELD)
    form.expect("long tool tip none")


def an_empty_list_has_no_row_to_go_to(form):
    form.key("Tab")
    form.expect("focus empty")
    form.key("Down", "Up")
    form.expect("empty from 0,1 to 0,1", "empty from 0,1 to 0,1")
    form.click(in_empty(cell(1, 1)))
    form.click(in_empty(FIRST_HEADING))
    form.expect("empty heading 0")


def a_disabled_list_takes_neither_clicks_nor_the_focus(form):
    form.click(in_disabled(cell(1, 1)))
    form.click(in_disabled(FIRST_HEADING))
    form.key("Tab")
    form.expect("focus field |")


if __name__ == "__main__":
    work(up_without_a_row_finds_the_first,
         sideways_keys_end_at_the_outer_columns,
         down_scrolls_from_the_last_row_on_view,
         up_scrolls_from_the_first,
         two_characters_beep_and_other_keys_do_nothing,
         a_click_selects_and_is_told,
         a_click_on_a_link_is_told_as_such,
         a_double_click_comes_after_its_first_click,
         a_click_on_a_heading_moves_nothing,
         elsewhere_a_click_does_nothing,
         scrolling_down_drags_the_selection_along,
         scrolling_up_leaves_it_where_it_is,
         the_wheel_scrolls_three_rows,
         a_click_beside_the_thumb_scrolls_a_page_less_a_row,
         a_dragged_thumb_scrolls_when_it_is_let_go,
         a_long_text_can_be_read_where_the_mouse_rests,
         an_empty_list_has_no_row_to_go_to,
         a_disabled_list_takes_neither_clicks_nor_the_focus)
