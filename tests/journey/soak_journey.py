"""Somebody presses anything at all: random clicks, keys, texts and answers, thousands of them, on the real program. It
must not crash, not grow, and not say anything that it doesn't say for a reason.

The seed is printed; WRENFIELD_SOAK_SEED takes it again. WRENFIELD_SOAK_ACTIONS says how many actions there are."""

import os
import random
import re

from journey import Journey, main

# What somebody who presses anything can be told.
EXPECTED = [
    r"You need to have at least one bank account", r"You must select a type", r"You have not entered any .*",
    r"Delete .*\?", r"Another record already exists with the same name", r"An? (account )?name is required",
    r"An address 1 is required", r"A property selection is required", r"A start date is required\.",
    r"You need to select one of the options .*", r"The rent amount is set to zero\.  Is this correct\?",
    r"Import complete\..*",
]
# Numbers that fit no counter end the wizard. Nothing else may.
FATAL = r"6: Overflow"
KEYS = ["Tab", "Tab", "Tab", "Tab", "shift+Tab", "Return", "space", "Escape", "BackSpace", "Delete", "Left", "Right",
        "Up", "Down", "Home", "End", "Page_Down", "Page_Up", "ctrl+a", "ctrl+v", "ctrl+z", "F1", "period", "comma"]
TEXTS = ["a", "Main Road", "7", "12", "0", "-1", "3112", "1,2,3", "#1/2/2024#", "it's", "true", ";", "&", "("]
BATCH = 8
# After so many batches a wizard has seen most of what there is.
SETTLED = 30


class Soak(Journey):
    def setUp(self):
        self.seed = int(os.environ.get("WRENFIELD_SOAK_SEED", "1"))
        self.actions = int(os.environ.get("WRENFIELD_SOAK_ACTIONS", "400"))
        self.chance = random.Random(self.seed)
        self.cancel = None
        self.longest = 0
        # The address sanitizer otherwise keeps all that was given back, so that every program grows.
        os.environ["ASAN_OPTIONS"] = "quarantine_size_mb=1"
        print(f"seed {self.seed}, {self.actions} actions", flush=True)

    def test_anything_at_all(self):
        wizard, sizes, starts = None, [], 0
        for done in range(0, self.actions, BATCH):
            if wizard is None:
                wizard, sizes, starts = self.start_wizard(), [], starts + 1
            if not self.do_something(wizard):
                wizard.close()
                wizard = None
                continue
            sizes.append(self.memory(wizard))
            if done % 1000 < BATCH:
                print(f"{done} actions, {starts} starts, {sizes[-1]} kB", flush=True)
            self.assert_not_growing(sizes)
        print(f"{starts} starts, the longest life watched for growth had {self.longest} actions", flush=True)

    def start_wizard(self):
        wizard = self.start(prepare=lambda it: (it.stand_in("xchm"), it.stand_in("xdg-open")))
        wizard.wait_for_tab("Introduction")
        self.cancel = wizard.find("push button", "Cancel").box()
        return wizard

    def do_something(self, wizard):
        """Some random actions. Gives False once the wizard has come to one of its ends."""
        box = wizard.box()
        if box is not None:
            return self.answer(wizard, box)
        if wizard.current_tab() == "Finished":
            return False
        try:
            front = wizard.front().box()
        except Exception:
            return self.has_ended_well(wizard)
        command = ["xdotool"]
        for _ in range(BATCH):
            command += self.action(front)
        self.desktop.run(command)
        return self.has_ended_well(wizard)

    def action(self, front):
        kind = self.chance.random()
        if kind < 0.4:
            button = self.chance.choice(["1", "1", "1", "1", "3", "4", "5"])
            return ["mousemove", *map(str, self.place(*front)), "click", button]
        if kind < 0.8:
            return ["key", "--delay", "1", self.chance.choice(KEYS)]
        return ["type", "--delay", "1", "--args", "1", "--", self.chance.choice(TEXTS)]

    def place(self, x, y, width, height):
        """Somewhere in the window, but not in the corner of the close button. Cancel of the form is hit so often by its
        keys that the mouse leaves it alone: only a wizard that lives for long shows whether it grows."""
        while True:
            place = (x + self.chance.randrange(width - 45), y + self.chance.randrange(10, height))
            if not self.cancel or not (self.cancel[0] <= place[0] < self.cancel[0] + self.cancel[2] and
                                       self.cancel[1] <= place[1] < self.cancel[1] + self.cancel[3]):
                return place

    def answer(self, wizard, box):
        text = box.all("label")[0].name
        is_expected = any(re.fullmatch(pattern, text, re.DOTALL) for pattern in [*EXPECTED, FATAL])
        self.assertTrue(is_expected, f"seed {self.seed}: the wizard says {text!r}")
        button = self.chance.choice([button.name for button in box.all("push button")])
        wizard.answer(text, button)
        if re.fullmatch(FATAL, text):
            self.assertEqual(wizard.wait_for_end(), 1)
            return False
        return self.has_ended_well(wizard)

    def has_ended_well(self, wizard):
        status = wizard.process.poll()
        self.assertIn(status, (None, 0), f"seed {self.seed}: the wizard has ended with {status}")
        return status is None

    @staticmethod
    def memory(wizard):
        with open(f"/proc/{wizard.process.pid}/statm") as sizes:
            return int(sizes.read().split()[1]) * os.sysconf("SC_PAGE_SIZE") // 1024

    def assert_not_growing(self, sizes):
        """Once most has been seen, it takes no more memory than then and a quarter."""
        if len(sizes) > 2 * SETTLED:
            self.longest = max(self.longest, len(sizes) * BATCH)
            self.assertLess(sizes[-1], max(sizes[:SETTLED]) * 1.25, f"seed {self.seed}")


if __name__ == "__main__":
    main()
