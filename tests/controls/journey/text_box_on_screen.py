#!/usr/bin/env python3
"""Works text boxes with a real keyboard and mouse: typing, pasting, leaving, and the up/down image.

Usage: text_box_on_screen.py PROGRAM [SCALE FACTOR]
"""

from form import work

FIELD = (90, 22)
NAME = (90, 62)
AMOUNT = (90, 102)
WHOLE = (90, 142)
LOCKED = (270, 22)
DISABLED = (270, 62)
STEPPED = (215, 102)
STEPPED_UP = (341, 93)
STEPPED_MIDDLE = (341, 99)
STEPPED_DOWN = (341, 106)
BALANCE_UP = (341, 133)
BALANCE_DOWN = (341, 146)


def an_apostrophe_is_no_text(form):
    form.click(NAME)
    form.expect("name got focus |")
    form.key("O", "apostrophe", "N")
    form.expect("name text O", "name by text O| = 0")
    form.expect("name text ON", "name by text ON| = 0")


def typing_ends_at_the_maximum_length(form):
    form.key("e", "1", "l", "s", "BackSpace")
    form.expect("name text ONe", "name by text ONe| = 0")
    form.expect("name text ONe1", "name by text ONe1| = 0")
    form.expect("name text ONe1l", "name by text ONe1l| = 0")
    form.expect("name text ONe1", "name by text ONe1| = 0")


def what_dead_keys_compose_is_typed(form):
    form.key("dead_acute", "space", "dead_acute", "e", "dead_acute", "e", "dead_diaeresis", "o")
    form.expect("name text ONe1é", "name by text ONe1é| = 0")
    form.key("BackSpace")
    form.expect("name text ONe1", "name by text ONe1| = 0")


def the_focus_selects_all_and_the_second_click_places_the_caret(form):
    form.key("Tab")
    form.expect("name lost focus", "amount got focus |")
    form.click(NAME)
    # Left without a digit, a numeric box gets one.
    form.expect("amount text 0", "amount by text 0 = 0", "amount lost focus", "name got focus |[ONe1]")
    form.click(NAME)
    form.expect("name caret placed")
    form.key("Home", "A")
    form.expect("name text AONe1", "name by text A|ONe1 = 0")
    form.key("shift+Tab")
    form.expect("name lost focus")
    form.key("Tab")
    form.expect("name got focus |[AONe1]")
    form.key("Z")
    form.expect("name text Z", "name by text Z| = 0")


def pasted_text_keeps_its_apostrophes_and_the_maximum_length(form):
    form.click(FIELD)
    form.expect("name lost focus")
    form.key("ctrl+a", "ctrl+c")
    form.click(NAME)
    form.expect("name got focus |[Z]")
    form.key("ctrl+v")
    form.expect("name text O'Nei", "name by text O'Nei| = 0")


def what_the_menu_and_the_middle_button_paste_keeps_it_too(form):
    form.key("BackSpace")
    form.expect("name text O'Ne", "name by text O'Ne| = 0")
    form.click(NAME, button=3)
    form.expect("menu open")
    form.key("p")
    form.expect("menu closed", "name text O'NeO", "name by text O'NeO| = 0")
    form.key("ctrl+a", "BackSpace")
    form.expect("name text ", "name by text | = 0")
    form.click(FIELD)
    form.expect("name lost focus")
    form.key("ctrl+a")
    form.click(NAME, button=2)
    form.expect("name got focus |", "name text O'Nei", "name by text O'Nei| = 0")
    form.key("Tab")
    form.expect("name lost focus", "amount got focus |[0]")


def only_what_belongs_to_a_number_is_let_in(form):
    form.key("1", "x", "2", "space")
    form.expect("amount text 1", "amount by key 1| = 1")
    form.expect("amount text 12", "amount by key 12| = 12")
    form.key("plus", "apostrophe", "period")
    form.expect("amount text 12.", "amount by key 12.| = 12")
    form.key("period", "5", "6")
    form.expect("amount text 12.5", "amount by key 12.5| = 12.5")
    form.expect("amount text 12.56", "amount by key 12.56| = 12.56")


def a_third_decimal_is_cut_off(form):
    form.key("9")
    form.expect("amount by key 12.56| = 12.56")
    form.key("BackSpace")
    form.expect("amount text 12.5", "amount by key 12.5| = 12.5")


def a_sign_goes_to_the_front_and_there_is_one(form):
    form.key("minus")
    form.expect("amount text -12.5", "amount by key -12.5| = -12.5")
    form.key("minus", "Home", "minus", "ctrl+a", "BackSpace")
    form.expect("amount text ", "amount by key | = 0")


def a_thousands_separator_passes(form):
    form.key("1", "comma", "0", "0", "0")
    form.expect("amount text 1", "amount by key 1| = 1")
    form.expect("amount text 1,", "amount by key 1,| = 1")
    form.expect("amount text 1,0", "amount by key 1,0| = 10")
    form.expect("amount text 1,00", "amount by key 1,00| = 100")
    form.expect("amount text 1,000", "amount by key 1,000| = 1000")


def keys_that_edit_change_it_as_text(form):
    form.key("Home", "Delete")
    form.expect("amount text ,000", "amount by text |,000 = 0")


def a_box_left_without_a_number_gets_one(form):
    form.key("ctrl+a", "minus")
    form.expect("amount text -", "amount by key -| = 0")
    form.key("Tab")
    form.expect("amount text 0", "amount by text 0 = 0", "amount lost focus", "whole got focus |")
    form.key("shift+Tab")
    form.expect("whole text 0", "whole by text 0 = 0", "whole lost focus", "amount got focus |[0]")


def a_number_that_is_left_stays_as_it_is(form):
    form.key("7", "period")
    form.expect("amount text 7", "amount by key 7| = 7")
    form.expect("amount text 7.", "amount by key 7.| = 7")
    form.key("0")
    form.expect("amount text 7.0", "amount by key 7.0| = 7")
    form.key("Tab")
    form.expect("amount lost focus", "whole got focus |[0]")


def without_decimals_and_signs_there_are_digits_alone(form):
    form.key("4", "period", "minus", "2")
    form.expect("whole text 4", "whole by key 4| = 4")
    form.expect("whole text 42", "whole by key 42| = 42")


def of_a_pasted_text_the_number_stays(form):
    form.click(FIELD)
    form.expect("whole lost focus")
    form.key("ctrl+a", "8", "period", "7", "5", "5", "k", "g", "ctrl+a", "ctrl+c")
    form.click(WHOLE)
    form.expect("whole got focus |[42]")
    form.key("ctrl+v")
    form.expect("whole text 8", "whole by text 8| = 8")
    form.click(AMOUNT)
    form.expect("whole lost focus", "amount got focus |[7.0]")
    form.key("ctrl+v")
    form.expect("amount text 8.75", "amount by text 8.75| = 8.75")


def a_menu_is_no_leaving(form):
    form.key("ctrl+a", "minus")
    form.expect("amount text -", "amount by key -| = 0")
    form.click(AMOUNT, button=3)
    form.expect("menu open")
    form.key("Escape")
    form.expect("menu closed")
    form.key("3")
    form.expect("amount text -3", "amount by key -3| = -3")


def locked_text_can_only_be_read(form):
    form.click(LOCKED)
    form.expect("amount lost focus", "locked got focus |[fixed]")
    form.key("x", "Delete", "BackSpace", "ctrl+v", "ctrl+c")
    form.click(NAME)
    form.expect("locked lost focus", "name got focus |[O'Nei]")
    form.key("ctrl+v")
    form.expect("name text fixed", "name by text fixed| = 0")


def a_disabled_box_takes_neither_clicks_nor_keys(form):
    form.click(DISABLED)
    form.key("BackSpace")
    form.expect("name text fixe", "name by text fixe| = 0")
    form.click(LOCKED)
    form.expect("name lost focus", "locked got focus |[fixed]")
    form.key("Tab")
    form.expect("locked lost focus", "stepped got focus |[1]")


def a_press_on_the_image_is_one_step(form):
    form.press(STEPPED_UP)
    form.expect("stepped text 1.5", "stepped by text |[1.5] = 1.5")
    form.release(STEPPED_UP)
    form.press(STEPPED_MIDDLE)
    form.expect("stepped text 2", "stepped by text |[2] = 2")
    form.release(STEPPED_MIDDLE)
    form.press(STEPPED_DOWN, button=3)
    form.release(STEPPED_DOWN, button=3)
    form.press(STEPPED_DOWN)
    form.expect("stepped text 1.5", "stepped by text |[1.5] = 1.5")
    form.release(STEPPED_DOWN)
    form.screen.double_click()
    form.expect("stepped text 1", "stepped by text |[1] = 1", "stepped text 0.5", "stepped by text |[0.5] = 0.5")


def at_its_floor_a_box_falls_quiet_until_it_steps_again(form):
    form.click(STEPPED_DOWN)
    form.expect("stepped text 0", "stepped by text |[0] = 0")
    form.click(STEPPED_DOWN)
    form.key("End", "x", "5", "4")
    form.expect("stepped text 05", "stepped text 054")
    form.click(STEPPED_UP)
    form.expect("stepped text 54.5", "stepped by text |[54.5] = 54.5")
    form.key("1")
    form.expect("stepped text 1", "stepped by key 1| = 1")


def above_zero_a_signed_number_gets_a_plus(form):
    form.click(BALANCE_UP)
    form.expect("balance text +1", "balance by text +1 = 1")
    form.click(BALANCE_DOWN)
    form.expect("balance text -1", "balance by text -1 = -1")
    form.click(BALANCE_DOWN)
    form.expect("balance text -3", "balance by text -3 = -3")


if __name__ == "__main__":
    work(an_apostrophe_is_no_text,
         typing_ends_at_the_maximum_length,
         what_dead_keys_compose_is_typed,
         the_focus_selects_all_and_the_second_click_places_the_caret,
         pasted_text_keeps_its_apostrophes_and_the_maximum_length,
         what_the_menu_and_the_middle_button_paste_keeps_it_too,
         only_what_belongs_to_a_number_is_let_in,
         a_third_decimal_is_cut_off,
         a_sign_goes_to_the_front_and_there_is_one,
         a_thousands_separator_passes,
         keys_that_edit_change_it_as_text,
         a_box_left_without_a_number_gets_one,
         a_number_that_is_left_stays_as_it_is,
         without_decimals_and_signs_there_are_digits_alone,
         of_a_pasted_text_the_number_stays,
         a_menu_is_no_leaving,
         locked_text_can_only_be_read,
         a_disabled_box_takes_neither_clicks_nor_keys,
         a_press_on_the_image_is_one_step,
         at_its_floor_a_box_falls_quiet_until_it_steps_again,
         above_zero_a_signed_number_gets_a_plus)
