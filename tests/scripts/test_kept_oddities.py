#!/usr/bin/env python3
"""Every text that the code marks with "// sic" stands in docs/kept-oddities.md.

A marked statement may hold other texts too; one of them has to be found there.
"""
import re
import sys
from pathlib import Path

root = Path(__file__).resolve().parents[2]
page = (root / "docs" / "kept-oddities.md").read_text(encoding="utf-8")
literal = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
folders = ["app", "backup", "cashbook", "controls", "members", "settings", "statement"]


def marked_texts(source):
    """The literals of the statement that ends before each mark; adjacent ones are one text."""
    start = 0
    for mark in re.finditer(r"//\s*sic\b", source):
        before = source[start : mark.start()].rstrip()
        start = mark.end()
        statement = re.split(r"[;{}]\s*\n|//[^\n]*\n", before.rstrip(";,)} \n"))[-1]
        joined = re.sub(r'"\s*\n\s*(?:u|QStringLiteral\()?"', "", statement)
        texts = [text.replace('\\"', '"') for text in literal.findall(joined)]
        yield [text for text in texts if re.search(r"[^\W\d]", text)]


marks = 0
faults = []
for path in sorted(p for folder in folders for p in (root / folder).glob("*.[ch]*")):
    source = path.read_text(encoding="utf-8")
    marks += len(re.findall(r"//\s*sic\b", source))
    for texts in marked_texts(source):
        if texts and not any(text.strip() in page for text in texts):
            faults.append(f"{path.relative_to(root)}: {texts} is marked sic, but not in docs/kept-oddities.md")
if marks == 0:
    faults.append("no text is marked sic")
if faults:
    sys.exit("\n".join(faults))
