"""The begin of the wizard: what is on the screen when it has something to tell, and what can't even begin."""

import os
import shutil

from desktop import wait_for
from journey import Journey, main
from wizard import Beginning

NOWHERE = "/no/such.mdb"


class Begin(Journey):
    def windows_on_screen(self):
        """The wizard's windows that the display itself shows; each bears the same title."""
        return self.desktop.run(["xdotool", "search", "--onlyvisible", "--name", "^Wrenfield Wizard$"],
                                check=False).split()

    def picture_of(self, window):
        return self.desktop.run(["xprop", "-id", window, "_NET_WM_ICON"])

    def test_the_second_opening_has_the_wizard_behind_its_boxes(self):
        wizard = self.start(prepare=lambda wizard: wizard.settings(Networkable="1", DatabaseLocation=NOWHERE))
        unable = f"Unable to access \n{NOWHERE}\nReverting back to \n{wizard.database}"
        wizard.wait_for_box(unable)
        self.assertEqual(len(self.windows_on_screen()), 1, "the first box stands alone")
        picture = self.picture_of(self.windows_on_screen()[0])
        wizard.answer(unable, "OK")
        wizard.wait_for_box(unable)
        wait_for("the wizard and its box", lambda: len(self.windows_on_screen()) == 2)
        self.assert_box_is_in_front()
        wizard.answer(unable, "OK")
        wizard.wait_for_window("Wrenfield Wizard")
        wizard.wait_for_tab("Introduction")
        self.assertEqual([self.picture_of(window) for window in self.windows_on_screen()], [picture],
                         "the task bar shows whose box the first one is")
        self.assert_buttons(wizard, ["Next", "Cancel"], ["Back", "Finish"])

    def user_type_page(self, *arguments):
        """What the display shows of the page with options, a box, a date and the link."""
        wizard = self.start(*arguments)
        wizard.next("Bank Accounts")
        wizard.next("User Type")
        self.desktop.settle()
        file = os.path.join(wizard.folder, "page.ppm")
        self.desktop.picture(file)
        with open(file, "rb") as picture:
            pixels = picture.read()
        wizard.close()
        return pixels

    def test_a_desktop_that_writes_from_right_to_left_changes_no_look(self):
        self.assertTrue(self.user_type_page("-reverse") == self.user_type_page())

    def assert_box_is_in_front(self):
        """The box keeps in front of the wizard, since the window manager knows that it belongs to it."""
        hints = [self.desktop.run(["xprop", "-id", window, "WM_TRANSIENT_FOR"]) for window in self.windows_on_screen()]
        parents = [int(hint.split("#")[1], 16) for hint in hints if "#" in hint]
        self.assertEqual(len(parents), 1, hints)
        self.assertIn(str(parents[0]), self.windows_on_screen())

    def test_a_database_that_goes_before_the_second_opening(self):
        def lose(wizard):
            wizard.settings(Networkable="1", DatabaseLocation=NOWHERE)
        wizard = self.start(prepare=lose)
        unable = f"Unable to access \n{NOWHERE}\nReverting back to \n{wizard.database}"
        wizard.answer(unable, "OK")
        wizard.wait_for_box(unable)
        os.remove(wizard.database)
        boxes = wizard.answer_all_until("Unable to start hearthbook database.  Make sure Hearthbook has been installed "
                                        "and run at least once.")
        self.assertEqual(wizard.wait_for_end(), 1)
        self.assertEqual([title for title, _ in boxes], ["Wrenfield Wizard", "Start ADO", "Wrenfield Wizard"])
        self.assertEqual(boxes[1][1], Beginning("General Errors...\n\n3024 - "))

    def test_a_form_that_cannot_be_made_is_told_once(self):
        def replace(wizard):
            shutil.copy(os.path.join(self.programs, "failing-wizard"), wizard.program)
        wizard = self.start(prepare=replace)
        wizard.answer("7: Out of memory", "OK")
        self.assertEqual(wizard.wait_for_end(), 1)
        self.assert_untouched(wizard)

    def test_a_folder_without_the_right_to_write_into_it(self):
        # The file itself may be written to; its journal has no place.
        def take_rights(wizard):
            folder = os.path.join(wizard.folder, "shared")
            os.mkdir(folder)
            wizard.settings(APPPath=folder)
            shutil.move(wizard.database, folder)
            wizard.database = os.path.join(folder, "property.mdb")
            os.chmod(folder, 0o555)
            self.addCleanup(os.chmod, folder, 0o755)
            wizard.give_up_rights()
        wizard = self.start(prepare=take_rights)
        wizard.answer(Beginning("General Errors...\n\n3027 - "), "OK", title="Start ADO")
        wizard.answer(f"No networking enabled, using {wizard.database}", "OK")
        self.assertEqual(wizard.wait_for_end(), 1)
        self.assert_untouched(wizard)


if __name__ == "__main__":
    main()
