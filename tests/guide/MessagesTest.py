"""The operator's guide lists every text that the program can show to an operator."""

import re
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
GUIDE = ROOT / "docs" / "operators-guide.md"

# The argument of one of these is shown, or is the description of a failure that is shown.
SHOWING = {"MsgBox", "InputBox", "Refuse", "Failure", "Fail", "FailDatabase", "FailAccess",
           "FailLine", "FailWhileOpen", "FailUnreadable", "ReportFailure", "ShowFailure", "ShowAlert", "AskToUse",
           "Tell", "Warn"}
TOKEN = re.compile(r'//[^\n]*|/\*.*?\*/|#include[^\n]*|"(?:[^"\\\n]|\\.)*"|'
                   r"'(?:[^'\\\n]|\\.)'|\w+|\s+|.", re.DOTALL)
ESCAPE = re.compile(r"\\(r\\n|.)")
LETTERS = re.compile(r"[A-Za-z]{2}")
SENTENCE_END = re.compile(r"(^|[a-z]{2})[.?]$")


def tokens_of(source):
    """The tokens without comments and blanks; neighbouring literals are joined."""
    tokens = []
    for token in TOKEN.findall(source):
        if token.isspace() or token.startswith(("//", "/*", "#include")):
            continue
        if token[0] == '"' and tokens and tokens[-1][0] == '"':
            tokens[-1] = tokens[-1][:-1] + token[1:]
        else:
            tokens.append(token)
    return tokens


def text_of(literal):
    return ESCAPE.sub(lambda found: {"\\n": " ", "n": " ", "r": " ", "r\\n": " "}
                      .get(found[1], found[1]), literal[1:-1])


def literals_in(tokens, start, opening="(", closing=")"):
    """The tokens between a parenthesis and the one that closes it."""
    found, depth = [], 0
    for token in tokens[start:]:
        depth += (token == opening) - (token == closing)
        if depth == 0:
            break
        if token[0] == '"':
            found.append(text_of(token))
    return found


def messages_of(source, describes_failures=False):
    """The arguments of calls that show a text, and sentences that functions return for such a call."""
    tokens = tokens_of(source)
    found = []
    for place, token in enumerate(tokens[:-1]):
        if token in SHOWING and tokens[place + 1] == "(":
            found += literals_in(tokens, place + 1)
        elif token == "return":
            texts = literals_in(tokens, place, "return", ";")
            if texts and (describes_failures or SENTENCE_END.search(texts[-1])):
                found += texts
    return [text for text in found if LETTERS.search(text)]


def plain(text):
    """The text as it is read: one blank between words, without the markup."""
    return " ".join(re.sub(r"[*`|\\]", " ", text).split())


def all_messages():
    """The source files of the station. The office's messages say what to do; its guide does not list them."""
    found = {}
    for file in sorted((ROOT / "src").rglob("*.cpp")):
        if (ROOT / "src/office") in file.parents:
            continue
        source = file.read_text(encoding="utf-8")
        for text in messages_of(source, file.name.endswith("Failure.cpp")):
            found.setdefault(plain(text), file.relative_to(ROOT))
    return found


class FindingTest(unittest.TestCase):
    def test_messages_are_found_in_a_source(self):
        source = r'''
            #include "data/Con.h"
            // MsgBox("not this");
            MsgBox({"Do you want "
                    "to print?", "Confirmation", BoxIcon::Question});
            rows.Open("Select * From Arrivals", *Con);
            throw Failure(number, "The file " + path + " is \"damaged\".\r\nMend it.");
            return known ? "It is no database." : "Is it " + kind + ".";
            return "Arrivals";
        '''
        self.assertEqual(
            messages_of(source),
            ["Do you want to print?", "Confirmation", "The file ", ' is "damaged". Mend it.',
             "It is no database.", "Is it "])

    def test_messages_of_each_kind_are_found_in_the_program(self):
        found = all_messages()
        for wanted in ("Are you sure to save this Weighment?", "Confirmation",
                       "You are not authorised to do this operation",
                       "Cannot updated this invoice because it is used in (",
                       "is closed: the line was disconnected. Check the cable.",
                       "The name or the password is wrong.", "It is not a database.",
                       "Overflow", "another program is using it.",
                       "Settings Updated Successfully"):
            self.assertTrue(wanted in found, wanted)
        self.assertGreater(len(found), 120)


class GuideTest(unittest.TestCase):
    def test_each_message_stands_in_the_guide(self):
        guide = plain(GUIDE.read_text(encoding="utf-8"))
        for text, file in all_messages().items():
            with self.subTest(file=str(file)):
                self.assertTrue(text in guide, text)


if __name__ == "__main__":
    unittest.main()
