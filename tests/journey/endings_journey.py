"""The ends of the wizard: what each does, and what it leaves undone."""

import os

from desktop import wait_for
from journey import Journey, main

COMPANION = "Hearthbook.exe"


class Endings(Journey):
    def wizard_with_companion(self, *arguments):
        """The companion stands in the folder of the program, as Hearthbook does."""
        wizard = self.start(*arguments, prepare=self._add_companion)
        wizard.wait_for_tab("Introduction")
        return wizard

    def _add_companion(self, wizard):
        wizard.companion_calls = wizard.stand_in(COMPANION, wizard.folder)

    def finish(self, wizard, message):
        wizard.click("push button", "Finish")
        wizard.answer(message, "OK")
        self.assertEqual(wizard.wait_for_end(), 0)
        self.assertEqual(wizard.rows("select count(*) from tenancy"), ["1"])

    def assert_companion_starts(self, wizard):
        # Without arguments, and it lives on when the wizard is gone.
        wait_for("the companion", wizard.companion_calls)
        self.assertEqual(wizard.companion_calls(), [""])

    def assert_no_companion(self, wizard):
        self.assertEqual(wizard.companion_calls(), [])

    def test_cancel_leaves_everything_and_asks_nothing(self):
        wizard = self.wizard_with_companion()
        wizard.fill_in_landlord()
        wizard.click("push button", "Cancel")
        self.assertEqual(wizard.wait_for_end(), 0)
        self.assert_untouched(wizard)
        self.assert_no_companion(wizard)

    def test_cancel_starts_the_companion_again(self):
        wizard = self.wizard_with_companion("/restart")
        wizard.click("push button", "Cancel")
        self.assertEqual(wizard.wait_for_end(), 0)
        self.assert_companion_starts(wizard)
        self.assert_untouched(wizard)

    def test_restart_counts_within_a_longer_argument(self):
        wizard = self.wizard_with_companion("--from=menu/restarted")
        wizard.click("push button", "Cancel")
        wizard.wait_for_end()
        self.assert_companion_starts(wizard)

    def test_restart_counts_where_the_toolkit_takes_it_for_a_value_of_its_own(self):
        # Options of the toolkit are taken away together with what stands behind them.
        for arguments in (["-name", "/restart"], ["-style", "/restart", "-name", "wizard"]):
            with self.subTest(arguments=arguments):
                wizard = self.wizard_with_companion(*arguments)
                wizard.click("push button", "Cancel")
                wizard.wait_for_end()
                self.assert_companion_starts(wizard)

    def test_restart_in_capitals_does_not_count(self):
        wizard = self.wizard_with_companion("/RESTART")
        wizard.click("push button", "Cancel")
        wizard.wait_for_end()
        self.assert_no_companion(wizard)

    def test_close_button_starts_nothing(self):
        for arguments in ([], ["/restart"]):
            with self.subTest(arguments=arguments):
                wizard = self.wizard_with_companion(*arguments)
                wizard.click("push button", "Close")
                self.assertEqual(wizard.wait_for_end(), 0)
                self.assert_no_companion(wizard)
                self.assert_untouched(wizard)

    def test_closing_by_the_window_manager_is_the_close_button(self):
        wizard = self.wizard_with_companion("/restart")
        self.desktop.press("alt+F4")
        self.assertEqual(wizard.wait_for_end(), 0)
        self.assert_no_companion(wizard)
        self.assert_untouched(wizard)

    def test_a_missing_companion_is_no_failure(self):
        wizard = self.wizard_with_companion("/restart")
        os.remove(os.path.join(wizard.folder, COMPANION))
        wizard.click("push button", "Cancel")
        self.assertEqual(wizard.wait_for_end(), 0)

    def test_finish_without_restart(self):
        wizard = self.wizard_with_companion()
        wizard.fill_in_landlord()
        self.finish(wizard, "Import complete.  If Hearthbook is running, it is recommended you restart it to reload "
                            "the most recent changes.")
        self.assert_no_companion(wizard)

    def test_finish_with_restart(self):
        wizard = self.wizard_with_companion("/restart")
        wizard.fill_in_landlord()
        self.finish(wizard, "Import complete.")
        self.assert_companion_starts(wizard)

    def test_the_companion_waits_for_the_answer_to_the_last_message(self):
        wizard = self.wizard_with_companion("/restart")
        wizard.fill_in_landlord()
        wizard.click("push button", "Finish")
        wizard.wait_for_box("Import complete.")
        self.assert_no_companion(wizard)
        wizard.answer("Import complete.", "OK")
        wizard.wait_for_end()
        self.assert_companion_starts(wizard)


if __name__ == "__main__":
    main()
