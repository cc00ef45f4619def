"""What the comparison of pages with runs accepts, refuses and finds again."""

import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

from docs import examples, excerpt, measured, option_table, sessions  # noqa: E402

PRINTED = ["Title", "a  1.5", "b  2.5", "", "Next", "a  3.5", "end"]


class Machine:
    """Answers commands from a table."""

    def __init__(self, answers):
        self.answers = answers

    def shown_by(self, command):
        return self.answers[command]


class Echo:
    """A program that shows its commands, numbered when there are several; a refused one keeps all from running."""

    def shown_by(self, command, stdin):
        commands = stdin.strip().split(".\n")
        if len(commands) > 1 and "refused" in stdin:
            return ["error: refused"]
        shown = []
        for number, text in enumerate(commands, 1):
            one = [text] + (["note: mine"] if "/C" in text else [])
            several = [line.replace("note: ", f"note: command {number}: ") for line in one]
            shown += one if len(commands) == 1 else [f"Command {number}", *several]
        return shown


class Excerpts(unittest.TestCase):
    def test_only_what_is_printed_is_accepted(self):
        for body in (PRINTED, ["Title", "..."], ["...", "b  2.5", "", "Next", "..."], ["...", "a  3.5", "end"]):
            self.assertTrue(excerpt.shows(body, PRINTED), body)
        for body in ([], ["Title"], ["a  1.5", "..."], ["...", "b  2.6", "..."], ["...", "a  3.5"],
                     ["...", "b  2", "..."], ["...", "a  3.5", "...", "b  2.5", "..."], ["...", "a  1.5", "Next", "..."]):
            self.assertFalse(excerpt.shows(body, PRINTED), body)

    def test_excerpts_are_found_again_by_their_ends(self):
        old = ["...", "a  1.4", "b  2.4", "...", "a  3.4", "end"]
        self.assertEqual(excerpt.refreshed(old, PRINTED), ["...", "a  1.5", "b  2.5", "...", "a  3.5", "end"])
        self.assertEqual(excerpt.refreshed(["gone"], PRINTED), PRINTED)
        with self.assertRaises(excerpt.Lost):
            excerpt.refreshed(["...", "nothing of this kind", "..."], PRINTED)

    def test_words_may_be_left_out_of_a_line_once(self):
        lines = excerpt.unwrapped(["• One sentence", "  goes on.", "error: line 3, column 5: N takes  4."])
        self.assertEqual(lines[0], "• One sentence goes on.")
        self.assertEqual(excerpt.line_of("error: … N takes 4.", lines, 0), 1)
        self.assertIsNone(excerpt.line_of("error: … N takes 5.", lines, 0))
        self.assertIsNone(excerpt.line_of("• One sentence goes", lines, 0))
        self.assertEqual(excerpt.line_again("error: … N takes 5.", lines, 0), ("error: … N takes 4.", 1))


class Places(unittest.TestCase):
    def test_sessions_hold_whole_commands(self):
        page = "```\n$ cat <<'END'\nx\nEND\n$ two \\\n  lines b\nold 1\n```\nold 1\n"
        machine = Machine({"cat <<'END'\nx\nEND": [], "two \\\n  lines b": ["old 2"]})
        text, lost = sessions.refreshed(page, machine, others=False)
        self.assertEqual((text, lost), (page.replace("b\nold 1", "b\nold 2"), []))

    def test_examples_take_the_place_of_a_subcommand(self):
        page = "Command: `GO /A x /B y`\n```toml\nCOMMAND\n```\n- `/B z` → `GO /A x /B y`\n- `/C w` → `lost`\n"
        text, lost = examples.refreshed(page, Echo(), workers=1)
        self.assertIn("- `/B z` → `GO /A x /B z`", text)
        self.assertEqual([problem[:6] for problem in lost], ["/C w: "])

    def test_examples_of_one_run_keep_apart(self):
        head = "Command: `GO`\n```toml\nCOMMAND\n```\n"
        page = head + "- `/A b` → `GO /A b`\n- `/C` → `note: mine`\n- `/D e` → `GO /D e`\n"
        self.assertEqual(examples.refreshed(page, Echo(), workers=1), (page, []))
        swapped = head + "- `/A b` → `GO /D e`\n- `/C` → `note: mine`\n- `/D e` → `GO /A b`\n"
        self.assertEqual(examples.refreshed(swapped, Echo(), workers=1), (page, []))
        refused = page.replace("/A b", "/A refused")
        self.assertEqual(examples.refreshed(refused, Echo(), workers=1), (refused, []))

    def test_numbers_of_tables_stand_in_an_output(self):
        page = "| measured | a |\n|---|---|\n| p | `0.5` `0.7` |\n\n```\np = 0.5, q = 10.7\n```\n"
        self.assertEqual(measured.problems(page), ["0.7 of a table stands in no output of the page"])

    def test_the_options_are_those_of_the_help(self):
        head = "| option | | `fit` | `run` |\n|---|---|---|---|\n"
        below = " " * 30
        machine = Machine({"varmodel fit --help": ["  -q,--quiet  Say", below + "less", "  --new N:INT  New", below + "one"],
                           "varmodel run --help": ["  -q,--quiet  Say less"]})
        rows = "| `-q, --quiet` | hush | • |  |\n| `--old` | gone | • |  |\n\nend"
        text = option_table.refreshed(head + rows, machine)
        self.assertEqual(text, head + "| `-q, --quiet` | hush | • | • |\n| `--new N` | New one | • |  |\n\nend")


if __name__ == "__main__":
    unittest.main()
