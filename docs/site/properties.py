"""The properties of a record as its header declares them, for the pages of the site."""

import html
import os
import re

# The arguments of a macro, with its brackets.
ARGUMENTS = r"\((?:[^()]|\((?:[^()]|\([^()]*\))*\))*\)"
# A property, with the comment above it.
PROPERTY = re.compile(r"((?:^ *///.*\n)*)^ *PERCH_(PROPERTY|PROPERTY_SET_BY|CONSTANT|COMPUTED)"
                      rf"({ARGUMENTS});", re.M)
# A record: its comment, its name, its base, and all up to the end of its properties.
RECORD = re.compile(r"((?:^///.*\n)+)(class (\w+)\b[^;{]*\{\n(?:(?!class ).*\n)*? *PERCH_RECORD"
                    r"(?:_FROM_JSON)?\(\w+, (?:\w+::)*(\w*)\);\n(?:.*\n)*? *PERCH_RECORD_END;)",
                    re.M)
ROOT = "PerchAppLibrary/record/BaseEntity.hpp"
ZEROS = {"std::int64_t": "0", "float": "0", "double": "0", "bool": "false", "JSON": "null"}


def arguments(text):
    """Splits the arguments of a macro at the commas outside of brackets."""
    parts, depth = [""], 0
    for character in text[1:-1]:
        depth += (character in "(<{") - (character in ")>}")
        if character == "," and depth == 0:
            parts.append("")
        else:
            parts[-1] += character
    return [" ".join(part.split()) for part in parts]


def plain(declared):
    """Returns the type that accessors take and return."""
    return re.sub(r"^(?:Rare|Near)<(.*)>$", r"\1", declared)


def zero(declared):
    if declared in ZEROS:
        return ZEROS[declared]
    return "null" if re.match("std::(optional|shared_ptr)", declared) else "empty"


class Property:
    def __init__(self, match):
        words = arguments(match.group(3))
        self.kind, self.name = match.group(2), words[1]
        self.type = plain(words[0]).replace("PerchAppLibrary::", "")
        self.meaning = " ".join(re.findall(r"^ */// ?(.*)$", match.group(1), re.M))
        self.default = ""
        if self.kind != "COMPUTED":
            given = words[3:] if self.kind == "PROPERTY_SET_BY" else words[2:]
            self.default = given[0] if given else zero(self.type)

    def source(self):
        if self.kind in ("COMPUTED", "CONSTANT"):
            return self.kind.lower()
        return f"<code>{self.name}</code>"


def properties(text):
    return [Property(match) for match in PROPERTY.finditer(text)]


def exported(path, own, inherited):
    """Returns the names in Dict(), as its definition beside the header says; without a Dict(), the
    names of all stored properties."""
    stored = {each.name for each in own + inherited if each.kind != "COMPUTED"}
    if all(each.name != "Dict" for each in own):
        return stored
    with open(os.path.splitext(path)[0] + ".cpp", encoding="utf-8") as file:
        source = file.read()
    lists = {kind: set(re.findall(r'"(\w+)"', names))
             for kind, names in re.findall(r"\b(KeyList|Excluded)\{([^}]*)\}", source)}
    added = set(re.findall(r'dictionary\["(\w+)"\]', source))
    return lists.get("KeyList", stored - lists.get("Excluded", set()) | added)


def table(path, record, base, own):
    """Returns a table of a record's properties, as HTML in one line."""
    names = {each.name for each in own}
    with open(ROOT, encoding="utf-8") as file:
        inherited = [] if path == ROOT else properties(file.read())
    in_export = exported(path, own, inherited)
    function = "Dict()" if "Dict" in names else "properties()"

    def code(text):
        return f"<code>{html.escape(text, quote=False)}</code>" if text else ""

    def linked(meaning):
        return re.sub(r"\b(\w+)\(\)", lambda match: match.group(0) if match.group(1) not in names
                      else f'<a href="#{record}-{match.group(1)}">{match.group(0)}</a>', meaning)

    def row(each):
        cells = (f'<a name="{record}-{each.name}"></a>{code(each.name)}', code(each.type),
                 each.default if each.default == "empty" else code(each.default),
                 linked(each.meaning), "yes" if each.name in in_export else "no", each.source())
        return "<tr>" + "".join(f"<td>{cell}</td>" for cell in cells) + "</tr>"

    titles = ("Property", "Type", "Default", "Meaning", f"In {code(function)}", "Filled from key")
    result = (f'<table class="properties"><tr>{"".join(f"<th>{each}</th>" for each in titles)}'
              f'</tr>{"".join(map(row, own))}</table>')
    if base and base != "BaseEntity":
        return f"{result} Also the properties of {base}."
    if not inherited:
        return result
    all_names = ", ".join(code(each.name) for each in inherited)
    is_exported = all(each.name in in_export for each in inherited)
    note = "has these, too" if is_exported else "has none of these"
    return f"{result} Also the properties of {base}: {all_names}. {code(function)} {note}."


def with_tables(path, text):
    """Puts a table into the comment of each record, behind the first paragraph. Takes away the
    comments of the properties, which are in the table."""
    def document(match):
        comment, body, record, base = match.groups()
        own = properties(body)
        if own:
            first, gap, rest = comment.partition("\n///\n")
            comment = first.rstrip("\n") + "\n///\n/// " + table(path, record, base, own) + "\n" + \
                ("///\n" + rest if gap else "")
            body = PROPERTY.sub(lambda each: each.group(0).replace(
                each.group(1), "\n" * each.group(1).count("\n"), 1), body)
        return comment + body
    return RECORD.sub(document, text)
