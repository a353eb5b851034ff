"""What the hooks of packaging/hooks let into a repository and what they don't, tried in one that is thrown away."""

import argparse
import os
import shutil
import subprocess
import tempfile
import unittest

FORMATTED = "int answer = 42;\n"
UNFORMATTED = "int answer=42 ;\n"
LONGEST = "Put 72 characters into a subject, not bytes: ä ö ü and some more of them"
WHY = "\n\nReaders would otherwise have to guess.\n"


class CommitHooks(unittest.TestCase):
    source = ""

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="wrenfield-hooks-")
        self.addCleanup(shutil.rmtree, self.folder)
        self.git("init", "--quiet")
        self.git("config", "user.name", "Ada Finch")
        self.git("config", "user.email", "ada@hearthbook.example")
        shutil.copy(os.path.join(self.source, ".clang-format"), self.folder)
        shutil.copytree(os.path.join(self.source, "packaging/hooks"), os.path.join(self.folder, "packaging/hooks"))
        self.git("config", "core.hooksPath", "packaging/hooks")

    def git(self, *arguments, check=True):
        """A Git that knows nothing of its user's settings, nor of the commit that this test may run in."""
        environment = {name: value for name, value in os.environ.items() if not name.startswith("GIT_")}
        environment |= {"GIT_CONFIG_GLOBAL": os.devnull, "GIT_CONFIG_SYSTEM": os.devnull}
        return subprocess.run(["git", "-C", self.folder, *arguments], env=environment, check=check,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)

    def write(self, name, text):
        path = os.path.join(self.folder, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def stage(self, name, text):
        self.write(name, text)
        self.git("add", name)

    def commit(self, message, *options):
        return self.git("commit", "--allow-empty", "--message", message, *options, check=False)

    def assert_taken(self, message, *options):
        answer = self.commit(message, *options)
        self.assertEqual(answer.returncode, 0, answer.stdout)

    def assert_refused(self, message, reason):
        answer = self.commit(message)
        self.assertNotEqual(answer.returncode, 0, "was let in")
        self.assertIn(reason, answer.stdout)

    def test_an_order_with_its_reason_is_taken(self):
        for subject in ("Find the database", "Bring back the caption", "Need no display", "Pass on each key",
                        LONGEST):
            with self.subTest(subject):
                self.assert_taken(subject + WHY)

    def test_a_subject_that_is_no_order_is_refused(self):
        for verb in ("Added", "Adding", "Adds"):
            with self.subTest(verb):
                self.assert_refused(f"{verb} the caption" + WHY, f'begins with "{verb}", which is no order')

    def test_a_subject_ends_without_a_full_stop(self):
        self.assert_refused("Add the caption." + WHY, "ends with a full stop")

    def test_a_subject_has_at_most_72_characters(self):
        self.assert_refused(LONGEST + "s" + WHY, "73 characters, more than 72")

    def test_a_subject_is_a_sentence(self):
        self.assert_refused("add the caption" + WHY, "doesn't begin with a capital letter")
        self.assert_refused("Captions" + WHY, "is no sentence")

    def test_a_body_says_why(self):
        self.assert_refused("Add the caption", "it has no body")
        self.assert_refused("Add the caption\n\nSigned-off-by: Ada Finch <ada@hearthbook.example>", "it has no body")
        self.assert_refused("Add the caption\nReaders want it.", "no empty line behind its subject")

    def test_comments_and_the_diff_below_the_line_are_no_body(self):
        self.write("message", "Add the caption\n\n# A comment\n# ------------------------ >8 ------------------------\n"
                              "diff --git a/caption b/caption\n")
        answer = self.git("commit", "--allow-empty", "--cleanup", "scissors", "--file", "message", check=False)
        self.assertNotEqual(answer.returncode, 0, "was let in")
        self.assertIn("it has no body", answer.stdout)

    def test_what_git_writes_by_itself_is_taken(self):
        self.assert_taken("Add the caption" + WHY)
        self.assert_taken("fixup! Add the caption")
        self.git("branch", "other", "HEAD~1")
        self.git("checkout", "--quiet", "other")
        self.assert_taken("Add the heading" + WHY)
        merging = self.git("merge", "--no-ff", "-", check=False)
        self.assertEqual(merging.returncode, 0, merging.stdout)

    def test_formatted_sources_are_taken(self):
        self.stage("src/a/Answer.cpp", FORMATTED)
        self.stage("notes.cpp", UNFORMATTED)
        self.assert_taken("Add the answer" + WHY)

    def test_unformatted_sources_are_refused_in_each_folder(self):
        for name in (f"{folder}{below}/an answer.{ending}" for folder in ("src", "tests", "bench")
                     for below in ("", "/a/b") for ending in ("cpp", "h")):
            with self.subTest(name):
                self.stage(name, UNFORMATTED)
                self.assert_refused("Add the answer" + WHY, f"{name} isn't formatted")
                self.git("rm", "--quiet", "--cached", name)

    def test_what_is_staged_counts_not_what_lies_in_the_folder(self):
        self.stage("src/Answer.cpp", UNFORMATTED)
        self.write("src/Answer.cpp", FORMATTED)
        self.assert_refused("Add the answer" + WHY, "src/Answer.cpp isn't formatted")
        self.git("add", "src/Answer.cpp")
        self.write("src/Answer.cpp", UNFORMATTED)
        self.assert_taken("Add the answer" + WHY)

    def test_a_source_may_be_deleted(self):
        self.stage("src/Answer.cpp", UNFORMATTED)
        self.assert_taken("Add the answer" + WHY, "--no-verify")
        self.git("rm", "--quiet", "src/Answer.cpp")
        self.assert_taken("Drop the answer" + WHY)


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("source", help="the folder of the project")
    options, rest = parser.parse_known_args()
    CommitHooks.source = options.source
    unittest.main(argv=[__file__, *rest])
