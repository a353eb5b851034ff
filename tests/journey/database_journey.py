"""Where the wizard looks for its database, and what it tells when it doesn't find it: at the start, when its window
comes up, and at Finish."""

import fcntl
import os
import shutil
import sqlite3

from desktop import wait_for
from journey import Journey, main
from wizard import Beginning

FINISHED = ("Import complete.  If Hearthbook is running, it is recommended you restart it to reload the most recent "
            "changes.")


class Database(Journey):
    def other_database(self, wizard):
        """A fresh database in another folder, in place of the one beside the program."""
        folder = os.path.join(wizard.folder, "elsewhere")
        os.mkdir(folder)
        wizard.besides = wizard.database
        wizard.database = os.path.join(folder, "property.mdb")
        shutil.move(wizard.besides, wizard.database)
        return folder

    def unable(self, wrong, fallback):
        return f"Unable to access \n{wrong}\nReverting back to \n{fallback}"

    def assert_start_fails(self, wizard, error, trail):
        self.answer_error(wizard, error)
        wizard.answer(trail, "OK")
        self.assertEqual(wizard.wait_for_end(), 1)

    @staticmethod
    def answer_error(wizard, error):
        """The box of a failed opening, told by the beginning of what it says about the failure."""
        wizard.answer(Beginning("General Errors...\n\n" + error), "OK", title="Start ADO")

    def finish(self, wizard, *boxes):
        """Goes to the last page, presses Finish and answers these boxes and the last message."""
        wizard.fill_in_landlord()
        wizard.click("push button", "Finish")
        for box in boxes:
            box()
        wizard.answer(FINISHED, "OK")
        self.assertEqual(wizard.wait_for_end(), 0)

    # At the start.

    def test_beside_the_program(self):
        wizard = self.start()
        wizard.wait_for_tab("Introduction")

    def test_started_through_a_link(self):
        wizard = self.start(prepare=lambda wizard: self._start_through_link(wizard))
        wizard.wait_for_tab("Introduction")

    @staticmethod
    def _start_through_link(wizard):
        folder = os.path.join(wizard.folder, "links")
        os.mkdir(folder)
        link = os.path.join(folder, "wizard")
        os.symlink(wizard.program, link)
        wizard.program = link

    def test_no_database(self):
        wizard = self.start(prepare=lambda wizard: os.remove(wizard.database))
        self.assert_start_fails(wizard, f"3024 - Could not find file '{wizard.database}'.",
                                f"No networking enabled, using {wizard.database}")
        self.assertFalse(os.path.exists(wizard.database))

    def test_a_file_that_is_no_database(self):
        def spoil(wizard):
            with open(wizard.database, "w") as file:
                file.write("Dear diary")
        wizard = self.start(prepare=spoil)
        self.assert_start_fails(wizard, "3343 - ", f"No networking enabled, using {wizard.database}")
        with open(wizard.database) as file:
            self.assertEqual(file.read(), "Dear diary")

    def test_a_folder_in_place_of_the_database(self):
        def replace(wizard):
            os.remove(wizard.database)
            os.mkdir(wizard.database)
        wizard = self.start(prepare=replace)
        self.assert_start_fails(wizard, "3", f"No networking enabled, using {wizard.database}")

    def test_a_file_without_the_right_to_read_it(self):
        wizard = self.start(prepare=lambda wizard: self._take_rights(wizard, 0o000))
        self.assert_start_fails(wizard, f"3024 - Could not open file '{wizard.database}': Permission denied.",
                                f"No networking enabled, using {wizard.database}")

    def test_a_file_without_the_right_to_write_it(self):
        wizard = self.start(prepare=lambda wizard: self._take_rights(wizard, 0o444))
        self.assert_start_fails(wizard, "3027 - ", f"No networking enabled, using {wizard.database}")
        self.assert_untouched(wizard)

    @staticmethod
    def _take_rights(wizard, mode):
        os.chmod(wizard.database, mode)
        wizard.give_up_rights()

    def test_moved_with_the_path_of_the_application(self):
        wizard = self.start(prepare=lambda wizard: wizard.settings(Networkable="0",
                                                                   APPPath=self.other_database(wizard)))
        self.finish(wizard)
        self.assertEqual(wizard.rows("select name from tenancy"), ["T. Enant"])
        self.assertFalse(os.path.exists(wizard.besides))

    def test_moved_without_its_file(self):
        wizard = self.start(prepare=lambda wizard: wizard.settings(APPPath=os.path.join(wizard.folder, "nowhere")))
        path = os.path.join(wizard.folder, "nowhere", "property.mdb")
        self.assert_start_fails(wizard, f"3024 - Could not find file '{path}'.",
                                f"No networking enabled, using {path}")

    def test_a_setting_that_is_no_number(self):
        wizard = self.start(prepare=lambda wizard: wizard.settings(Networkable="yes"))
        self.assert_start_fails(wizard, "13 - ", "")

    def test_in_the_network(self):
        def move(wizard):
            self.other_database(wizard)
            wizard.settings(Networkable="1", DatabaseLocation=wizard.database)
        wizard = self.start(prepare=move)
        self.finish(wizard)
        self.assertEqual(wizard.rows("select name from tenancy"), ["T. Enant"])

    def test_a_wrong_location_is_told_at_each_of_the_three_openings(self):
        wizard = self.start(prepare=lambda wizard: wizard.settings(Networkable="1", DatabaseLocation="/no/such.mdb"))
        unable = self.unable("/no/such.mdb", wizard.database)
        wizard.answer(unable, "OK")
        wizard.answer(unable, "OK")
        wizard.wait_for_tab("Introduction")
        self.finish(wizard, lambda: wizard.answer(unable, "OK"))
        self.assertEqual(wizard.rows("select name from tenancy"), ["T. Enant"])

    def test_a_wrong_location_without_a_file_to_fall_back_on(self):
        def lose(wizard):
            os.remove(wizard.database)
            wizard.settings(Networkable="1", DatabaseLocation="/no/such.mdb")
        wizard = self.start(prepare=lose)
        unable = self.unable("/no/such.mdb", wizard.database)
        wizard.answer(unable, "OK")
        self.assert_start_fails(wizard, f"3024 - Could not find file '{wizard.database}'.",
                                f"Networking enabled.  Attempting to use /no/such.mdb\n{unable.replace('/no/such.mdb', wizard.database)}")

    # At Finish.

    def test_replaced_while_the_wizard_is_open(self):
        # The one that lies there at Finish is the one that is filled.
        wizard = self.start()
        wizard.wait_for_tab("Introduction")
        os.rename(wizard.database, wizard.database + ".old")
        shutil.copy(wizard.database + ".old", wizard.database)
        self.finish(wizard)
        self.assertEqual(wizard.rows("select name from tenancy"), ["T. Enant"])
        wizard.database += ".old"
        self.assert_untouched(wizard)

    def test_held_by_another_program(self):
        # Longer than the wizard waits: nothing is deleted, and what was entered is added all the same.
        wizard = self.start(prepare=lambda wizard: wizard.change("insert into notes default values"))
        wizard.fill_in_landlord()
        holder = sqlite3.connect(wizard.database, isolation_level=None)
        self.addCleanup(holder.close)
        holder.execute("begin exclusive")
        wizard.click("push button", "Finish")
        wizard.wait_for_box(Beginning("General Errors...\n\n3260 - "), title="Start ADO")
        holder.execute("rollback")
        self.answer_error(wizard, "3260 - ")
        wizard.answer(f"No networking enabled, using {wizard.database}", "OK")
        wizard.answer(FINISHED, "OK")
        self.assertEqual(wizard.wait_for_end(), 0)
        self.assertEqual(wizard.rows("select count(*) from notes"), ["1"])
        self.assertEqual(wizard.rows("select name from tenancy"), ["T. Enant"])

    def test_another_import_under_way(self):
        # Nothing is deleted and nothing added, even when the other import ends before the box is answered.
        wizard = self.start()
        wizard.fill_in_landlord()
        with open(wizard.database, "rb+") as other:
            fcntl.flock(other, fcntl.LOCK_EX)
            wizard.click("push button", "Finish")
            told = "3260 - Couldn't write; another import is filling the database: "
            holder = f", process {os.getpid()}.\n\n"
            box = wizard.wait_for_box(Beginning("General Errors...\n\n" + told), title="Start ADO")
            self.assertTrue(box.all("label")[0].name.endswith(holder))
        self.answer_error(wizard, told)
        wizard.answer(f"No networking enabled, using {wizard.database}", "OK")
        boxes = wizard.answer_all_until(FINISHED)
        self.assertEqual(wizard.wait_for_end(), 0)
        self.assertGreaterEqual(len(boxes), 4)
        for title, text in boxes:
            self.assertIn(title, ("Update Record", "Execute SQL"))
            self.assertEqual(text, Beginning("General Errors...\n\n" + told))
            self.assertTrue(text.endswith(holder))
        self.assert_untouched(wizard)

    def test_a_table_is_missing(self):
        wizard = self.start(prepare=lambda wizard: wizard.change("drop table mileage"))
        wizard.fill_in_landlord()
        wizard.click("push button", "Finish")
        wizard.answer("General Errors...\n\n3078 - Could not find the table 'mileage'.\n\n", "OK",
                      title="Execute SQL")
        wizard.answer(FINISHED, "OK")
        self.assertEqual(wizard.wait_for_end(), 0)
        self.assertEqual(wizard.rows("select name from tenancy"), ["T. Enant"])
        self.assertEqual(wizard.log(), ["General Errors...", "", "3078 - Could not find the table 'mileage'.", "",
                                        "delete from mileage"])

    def test_the_hourglass_stands_while_the_file_is_waited_for(self):
        wizard = self.start()
        wizard.fill_in_landlord()
        holder = sqlite3.connect(wizard.database, isolation_level=None)
        self.addCleanup(holder.close)
        holder.execute("begin exclusive")
        self.desktop.move(*wizard.find("push button", "Help").middle())
        usual = self.desktop.cursor().pixels
        wizard.find("push button", "Finish").act()
        # Wherever the mouse is on the screen.
        wait_for("the hourglass", lambda: self.desktop.cursor().pixels != usual)
        holder.execute("rollback")
        wizard.wait_for_box(FINISHED)
        wait_for("the usual pointer", lambda: self.desktop.cursor().pixels == usual)
        wizard.answer(FINISHED, "OK")
        self.assertEqual(wizard.wait_for_end(), 0)

    def test_held_for_a_moment_by_another_program(self):
        wizard = self.start()
        wizard.wait_for_tab("Introduction")
        wizard.fill_in_landlord()
        holder = sqlite3.connect(wizard.database, isolation_level=None)
        self.addCleanup(holder.close)
        holder.execute("begin exclusive")
        wizard.click("push button", "Finish")
        holder.execute("rollback")
        wizard.answer(FINISHED, "OK")
        wizard.wait_for_end()
        self.assertEqual(wizard.rows("select name from tenancy"), ["T. Enant"])


if __name__ == "__main__":
    main()
