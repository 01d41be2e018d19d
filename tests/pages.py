#!/usr/bin/env python3
"""Checks pages of Markdown: pages.py OUTPUT PAGE... makes a program of their code, and
pages.py --links PAGE... fails if a link leads to a file or a heading that is not there.

Each block of C++ is compiled and run. On a page, blocks of statements continue each other. Blocks
that begin with a class, a function or an #include stand before them, those of README.md before all
pages. A block with a main() stands alone.
"""

import os
import pathlib
import re
import sys

PRELUDE = """// The code on the guides. Made by tests/pages.py.
#undef NDEBUG
#include <cassert>
"""
BLOCK = re.compile(r"^```(\w*)\n(.*?)^```$", re.M | re.S)
DECLARATION = re.compile(r"#include |(///.*\n)*((class|struct|template) |"
                         r"[\w:<>]+ \w+\(.*\) \{$)", re.M)


def heading_id(heading):
    """The identifier by which web hosts of repositories link to a heading."""
    return re.sub(r"[^\w\- ]", "", heading.lower()).strip().replace(" ", "-")


def broken_links(path, text):
    for target in re.findall(r"\[[^\]]+\]\(([^)\s]+)\)", BLOCK.sub("", text)):
        if re.match(r"[a-z]+:", target):
            continue
        target, _, fragment = target.partition("#")
        file = os.path.join(os.path.dirname(path), target) if target else path
        if not os.path.exists(file):
            yield f"{path}: no file for the link to {target}"
        elif fragment:
            headings = re.findall(r"(?m)^#+ (.*)", pathlib.Path(file).read_text(encoding="utf-8"))
            if fragment not in map(heading_id, headings):
                yield f"{path}: no heading for the link to {target}#{fragment}"


class Program:
    """The parts of the program, in their order."""

    def __init__(self):
        self.includes, self.programs, self.common, self.pages, self.calls = set(), "", "", "", ""

    def add_page(self, path, text):
        name = "page_" + re.sub(r"\W", "_", os.path.basename(path))
        declarations, statements = "", ""
        for block in BLOCK.finditer(text):
            if block.group(1) != "cpp":
                continue
            line = text.count("\n", 0, block.start(2)) + 1
            self.includes.update(re.findall(r"^#include .*", block.group(2), re.M))
            code = f'#line {line} "{path}"\n' + re.sub(r"(?m)^#include .*", "", block.group(2))
            if "int main() {" in code:
                code = code.replace("int main() {", "int run() {")
                self.programs += f"namespace {name}_{line} {{\n{code}}}\n"
                self.calls += f"assert({name}_{line}::run() == 0);\n"
            elif DECLARATION.match(block.group(2)):
                declarations += code
            else:
                statements += code
        if os.path.basename(path) == "README.md": # what the code on all pages needs
            self.common = declarations
        else:
            self.pages += f"namespace {name} {{\n{declarations}void run() {{\n{statements}}}\n}}\n"
            self.calls += f"{name}::run();\n"

    def text(self):
        return "".join([PRELUDE, "\n".join(sorted(self.includes)), "\n", self.programs, self.common,
                        self.pages, "int main() {\n", self.calls, "}\n"])


def main():
    texts = {path: pathlib.Path(path).read_text(encoding="utf-8") for path in sys.argv[2:]}
    if sys.argv[1] == "--links":
        faults = [fault for path, text in texts.items() for fault in broken_links(path, text)]
        sys.exit("\n".join(faults) or None)
    program = Program()
    for path, text in texts.items():
        program.add_page(path, text)
    pathlib.Path(sys.argv[1]).write_text(program.text(), encoding="utf-8")


main()
