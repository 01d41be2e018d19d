#!/usr/bin/env python3
"""Prepares one file for Doxygen: filter.py FILE prints it.

In a header, each macro of record/Record.hpp becomes the functions that it declares, and each record
gets a table of its properties. In a guide, headings get identifiers, and links to them, to headers
and to other files of the repository get the forms that the site needs. The list of examples gets
their sources.
"""

import glob
import os
import re
import sys

from properties import ARGUMENTS, arguments, plain, with_tables

MACRO = re.compile(rf"^ *(PERCH_[A-Z_]+)\b({ARGUMENTS})?;", re.M)


def accessors(declarations):
    """Declares functions in a group, without a comment: the table of properties has it."""
    return f"/** @name Getters and setters *//** @{{ */ {declarations} /** @}} */"


def stored(line_type, name, setter, *default):
    own = plain(line_type)
    read = own if own in ("std::int64_t", "float", "double", "bool") else f"const {own}&"
    return accessors(f"virtual {read} {name}() const; virtual void {setter}({own} newValue);")


def record(name, has_defaults, has_json):
    made = f"template <class R = {name}> static std::shared_ptr<R>"
    functions = ["public:"]
    if has_defaults:
        functions.append(f"{made} create(); /**< Makes a record with the default of each property."
                         f" create<R>() makes an R, a subclass of {name}. */")
    if has_json:
        functions.append(f"{made} create(const JSON& json); /**< Makes a record and fills it from"
                         f" a JSON object. */ {made} parse(Text text); /**< Returns"
                         " create(JSON::parse(text)). Throws JSON::ParseError if the text is"
                         " malformed. */")
    return " ".join(functions)


def labels(owner, name, pairs):
    given = ", ".join(f".{label} = ..." for label, _ in pairs)
    setters = ", ".join(f"set{target}()" for _, target in pairs)
    return (f"template <class R = {owner}> static std::shared_ptr<R> create({name} labels);"
            f" /**< `create({{{given}}})` makes a record and calls {setters}. */")


def header(text):
    owner = ""
    has_json = "JSONFilling::none" not in text

    def declaration(match):
        nonlocal owner
        macro, words = match.group(1), arguments(match.group(2) or "()")
        if macro in ("PERCH_RECORD", "PERCH_RECORD_FROM_JSON"):
            owner = words[0]
            result = record(owner, macro == "PERCH_RECORD", has_json)
        elif macro == "PERCH_PROPERTY":
            result = stored(words[0], words[1], "set" + words[1])
        elif macro == "PERCH_PROPERTY_SET_BY":
            result = stored(*words)
        elif macro in ("PERCH_CONSTANT", "PERCH_COMPUTED"):
            result = accessors(f"virtual {words[0]} {words[1]}() const;")
        elif macro == "PERCH_LABELS":
            result = labels(owner, words[0], [arguments(pair) for pair in words[1:]])
        else:
            result = "public:"
        return result + "\n" * match.group(0).count("\n")

    text = re.sub(r"(?m)^ *friend (class|struct) \w+;", "", text)
    # Settings of a class that its base reads.
    text = re.sub(r"(?m)(^ *///.*\n)*^ *(using Self|static constexpr .*(parsing|jsonFilling)) =.*;",
                  "", text)
    return MACRO.sub(declaration, text)


def with_page(text):
    """Marks the comment of a header, since Doxygen makes no page without one. Cuts off helpers."""
    text = text.partition("\n// The macros above use the following ones.")[0]
    text, count = re.subn(r"\n(\n(?:///.*\n)+(?:\n|namespace ))", r"\n/// @file\1", text, count=1)
    return text if count else "/** @file */ " + text


def page_id(path):
    """The name of a guide's HTML file, without its ending."""
    folder, name = os.path.split(os.path.splitext(path)[0])
    if name != "README":
        return name
    return "index" if folder == "docs" else os.path.basename(folder)


def heading_id(page, heading):
    """The identifier of a heading: the one by which web hosts of repositories link to it."""
    return page + "-" + re.sub(r"[^\w\- ]", "", heading.lower()).strip().replace(" ", "-")


def guide(path, text):
    page = page_id(path)

    def link(match):
        # A label of Doxygen has no code.
        label, target = " ".join(match.group(1).replace("`", "").split()), match.group(2)
        if ":" in target:
            return match.group(0)
        target, _, fragment = target.partition("#")
        file = os.path.normpath(os.path.join(os.path.dirname(path), target)) if target else path
        lines = "\n" * match.group(0).count("\n")
        if re.match(r"examples/[\w-]+\.cpp$", file):
            return f'@ref {heading_id("examples", os.path.basename(file))} "{label}"{lines}'
        if re.match(r"docs/.*\.md$|examples/(client/)?README\.md$", file):
            place = heading_id(page_id(file), fragment) if fragment else page_id(file)
            return f'@ref {place} "{label}"{lines}'
        if file.endswith(".hpp"):
            return f'@ref {os.path.basename(file)} "{label}"{lines}'
        return f"`{label}`{lines}" # a file that is not on the site

    def heading(match):
        if match.group(1) == "#":
            return match.group(0) if page == "index" else f"{match.group(0)} {{#{page}}}"
        return f"{match.group(0)} {{#{heading_id(page, match.group(2))}}}"

    if not text.startswith("#"):
        text = f"# {page.capitalize()}\n\n{text}"
    if page == "examples":
        for file in sorted(glob.glob("examples/*.cpp")):
            with open(file, encoding="utf-8") as source:
                text += f"\n## {os.path.basename(file)}\n\n```cpp\n{source.read()}```\n"
    parts = re.split(r"(^```.*?^```$)", text, flags=re.M | re.S)
    for index in range(0, len(parts), 2): # what is not code
        # Doxygen takes one backtick and a quote for a quotation.
        parts[index] = re.sub(r"(?<!`)`([^`]+)`(?!`)", lambda code:
                              f"`{code.group()}`" if "'" in code.group() else code.group(),
                              parts[index])
        # It looks for an image by its name.
        parts[index] = re.sub(r"(!\[[^\]]+\]\()[^)\s]*/([^)\s]+\))", r"\1\2", parts[index])
        parts[index] = re.sub(r"(?<!!)\[([^\]]+)\]\(([^)\s]+)\)", link, parts[index])
        parts[index] = re.sub(r"(?m)^(#+) (.*)$", heading, parts[index])
    return "".join(parts)


def main():
    path = os.path.relpath(sys.argv[1])
    with open(path, encoding="utf-8") as file:
        text = file.read()
    if path.endswith(".md"):
        text = guide(path, text)
    else:
        text = with_page(text if path.endswith("record/Record.hpp") else
                         header(with_tables(path, text)))
    sys.stdout.write(text)


main()
