#!/usr/bin/python3
"""usage: test_manual.py FOLDER   (where the build has put handbuch.html and handbuch.pdf)

The manual: its page is made, F1 finds a chapter for every tab, links and pictures lead somewhere,
and every message of the program is explained."""
import re
import subprocess
import sys
import unittest
from html.parser import HTMLParser
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
SOURCE = (ROOT / "docs/handbuch/handbuch.md").read_text(encoding="utf-8")


LITERAL = re.compile(r'u?"((?:[^"\\\n]|\\.)*)"')
# Not shown in boxes: the printed bill, tool tips and marks, captions, what nobody sees.
NO_MESSAGE_FILES = {"statement/page_layout.cpp", "controls/controls.h"}
NO_MESSAGE_CODE = re.compile(
    r"ToolTip|Tip\b|Tint\(|Mark\b|MakeButton|Accessible|StatusTip|setText\(|addAction|Hint\b")


def messages_of(path):
    """Sentences and error wordings of a source file: adjacent literals joined, no comments."""
    code = re.sub(r"//[^\n]*", "", path.read_text(encoding="utf-8"))
    for found in re.finditer(r'(?:u?"(?:[^"\\\n]|\\.)*"(?:_s)?\s*)+', code):
        text = "".join(part.group(1) for part in LITERAL.finditer(found.group()))
        text = text.replace(r"\"", '"').replace(r"\n", " ")
        statement = re.split(r"[;{}]", code[:found.start()])[-1]
        is_form = "_form" in path.stem or path.parent.name in ("app", "controls")
        if (is_form or path.name == "texts.h") and NO_MESSAGE_CODE.search(statement):
            continue
        is_sentence = len(text.split()) >= 3 and text.rstrip()[-1:] in (".", "!", "?")
        is_reason = path.name == "runtime_error.cpp" or "Reason" in enclosing(code, found.start())
        if is_sentence or (is_reason and len(text.split()) >= 2):
            yield text


def enclosing(code, position):
    """The head of the routine around a position."""
    heads = re.findall(r"^\w[^\n;]*\([^\n]*$", code[:position], re.MULTILINE)
    return heads[-1] if heads else ""


def plain(text):
    return " ".join(text.replace("\u00a0", " ").replace("`", " ").split())


class Page(HTMLParser):
    def __init__(self, html):
        super().__init__()
        self.anchors, self.links, self.pictures, self.headings, self.open = [], [], [], [], None
        self.feed(html)

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        if "id" in attributes:
            self.anchors.append(attributes["id"])
        if tag == "a":
            self.links.append(attributes.get("href", ""))
        if tag == "img":
            self.pictures.append(attributes)
        self.open = tag

    def handle_data(self, data):
        if self.open in ("h1", "h2"):
            self.headings.append(data)
            self.open = None


class TestManual(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.html = (FOLDER / "handbuch.html").read_text(encoding="utf-8")
        cls.page = Page(cls.html)

    def test_the_keys_stand_on_one_page_of_their_own(self):
        pages = subprocess.run(["pdftotext", "-layout", FOLDER / "handbuch.pdf", "-"],
            check=True, capture_output=True, text=True).stdout.split("\f")
        keys = [page for page in pages if re.match(r"\s*Tasten\n", page)]
        self.assertEqual(len(keys), 1)
        rows = re.findall(r"^\| (Strg\+\S+|Alt\+\S+|F\d+)", SOURCE.split("{#tasten}")[1],
            re.MULTILINE)
        self.assertGreater(len(rows), 8)
        for key in rows:
            self.assertIn(key.rstrip(","), keys[0])

    def test_f1_finds_a_chapter_for_every_tab(self):
        code = (ROOT / "app/manual.cpp").read_text(encoding="utf-8")
        body = code[code.index("QString ManualChapter"):]
        chapters = re.findall(r'QStringLiteral\("([^"]+)"\)', body[:body.index("}\n\n")])
        self.assertEqual(len(chapters), 4)
        for chapter in chapters:
            self.assertEqual(self.page.anchors.count(chapter), 1, chapter)

    def test_every_link_has_its_chapter(self):
        for link in self.page.links:
            self.assertTrue(link.startswith("#"), f"the manual needs no network: {link}")
            self.assertIn(link[1:], self.page.anchors)

    def test_anchors_are_unique(self):
        self.assertEqual(len(self.page.anchors), len(set(self.page.anchors)))

    def test_the_chapters_of_a_club_year_are_there(self):
        for chapter in ["Das erste Jahr", "Ein normales Jahr", "Neue und ausscheidende Mitglieder",
                        "Der Jahreswechsel", "Zwei Konten", "Sichern und Wiederherstellen",
                        "Alle Meldungen", "Eigenheiten", "Tasten"]:
            self.assertIn(chapter, self.page.headings)

    def test_pictures_are_beside_the_page_and_described(self):
        for picture in self.page.pictures:
            self.assertTrue((FOLDER / picture["src"]).exists(), picture["src"])
            self.assertTrue(picture["alt"])

    def test_the_page_is_german_and_complete(self):
        self.assertIn('<html lang="de">', self.html)
        self.assertIn("<title>Handbuch Kleingarten Parzello</title>", self.html)
        self.assertTrue(self.html.endswith("</html>\n"))

    def test_no_markup_is_left_over(self):
        text = re.sub(r"<[^>]*>", "", self.html)
        for leftover in ["**", "`", "](", "{#", "[TOC]"]:
            self.assertNotIn(leftover, text)

    def test_the_pdf_holds_the_whole_manual_with_page_numbers(self):
        text = subprocess.run(["pdftotext", "-layout", FOLDER / "handbuch.pdf", "-"],
                              capture_output=True, text=True, check=True).stdout
        pages = text.split("\f")[:-1]
        for number, page in enumerate(pages, 1):
            self.assertEqual(str(number), page.split()[-1])
        for heading in self.page.headings:
            self.assertIn(plain(heading), plain(text))
        contents = dict(re.findall(r"^ +\W (.+?) +(\d+)$", pages[0], re.MULTILINE))
        self.assertGreater(len(contents), 8)
        for chapter, number in contents.items():
            lines = [plain(line) for line in pages[int(number) - 1].splitlines()]
            self.assertIn(plain(chapter), lines)
        self.assertIn("Tasten", contents)

    def test_every_message_of_the_program_is_explained(self):
        explained = plain(SOURCE)
        missing, seen = [], 0
        for folder in ["app", "backup", "cashbook", "check", "controls", "data", "history", "members",
                       "money", "outgoing", "report", "settings", "statement"]:
            for path in sorted((ROOT / folder).glob("*.*")):
                name = f"{folder}/{path.name}"
                if path.suffix not in (".cpp", ".h") or name in NO_MESSAGE_FILES:
                    continue
                for text in messages_of(path):
                    seen += 1
                    pieces = [plain(piece) for piece in re.split(r"%\d", text)]
                    if not all(piece in explained for piece in pieces):
                        missing.append(f"{name}: {text}")
        self.assertGreater(seen, 60, "the messages were not found")
        self.assertEqual([], missing)

    def test_every_rule_of_the_check_report_has_its_row(self):
        rows = re.findall(r"^\| (C\d\d[a-z]?) \| (?:Fehler|Warnung|Hinweis) \| .+ \| .+ \|$", SOURCE,
                          re.MULTILINE)
        code = "".join(path.read_text(encoding="utf-8")
                       for path in sorted((ROOT / "check").glob("*.cpp")))
        rules = set(re.findall(r'u"(C\d\d[a-z]?)"_s', code))
        variants = {rule for rule in rules if rule[-1].isalpha()}
        alone = rules - {variant[:3] for variant in variants} - variants
        self.assertGreater(len(variants), 50)
        self.assertEqual([], sorted((variants | alone) - set(rows)))

    def test_the_questions_of_the_program_stand_word_for_word(self):
        for folder in ["app", "backup", "cashbook", "settings"]:
            path = ROOT / folder / "texts.h"
            for name in re.findall(r"QString (Ask\w+|\w+Message|\w+Warning)\b",
                                   path.read_text(encoding="utf-8") if path.exists() else ""):
                code = path.read_text(encoding="utf-8")
                adjacent = re.search(r'(?:u?"(?:[^"\\\n]|\\.)*"(?:_s)?\s*)+', code[code.index(name):])
                text = "".join(part.group(1) for part in LITERAL.finditer(adjacent.group()))
                for piece in re.split(r"%\d", text):
                    self.assertIn(plain(piece), plain(SOURCE), name)


if __name__ == "__main__":
    FOLDER = Path(sys.argv.pop(1))
    unittest.main()
