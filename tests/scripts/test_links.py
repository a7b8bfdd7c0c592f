#!/usr/bin/env python3
"""Every link of the papers leads to a file or heading that is there; addresses elsewhere are whole."""
import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


def papers(root):
    listed = subprocess.run(["git", "-C", root, "ls-files", "*.md"], capture_output=True, text=True)
    names = listed.stdout.split() if listed.returncode == 0 else []
    return [root / name for name in names] or sorted(root.rglob("*.md"))


def anchors(text):
    text = re.sub(r"```.*?```", "", text, flags=re.DOTALL)
    found = set(re.findall(r"\{#([\w-]+)\}", text))
    for heading in re.findall(r"^#+ (.+)$", text, flags=re.MULTILINE):
        plain = re.sub(r"\{#.*?\}|[`*_]", "", heading).strip().lower()
        found.add(re.sub(r"\s", "-", re.sub(r"[^\w\s-]", "", plain)))
    return found


def links(text):
    text = re.sub(r"```.*?```", "", text, flags=re.DOTALL)
    text = re.sub(r"`[^`\n]*`", "", text)
    return re.findall(r"\]\(<?([^)>\s]+)>?\)", text) + re.findall(r'(?:src|href)="([^"]+)"', text)


def faults_of(paper):
    text = paper.read_text(encoding="utf-8")
    for link in links(text):
        if re.match(r"[a-z]+:", link):
            if not re.fullmatch(r"(https://[\w.-]+\.\w+(/\S*)?|mailto:\S+@\S+)", link):
                yield f"{paper}: no whole address: {link}"
            continue
        name, _, anchor = link.partition("#")
        target = (paper.parent / name) if name else paper
        if not target.exists():
            yield f"{paper}: nothing is at {link}"
        elif anchor and target.suffix == ".md" and anchor not in anchors(target.read_text(encoding="utf-8")):
            yield f"{paper}: no heading for {link}"


def check_itself(folder):
    """The check finds what is broken, and only that."""
    good, bad = folder / "good.md", folder / "bad.md"
    good.write_text("# Ein Wort\n[a](#ein-wort) [b](bad.md) [c](https://a.example/x)\n", encoding="utf-8")
    bad.write_text("[a](#fort) [b](fort.md) [c](http:/x) ![d](fort.png)\n", encoding="utf-8")
    assert not list(faults_of(good)), list(faults_of(good))
    assert len(list(faults_of(bad))) == 4, list(faults_of(bad))


def main():
    import tempfile
    with tempfile.TemporaryDirectory() as folder:
        check_itself(Path(folder))
    found = papers(ROOT)
    assert len(found) > 5, found
    faults = [fault for paper in found for fault in faults_of(paper)]
    sys.exit("\n".join(faults) or 0)


main()
