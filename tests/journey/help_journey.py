"""What the wizard asks other programs for: help, the tutorial in the browser, and what happens where one of them is
missing."""

import os
import shutil
import struct

from desktop import wait_for
from journey import Journey, main

# What is asked for on each page, in their order: a topic, or None for the contents.
TOPICS = [None, 1, 6, 3, 4, 5, None]

def hand():
    """A cursor file of 16 by 16 black pixels with its hot spot at (5, 1)."""
    side, header = 16, 40
    pixels = bytes([0, 0, 0, 255]) * side * side
    mask = bytes(4 * side)
    directory = struct.pack("<HHHBBBBHHII", 0, 2, 1, side, side, 0, 0, 5, 1, header + len(pixels) + len(mask), 22)
    bitmap = struct.pack("<IiiHHIIiiII", header, side, 2 * side, 1, 32, 0, len(pixels), 0, 0, 0, 0)
    return directory + bitmap + pixels + mask


TUTORIAL = "Watch the Wrenfield Wizard tutorial video online."


class Help(Journey):
    def prepare(self, wizard):
        wizard.help_calls = wizard.stand_in("xchm")
        wizard.browser_calls = wizard.stand_in("xdg-open")

    def start_at_introduction(self, prepare=None):
        wizard = self.start(prepare=prepare or self.prepare)
        wizard.wait_for_tab("Introduction")
        return wizard

    def test_each_page_opens_its_topic(self):
        wizard = self.start_at_introduction()
        wizard.fill_in_landlord()
        # Where the help file lies is told as the folder of the program says it, and whether it is there isn't asked.
        file = os.path.join(wizard.folder, "WrenfieldHelp.chm")
        expected = []
        for tab, topic in zip(wizard.tabs(), TOPICS, strict=True):
            wizard.click("page tab", tab)
            wizard.wait_for_tab(tab)
            wizard.click("push button", "Help")
            expected.append(file if topic is None else f"--contextid={topic} {file}")
            wait_for(f"help for {tab}", lambda: len(wizard.help_calls()) == len(expected))
        self.assertEqual(wizard.help_calls(), expected)
        self.assert_untouched(wizard)

    def test_the_real_viewer_shows_the_topic(self):
        def bring_help(wizard):
            shutil.copy(os.path.join(self.programs, "WrenfieldHelp.chm"), wizard.folder)
        wizard = self.start_at_introduction(bring_help)
        wizard.next("Bank Accounts")
        wizard.click("push button", "Help")
        self.addCleanup(self.desktop.run, ["pkill", "-f", wizard.folder + "/WrenfieldHelp.chm"], False)
        wait_for("the help viewer", lambda: "Wrenfield" in self.desktop.run(
            ["xdotool", "search", "--onlyvisible", "--class", "xchm", "getwindowname", "%@"], check=False))
        # The wizard doesn't wait for it.
        wizard.next("User Type")

    def test_no_viewer_is_told_for_the_contents(self):
        wizard = self.start_at_introduction(self._without_viewer)
        wizard.click("push button", "Help")
        wizard.answer("Error showing help file\n53 - File not found: xchm", "OK")
        wizard.next("Bank Accounts")

    def test_no_viewer_is_the_end_for_a_topic(self):
        wizard = self.start_at_introduction(self._without_viewer)
        wizard.next("Bank Accounts")
        wizard.click("push button", "Help")
        wizard.answer("53: File not found: xchm", "OK")
        self.assertEqual(wizard.wait_for_end(), 1)
        self.assert_untouched(wizard)

    @staticmethod
    def _without_viewer(wizard):
        # Nothing at all can be found.
        wizard.path = wizard.stand_ins

    def test_the_tutorial_opens_in_the_browser(self):
        wizard = self.start_at_introduction()
        wizard.click("push button", TUTORIAL)
        wait_for("the browser", wizard.browser_calls)
        self.assertEqual(wizard.browser_calls(), ["https://www.hearthbook.example/FAQ/WrenfieldWizard.aspx"])

    def test_no_browser_is_no_failure(self):
        wizard = self.start_at_introduction(self._without_viewer)
        wizard.click("push button", TUTORIAL)
        wizard.next("Bank Accounts")

    def test_buttons_and_the_link_have_the_hand_that_lies_beside_the_program(self):
        def bring_hand(wizard):
            with open(os.path.join(wizard.folder, "hand.cur"), "wb") as file:
                file.write(hand())
        wizard = self.start_at_introduction(bring_hand)
        for name in [TUTORIAL, "Next"]:
            self.desktop.move(*wizard.find("push button", name).middle())
            wait_for(f"the hand over {name}", lambda: self.desktop.cursor().hot_spot == (5, 1))
            self.assertEqual(set(self.desktop.cursor().pixels[:16]), {0xff000000})
            self.desktop.move(*wizard.find("page tab", "Introduction").middle())
            wait_for("the default pointer", lambda: self.desktop.cursor().hot_spot != (5, 1))

    def test_without_its_file_the_link_has_the_default_pointer(self):
        wizard = self.start_at_introduction()
        self.desktop.move(*wizard.find("push button", "Next").middle())
        before = self.desktop.cursor().pixels
        self.desktop.move(*wizard.find("push button", TUTORIAL).middle())
        wizard.click("push button", TUTORIAL)
        wait_for("the browser", wizard.browser_calls)
        self.assertEqual(self.desktop.cursor().pixels, before)


if __name__ == "__main__":
    main()
