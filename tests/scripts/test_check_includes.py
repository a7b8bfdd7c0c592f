#!/usr/bin/env python3
"""scripts/check-includes accepts what the rules allow and names every breach of them."""
import subprocess
import sys
import tempfile
from pathlib import Path

CHECK = Path(__file__).resolve().parents[2] / "scripts" / "check-includes"
HOUSE = {
    "data/CMakeLists.txt": "parzello_plain_library(data SOURCES\n    lines.cpp\n"
    "    files_${PARZELLO_SYSTEM}.cpp\n)\n",
    "data/lines.h": "#include <QString>\n#include <vector>\n",
    "data/lines.cpp": '#include "data/lines.h"\n#include "data/files.h"\n',
    "data/files.h": "#include <QString>\n",
    "data/files_linux.cpp": '#include "data/files.h"\n#include <unistd.h>\n',
    "members/CMakeLists.txt": "parzello_plain_library(members SOURCES lists.cpp KNOWS data)\n",
    "members/lists.h": '#include "data/lines.h"\n',
    "members/lists.cpp": '#include "members/lists.h"\n',
    "members/member_form.h": "struct MemberForm {\n    int* Text3 = nullptr;\n};\n"
    "void BuildMemberForm(Program& program);\n",
    "members/member_form.cpp": '#include "members/member_form.h"\n#include "app/program.h"\n#include <QLabel>\n'
    "void BuildMemberForm(Program& program)\n{\n    form.Text3 = Named(new QLineEdit);\n"
    "    On(program, form.Text3, &QLineEdit::textEdited, MemberTyped);\n}\n",
    "members/member_tab_form.h": "void BuildMemberTab(Program& program);\n",
    "members/member_tab_form.cpp": '#include "members/member_tab_form.h"\n#include "members/member_form.h"\n'
    "void BuildMemberTab(Program& program)\n{\n    BuildMemberForm(program);\n}\n",
    "controls/fields.h": '#include "data/lines.h"\n#include <QLineEdit>\n',
    "controls/fields.cpp": '#include "controls/fields.h"\n',
    "app/program.h": '#include "members/member_form.h"\n',
}


def run(changes):
    with tempfile.TemporaryDirectory() as folder:
        for name, text in {**HOUSE, **changes}.items():
            path = Path(folder) / name
            path.parent.mkdir(exist_ok=True)
            path.write_text(text)
        done = subprocess.run([CHECK, folder], capture_output=True, text=True)
        return done.returncode, done.stderr


def must_fail(changes, words):
    code, said = run(changes)
    if code == 0 or words not in said:
        sys.exit(f"expected a complaint with {words!r}, got {code}: {said!r}")


code, said = run({})
if code != 0:
    sys.exit(f"a house in order was rejected: {said}")
must_fail({"data/lines.h": "#include <QLabel>\n"}, "data/lines.h:1: a plain file may not know <QLabel>")
must_fail({"data/lines.h": "#include <QtWidgets/QLabel>\n"}, "<QtWidgets/QLabel>")
must_fail({"data/lines.cpp": '#include "members/lists.h"\n'}, "data/ may not know members/")
must_fail({"members/lists.cpp": '\n#include "app/program.h"\n'}, "members/lists.cpp:2: only forms and app/")
must_fail({"members/lists.h": '#include "members/member_form.h"\n'}, "only forms and app/")
must_fail({"controls/fields.cpp": '#include "members/lists.h"\n'}, "controls/ may not know members/")
must_fail({"app/program.h": '#include "lists.h"\n'}, "is no path from the root")
must_fail(
    {
        "members/painter.h": "#include <QPainter>\n",
        "members/painter.cpp": "",
        "members/lists.cpp": '#include "members/painter.h"\n',
    },
    "a plain file may not know members/painter.h",
)
must_fail({"data/lines.cpp": "#include <sys/stat.h>\n"}, "only a file named after its system may know <sys/stat.h>")
must_fail({"data/files.h": "#include <cerrno>\n"}, "data/files.h:1: only a file named after its system")
must_fail({"data/files_linux.cpp": "#include <QWidget>\n"}, "a plain file may not know <QWidget>")
must_fail({"members/names_form.cpp": ""}, "members/names_form.cpp: has and includes no header of its own name")
must_fail(
    {
        "members/names_form.h": "void BuildNames(Program& program);\nvoid ShowNames(\n    Program& program);\n",
        "members/names_form.cpp": '#include "members/names_form.h"\nvoid BuildNames(Program& program)\n{\n}\n',
    },
    "members/names_form.h: ShowNames is not done in members/names_form.cpp",
)
must_fail(
    {"app/more.cpp": "void More(Program& program)\n{\n    BuildMemberForm(program);\n}\n"},
    "BuildMemberForm is called by members/member_tab_form.cpp and app/more.cpp: one file arranges",
)
must_fail(
    {"app/more.cpp": "void More()\n{\n    On(program, program.Tab.Text3, &QLineEdit::textEdited, Typed);\n}\n"},
    "Text3 is made or connected in app/more.cpp and members/member_form.cpp",
)
must_fail(
    {"app/more.cpp": "void More()\n{\n    tab.Text3 = new QLineEdit(page);\n}\n"},
    "Text3 is made or connected in app/more.cpp and members/member_form.cpp",
)
must_fail(
    {"members/member_form.cpp": HOUSE["members/member_form.cpp"] + '#include "members/member_tab_form.h"\n'},
    "members/member_form -> members/member_tab_form -> members/member_form: a circle of includes",
)
must_fail({"data/lines.h": '#include "data/files.h"\n', "data/files.h": '#include "data/lines.h"\n'}, "a circle")
