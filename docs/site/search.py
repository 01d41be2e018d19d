#!/usr/bin/env python3
"""Makes the index of the site's search: search.py FOLDER, the folder of the pages.

Each section of a guide, each class, property and function is one document. The index is a script,
search-data.js, which site.js loads from beside the page: a page that is opened as a file may load
scripts, but nothing else. Adds site.js to each page.
"""
import json
import pathlib
import re
import sys

from bs4 import BeautifulSoup
from lunr import lunr

# A guide answers a question, a class an exact name. Some guides tell what is inside, or measured.
BOOSTS = {"guide": 4, "inside": 1.5, "class": 1.5, "member": 1}
INSIDE = {"architecture", "client", "command", "examples", "from-reply-to-screen", "performance",
          "reliability", "results"}
# Pages that list what others say.
LISTS = re.compile(r"-members$|^(annotated|classes|functions|hierarchy|namespaces|namespacemembers|"
                   r"files|globals|dir_)|_8hpp$|_source$")


def words(text):
    """Separates words, and adds the parts of names such as setProductName."""
    separate = re.findall(r"\w+", text)
    parts = [part for word in separate for part in
             re.findall(r"[A-Z]?[a-z]+|[A-Z]+(?![a-z])|\d+", word) if part != word]
    return " ".join(separate + parts)


def clean(node):
    text = re.sub(r"\s+", " ", node.get_text(" ")).strip()
    return re.sub(r" (?=[,.;:)])|(?<=\() ", "", text)


class Page:
    def __init__(self, path):
        self.path = path
        soup = BeautifulSoup(path.read_text(encoding="utf-8"), "html.parser")
        self.title = clean(soup.find(class_="title")) if soup.find(class_="title") else ""
        self.title = re.sub(r" (Class|Struct|Namespace)( Template)? Reference$", "", self.title)
        self.title = self.title.rpartition("::")[2]
        self.contents = soup.find(class_="contents")
        self.is_guide = not re.match("class|struct|namespace", path.stem)
        self.kind = "inside" if path.stem in INSIDE else "guide"

    def documents(self):
        """Yields the kind, address, title and text of each document on the page."""
        return self.sections() if self.is_guide else self.members()

    def sections(self):
        """Yields the sections of a guide."""
        anchor, title, text = "", self.title, []
        for node in self.contents.find_all(["h1", "h2", "h3", "p", "li", "td", "th", "pre", "div"]):
            if node.name[0] == "h":
                yield self.kind, anchor, title, " ".join(text)
                mark = node.find("a", id=True)
                anchor, title, text = "#" + mark["id"] if mark else "", clean(node), []
            elif node.name != "div" and not node.find_parent(["li", "td"]) or \
                    "fragment" in node.get("class", []):
                text.append(clean(node))
        yield self.kind, anchor, title, " ".join(text)

    def members(self):
        """Yields the class, its properties, its functions, and its accessors."""
        table = self.contents.find("table", class_="properties")
        rows = table.extract().find_all("tr")[1:] if table else []
        about = self.contents.find(class_="textblock")
        yield "class", "", self.title, clean(about) if about else ""
        for row in rows:
            cells = row.find_all("td")
            anchor = cells[0].find("a")
            mark = anchor.get("name") or anchor.get("id")
            yield "member", "#" + mark, clean(cells[0]), clean(cells[3])
        for item in self.contents.find_all(class_="memitem"):
            mark = item.find_previous("a", id=re.compile("^a[0-9a-f]{32}$|^ga"))
            title = item.find_previous(class_="memtitle")
            title.find(class_="permalink").extract()
            yield "member", "#" + mark["id"], re.sub(r" \[\d/\d\]$", "", clean(title)), \
                clean(item.find(class_="memdoc"))
        names = {clean(row.find("td")) for row in rows}
        for cell in self.contents.find_all("td", class_="memItemRight"):
            row, name = cell.find_parent("tr"), cell.find("b")
            mark = row.find("a", id=re.compile("^a[0-9a-f]{32}$"))
            if mark and name and "inherit" not in row["class"] and clean(name) not in names:
                yield "member", "#" + mark["id"], clean(name), clean(cell)


def main(folder):
    sections, documents = [], []
    for path in sorted(folder.glob("*.html")):
        text = path.read_text(encoding="utf-8")
        path.write_text(text.replace("</head>", '<script src="site.js"></script>\n</head>', 1),
                        encoding="utf-8")
        page = Page(path)
        if LISTS.search(path.stem) or page.contents is None:
            continue
        for kind, anchor, title, body in page.documents():
            documents.append(({"id": str(len(sections)), "title": words(title), "names": title,
                               "page": words(page.title), "text": words(body)},
                              {"boost": BOOSTS[kind]}))
            sections.append([path.name + anchor, title, page.title, body[:2000]])
    fields = [{"field_name": "title", "boost": 8}, {"field_name": "names", "boost": 8},
              {"field_name": "page", "boost": 3}, {"field_name": "text", "boost": 1}]
    index = lunr(ref="id", fields=fields, documents=documents).serialize()
    (folder / "search-data.js").write_text(
        f"const searchSections = {json.dumps(sections, ensure_ascii=False)};\n"
        f"const searchIndex = {json.dumps(index, ensure_ascii=False)};\n", encoding="utf-8")


main(pathlib.Path(sys.argv[1]))
