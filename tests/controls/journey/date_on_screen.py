#!/usr/bin/env python3
"""Works date controls with a real keyboard and mouse: their boxes, "<None>", and the calendar.

Usage: date_on_screen.py PROGRAM [SCALE FACTOR]
"""

from form import work

BEFORE = (60, 22)
AFTER = (260, 272)

# Places on a date control, in pixels from its top left.
FIRST = (13, 9)
SECOND = (40, 9)
THIRD = (71, 9)
OPEN = (95, 9)
LEFT_YEAR = (10, 30)
LEFT_MONTH = (24, 30)
RIGHT_MONTH = (141, 30)
RIGHT_YEAR = (156, 30)
DAY_NAMES = (80, 45)
LEFT_MARGIN = (0, 92)
RIGHT_MARGIN = (166, 92)
BELOW_THE_GRID = (80, 130)
NONE_ROW = (80, 137)


def start(place):
    return place[0] + 10, place[1] + 50


def disabled(place):
    return place[0] + 10, place[1] + 260


def end(place):
    return place[0] + 210, place[1] + 50


def cell(column, row):
    return ((column - 1) * 350 + 200) / 15, ((row - 1) * 190 + 895) / 15


def a_click_selects_the_whole_box(form):
    form.click(start(SECOND))
    form.expect("focus start.txtDate2 [03]|")
    form.click(start(FIRST))
    form.expect("focus start.txtDate1 [14]|")


def digits_fill_the_boxes_which_move_on_by_themselves(form):
    form.key(*"15092009")
    form.expect("start 1/03/2009", "start 15/03/2009", "focus start.txtDate2 [03]|")
    form.expect("start 15/0/2009", "start 15/09/2009", "focus start.txtDate3 [2009]|")
    form.expect("start 15/09/2", "start 15/09/20", "start 15/09/200", "start 15/09/2009",
                "focus start.txtDate1 [15]|")


def digits_go_to_the_end_wherever_the_caret_stands(form):
    form.key("1", "Home", "6")
    form.expect("start 1/09/2009", "start 16/09/2009", "focus start.txtDate2 [09]|")


def a_click_into_the_box_with_the_focus_selects_it_again(form):
    form.key("Left", "2", "8", "Left")
    form.expect("focus start.txtDate1 [16]|", "start 2/09/2009", "start 28/09/2009", "focus start.txtDate2 [09]|",
                "focus start.txtDate1 [28]|")
    form.key("End")
    form.click(start(FIRST))
    form.key("0", "9", "Left", "End", "7", "1")
    form.expect("start 0/09/2009", "start 09/09/2009", "focus start.txtDate2 [09]|", "focus start.txtDate1 [09]|")
    # Without a selection a digit is added, and the box doesn't pass on what is too much for it.
    form.expect("start 097/09/2009", "start 0971/09/2009")
    form.click(start(FIRST))
    form.key("1", "6")
    form.expect("start 1/09/2009", "start 16/09/2009", "focus start.txtDate2 [09]|")


def arrows_go_round_within_the_control(form):
    form.key("Right", "Right", "Right")
    form.expect("focus start.txtDate3 [2009]|", "focus start.txtDate1 [16]|", "focus start.txtDate2 [09]|")
    form.key("Left", "Left", "Left")
    form.expect("focus start.txtDate1 [16]|", "focus start.txtDate3 [2009]|", "focus start.txtDate2 [09]|")


def separators_go_to_the_next_box(form):
    form.key("slash", "backslash", "minus")
    form.expect("focus start.txtDate3 [2009]|", "focus start.txtDate1 [16]|", "focus start.txtDate2 [09]|")


def other_keys_do_nothing(form):
    form.key("x", "period", "space", "Up", "Down", "Right")
    form.expect("focus start.txtDate3 [2009]|")


def backspace_types_a_point(form):
    form.key("Right", "BackSpace", "Right")
    form.expect("focus start.txtDate1 [16]|", "start ./09/2009", "start 1/09/2009", "focus start.txtDate2 [09]|")
    form.key("Left", "2", "BackSpace", "Right")
    form.expect("focus start.txtDate1 [1]|", "start 2/09/2009", "start 2./09/2009", "focus start.txtDate2 [09]|")


def a_day_that_is_none_is_put_right_on_leaving(form):
    form.key("Left", "4", "5")
    form.expect("focus start.txtDate1 [2.]|", "start 4/09/2009", "start 45/09/2009", "start 31/09/2009",
                "focus start.txtDate2 [09]|")
    form.key("Left", "0", "0")
    form.expect("focus start.txtDate1 [31]|", "start 0/09/2009", "start 00/09/2009", "start 1/09/2009",
                "focus start.txtDate2 [09]|")


def a_month_may_be_0_but_not_13(form):
    form.key("1", "3")
    form.expect("start 1/1/2009", "start 1/13/2009", "start 1/12/2009", "focus start.txtDate3 [2009]|")
    form.key("Left", "0", "0")
    form.expect("focus start.txtDate2 [12]|", "start 1/0/2009", "start 1/00/2009", "focus start.txtDate3 [2009]|")


def a_short_year_is_completed_on_leaving(form):
    for keys, partial, year in (("9", ["9"], "2009"), ("49", ["4", "49"], "2049"), ("50", ["5", "50"], "1950"),
                                ("199", ["1", "19", "199"], "1990")):
        form.key(*keys, "slash", "Left")
        form.expect(*[f"start 1/00/{text}" for text in partial], f"start 1/00/{year}",
                    "focus start.txtDate1 [1]|", f"focus start.txtDate3 [{year}]|")
    form.key("Delete", "slash", "Left")
    form.expect("start 1/00/", "start 1/00/2000", "focus start.txtDate1 [1]|", "focus start.txtDate3 [2000]|")


def the_stored_date_follows_when_the_control_is_left(form):
    form.key("Tab")
    form.expect("focus start.cmdOpen")
    form.key("Tab")
    # Month 0 is the December before. The disabled control in between is passed over.
    form.expect("start 01/12/1999", "start value 1999-12-01", "focus end.txtDate1 [03]|")
    form.key("shift+Tab", "shift+Tab")
    form.expect("focus start.cmdOpen", "focus start.txtDate3 [1999]|")
    form.key("Right", *"31022009")
    form.expect("focus start.txtDate1 [01]|", "start 3/12/1999", "start 31/12/1999", "focus start.txtDate2 [12]|",
                "start 31/0/1999", "start 31/02/1999", "focus start.txtDate3 [1999]|",
                "start 31/02/2", "start 31/02/20", "start 31/02/200", "start 31/02/2009",
                "focus start.txtDate1 [31]|")
    form.click(BEFORE)
    form.expect("start 28/02/2009", "start value 2009-02-28", "focus before |")


def in_another_order_the_rules_follow_the_part(form):
    form.click(end(FIRST))
    form.expect("focus end.txtDate1 [03]|")
    form.key(*"1345")
    form.expect("end 1/14/2009", "end 13/14/2009", "end 12/14/2009", "focus end.txtDate2 [14]|",
                "end 12/4/2009", "end 12/45/2009", "end 12/31/2009", "focus end.txtDate3 [2009]|")
    form.click(AFTER)
    form.expect("end value 2009-12-31", "focus after |")


def the_button_opens_and_closes(form):
    form.click(start(OPEN))
    form.expect("focus start.cmdOpen", "start calendar February 2009")
    form.click(start(OPEN))
    form.expect("start calendar closed")
    form.key("space")
    form.expect("start calendar February 2009")
    form.key("Return")
    form.expect("start calendar closed")


def months_and_years_are_stepped_through(form):
    form.key("space")
    form.expect("start calendar February 2009")
    form.click(start(LEFT_MONTH))
    form.expect("focus start.cmdLeftMonth", "start calendar January 2009")
    form.click(start(LEFT_MONTH))
    form.expect("start calendar December 2008")
    form.click(start(RIGHT_MONTH))
    form.expect("focus start.cmdRightMonth", "start calendar January 2009")
    form.click(start(RIGHT_YEAR))
    form.expect("focus start.cmdRightYear", "start calendar January 2010")
    form.click(start(LEFT_YEAR))
    form.expect("focus start.cmdLeftYear", "start calendar January 2009")
    # By the keyboard as well.
    form.key("space", "Return")
    form.expect("start calendar January 2008", "start calendar January 2007")


def closing_keeps_the_boxes_and_the_month_on_show(form):
    form.click(start(OPEN))
    form.expect("focus start.cmdOpen", "start calendar closed")
    form.click(start(OPEN))
    form.expect("start calendar January 2007")
    for _ in range(2):
        form.click(start(RIGHT_YEAR))
    form.expect("focus start.cmdRightYear", "start calendar January 2008", "start calendar January 2009")
    for _ in range(2):
        form.click(start(RIGHT_MONTH))
    form.expect("focus start.cmdRightMonth", "start calendar February 2009", "start calendar March 2009")


def a_press_on_no_day_keeps_it_open(form):
    # March 2009 begins on a Sunday and leaves the first row empty.
    for place in (cell(1, 1), cell(4, 6), DAY_NAMES, RIGHT_MARGIN):
        form.click(start(place))
    form.press(start(cell(1, 2)))
    form.expect("start 01/03/2009", "focus start.cmdOpen", "start calendar closed")
    form.release(start(cell(1, 2)))


def a_picked_day_is_stored_when_the_control_is_left(form):
    form.click(start(OPEN))
    form.expect("start calendar March 2009")
    form.click(start(cell(3, 6)), button=3)
    form.expect("start 31/03/2009", "start calendar closed")
    form.key("Tab")
    form.expect("start value 2009-03-31", "focus end.txtDate1 [12]|")


def the_left_margin_is_a_day_0(form):
    form.click(start(OPEN))
    form.expect("focus start.cmdOpen", "start calendar March 2009")
    form.click(start(LEFT_MARGIN))
    form.expect("start 00/03/2009", "start calendar closed")
    form.click(AFTER)
    # The day before the first of January, and two months on.
    form.expect("start 28/02/2009", "start value 2009-02-28", "focus after |")


def below_the_grid_a_click_only_closes(form):
    form.click(start(OPEN))
    form.expect("focus start.cmdOpen", "start calendar February 2009")
    form.click(start(BELOW_THE_GRID))
    form.expect("start calendar closed")


def leaving_the_control_closes_it(form):
    form.click(start(OPEN))
    form.expect("start calendar February 2009")
    form.click(BEFORE)
    form.expect("start calendar closed", "focus before |")


def none_is_picked_and_any_key_brings_the_date_back(form):
    form.click(end(OPEN))
    form.expect("focus end.cmdOpen", "end calendar December 2009")
    form.click(end(NONE_ROW))
    form.expect("end <None>", "end value none", "end calendar closed")
    form.key("shift+Tab", "x")
    form.expect("focus end.txtNone [<None>]|")
    form.expect("end 12/31/2009", "end value 2009-12-31", "focus end.txtDate1 [12]|")
    form.click(end(OPEN))
    form.expect("focus end.cmdOpen", "end calendar December 2009")
    form.click(end(NONE_ROW))
    form.expect("end <None>", "end value none", "end calendar closed")
    form.click(end(SECOND))
    form.expect("focus end.txtNone [<None>]|")
    form.key("7")
    form.expect("end 12/31/2009", "end value 2009-12-31", "focus end.txtDate1 [12]|", "end 7/31/2009")
    form.click(BEFORE)
    form.expect("end 07/31/2009", "end value 2009-07-31", "focus before |")


def a_day_replaces_none(form):
    form.click(end(OPEN))
    form.expect("focus end.cmdOpen", "end calendar July 2009")
    form.click(end(NONE_ROW))
    form.expect("end <None>", "end value none", "end calendar closed")
    form.click(end(OPEN))
    form.expect("end calendar July 2009")
    # 1 July 2009 is a Wednesday.
    form.click(end(cell(4, 1)))
    form.expect("end calendar closed", "end 07/01/2009", "end value 2009-07-31")
    form.click(AFTER)
    form.expect("end value 2009-07-01", "focus after |")


def a_disabled_control_takes_no_clicks(form):
    for place in (FIRST, SECOND, THIRD, OPEN):
        form.click(disabled(place))
    form.key("shift+Tab")
    form.expect("focus end.cmdOpen")


if __name__ == "__main__":
    work(a_click_selects_the_whole_box,
         digits_fill_the_boxes_which_move_on_by_themselves,
         digits_go_to_the_end_wherever_the_caret_stands,
         a_click_into_the_box_with_the_focus_selects_it_again,
         arrows_go_round_within_the_control,
         separators_go_to_the_next_box,
         other_keys_do_nothing,
         backspace_types_a_point,
         a_day_that_is_none_is_put_right_on_leaving,
         a_month_may_be_0_but_not_13,
         a_short_year_is_completed_on_leaving,
         the_stored_date_follows_when_the_control_is_left,
         in_another_order_the_rules_follow_the_part,
         the_button_opens_and_closes,
         months_and_years_are_stepped_through,
         closing_keeps_the_boxes_and_the_month_on_show,
         a_press_on_no_day_keeps_it_open,
         a_picked_day_is_stored_when_the_control_is_left,
         the_left_margin_is_a_day_0,
         below_the_grid_a_click_only_closes,
         leaving_the_control_closes_it,
         none_is_picked_and_any_key_brings_the_date_back,
         a_day_replaces_none,
         a_disabled_control_takes_no_clicks)
