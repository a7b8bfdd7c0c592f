#!/usr/bin/env python3
"""scripts/check-shape counts the files that touch a control and names what is too long."""
import subprocess
import sys
import tempfile
from pathlib import Path

CHECK = Path(__file__).resolve().parents[2] / "scripts" / "check-shape"


def routine(lines):
    return "void Fill(Program& program)\n{\n" + "    Step();\n" * (lines - 3) + "}\n"


HOUSE = {
    "CMakeLists.txt": "add_subdirectory(backup)\nadd_subdirectory(tests)\n",
    "backup/backup_form.h": "struct BackupForm {\n    QLabel* Text1 = nullptr;\n"
    "    std::array<QPushButton*, 2> Command3 {};\n    QString Text9;\n};\n",
    "backup/backup_form.cpp": "// tab.Text1\nvoid Build()\n{\n    form.Text1 = 0;\n    form.Command3[1] = 0;\n}\n"
    + routine(40),
    "backup/other.cpp": 'const auto words = "form.Text1 form->Command3";\n',
}


def run(changes):
    with tempfile.TemporaryDirectory() as folder:
        for name, text in {**HOUSE, **changes}.items():
            path = Path(folder) / name
            path.parent.mkdir(exist_ok=True)
            path.write_text(text)
        done = subprocess.run([CHECK, folder], capture_output=True, text=True)
        return done.returncode, done.stdout, done.stderr


def must_fail(changes, words):
    code, _, said = run(changes)
    if code == 0 or words not in said:
        sys.exit(f"expected a complaint with {words!r}, got {code}: {said!r}")


code, said, faults = run({})
if code != 0 or "backup       2 controls, 1.00 files" not in said:
    sys.exit(f"a house in order was rejected: {said}{faults}")
must_fail({"backup/other.cpp": "int x = tab->Text1;\n"}, "backup/: 1.50 files touch one control, more than 1.0")
must_fail({"backup/other.cpp": "\n" * 301}, "backup/other.cpp: 301 lines, more than 300")
must_fail({"backup/other.cpp": "\n" + routine(41)}, "backup/other.cpp:2: Fill has 41 lines, more than 40")
code, _, faults = run({"backup/other.cpp": routine(41).replace("{\n", "{\n// clang-format off\n").replace("}", "// clang-format on\n}")})
if code != 0:
    sys.exit(f"a table was counted: {faults}")
must_fail({"backup/other.h": "struct Other {\n" + routine(41) + "};\n"}, "backup/other.h:2: Fill has 41 lines")
