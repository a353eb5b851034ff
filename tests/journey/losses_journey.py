"""What goes wrong at Finish, and how many boxes tell of it: everything that isn't in the file has one, and nothing has
two."""

import os
import resource
import subprocess

from journey import Journey, main
from wizard import FORMAT, Beginning

FINISHED = ("Import complete.  If Hearthbook is running, it is recommended you restart it to reload the most recent "
            "changes.")

# What the shortest way through the wizard writes: an account, an owner, a property, a tenancy and three rent periods.
WRITES = 7


class Losses(Journey):
    def at_finish(self, prepare=None):
        wizard = self.start(prepare=prepare)
        wizard.fill_in_landlord()
        return wizard

    def finish(self, wizard):
        """Presses Finish, says OK to all boxes and gives those before the last."""
        wizard.click("push button", "Finish")
        boxes = wizard.answer_all_until(FINISHED)
        self.assertEqual(wizard.wait_for_end(), 0)
        return boxes

    def assert_writes_told(self, boxes, count, error):
        """One box for each row and statement, with this error."""
        self.assertEqual(len(boxes), count, boxes)
        for title, text in boxes:
            self.assertIn(title, ("Update Record", "Execute SQL"))
            self.assertEqual(text, Beginning(f"General Errors...\n\n{error}"))

    def assert_opening_refused(self, wizard, boxes, error):
        """The first two boxes tell that the opening at Finish failed. Gives the others."""
        self.assertEqual(boxes[0], ("Start ADO", Beginning(f"General Errors...\n\n{error}")))
        self.assertEqual(boxes[1], ("Wrenfield Wizard", f"No networking enabled, using {wizard.database}"))
        return boxes[2:]

    def test_a_disk_that_is_full_at_finish(self):
        wizard = self.at_finish()
        resource.prlimit(wizard.process.pid, resource.RLIMIT_FSIZE, (0, 0))
        boxes = self.finish(wizard)
        if FORMAT == "jet":
            # The journal is there and takes nothing. Of the wipe, what finds no rows needs no room.
            self.assert_writes_told(boxes, WRITES + 3, "3183 - Disk full: ")
        else:
            self.assert_writes_told(self.assert_opening_refused(wizard, boxes, "3043 - "), WRITES, "3043 - ")
        self.assert_untouched(wizard)

    def test_a_database_that_is_gone_at_finish(self):
        # The wizard goes on with the file that it has open, which takes nothing any more.
        wizard = self.at_finish()
        os.remove(wizard.database)
        boxes = self.finish(wizard)
        error = f"3024 - Could not find file '{wizard.database}'."
        self.assert_writes_told(self.assert_opening_refused(wizard, boxes, error), WRITES,
                                "3043 - " if FORMAT == "jet" else "3027 - ")
        self.assertFalse(os.path.exists(wizard.database))

    def test_options_without_a_row(self):
        # What they say about receipts can't be guessed: the end, with what was written before.
        wizard = self.start(prepare=lambda wizard: wizard.change("delete from options"))
        wizard.fill_in_landlord(balance="12.50")
        wizard.click("push button", "Finish")
        wizard.answer("3021: No current record.", "OK")
        self.assertEqual(wizard.wait_for_end(), 1)
        self.assertEqual(wizard.rows("select name from tenancy"), ["T. Enant"])
        self.assertEqual(wizard.rows("select count(*) from rent_periods"), ["3"])
        self.assertEqual(wizard.rows("select count(*) from revenues"), ["0"])
        self.assertEqual(wizard.log(), [])

    if FORMAT == "jet":
        # No SQLite file asks more of its rows than is understood.
        def test_a_rule_that_is_not_understood(self):
            def put_rule(wizard):
                wizard.change("insert into notes(note) values('kept')")
                subprocess.run([os.path.join(self.programs, "put-rule"), wizard.database, "tenancy", "reference",
                                "Eval([reference]) > 2"], check=True)
                with open(wizard.database, "rb") as file:
                    wizard.bytes_at_start = file.read()
            wizard = self.at_finish(put_rule)
            boxes = self.finish(wizard)
            error = "3219 - Invalid operation: the table 'tenancy' can't be written, "
            self.assert_writes_told(self.assert_opening_refused(wizard, boxes, error), WRITES, error)
            self.assertIn("tenancy.reference", boxes[0][1])
            with open(wizard.database, "rb") as file:
                self.assertEqual(file.read(), wizard.bytes_at_start)


if __name__ == "__main__":
    main()
