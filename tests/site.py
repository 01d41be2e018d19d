#!/usr/bin/env python3
"""Checks the documentation site: site.py FOLDER, which holds html/.

No link inside the site is broken. In Chromium, the front page, the search and a class show what
they should, and no page scrolls sideways on a telephone or on a desktop. Screenshots are kept in
FOLDER.
"""

import base64
import html.parser
import json
import pathlib
import subprocess
import sys
import time
import urllib.error
import urllib.parse
import urllib.request

WIDTHS = {"telephone": 400, "desktop": 1400}
SHOWN = ["index", "getting-started", "client", "records", "architecture", "performance",
         "classVelmoCloudEntity_1_1FontItem"]


class Links(html.parser.HTMLParser):
    """The targets and the identifiers of one page."""

    def __init__(self, page):
        super().__init__()
        self.targets, self.names = [], set()
        self.feed(page.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        self.names.update(filter(None, (values.get("id"), tag == "a" and values.get("name"))))
        self.targets += [values[key] for key in ("href", "src", "data") if values.get(key)]


def broken_links(folder):
    """Lists each link to a file or an identifier that is not there."""
    pages = {page.name: Links(page) for page in folder.glob("*.html")}
    found = []
    for name, page in pages.items():
        for target in page.targets:
            if urllib.parse.urlsplit(target).scheme or target == "#":
                continue
            file, _, fragment = urllib.parse.unquote(target).partition("#")
            file = file or name
            if not (folder / file).exists():
                found.append(f"{name}: no file for {target}")
            elif fragment and file in pages and fragment not in pages[file].names:
                found.append(f"{name}: no place for {target}")
    return found


class Browser:
    """A headless Chromium, spoken to through chromedriver (W3C WebDriver)."""

    def __init__(self):
        self.driver = subprocess.Popen(["chromedriver", "--port=0"], text=True,
                                       stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        for line in self.driver.stdout:
            if "successfully on port" in line:
                self.address = "http://127.0.0.1:" + line.split()[-1].rstrip(".") + "/session"
                break
        # A container has little shared memory.
        options = {"args": ["--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
                            "--disable-dev-shm-usage"]}
        asked = {"alwaysMatch": {"browserName": "chrome", "goog:chromeOptions": options}}
        self.address += "/" + self.post("", capabilities=asked)["sessionId"]

    def post(self, command, **parameters):
        request = urllib.request.Request(self.address + command, json.dumps(parameters).encode())
        try:
            with urllib.request.urlopen(request, timeout=60) as reply:
                return json.load(reply)["value"]
        except urllib.error.HTTPError as error:
            sys.exit(f"chromedriver: {command}: {error.read().decode()[:500]}")

    def resize(self, width, height=900):
        self.post("/goog/cdp/execute", cmd="Emulation.setDeviceMetricsOverride", params={
            "width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})

    def open(self, page):
        self.post("/url", url=page.as_uri())

    def run(self, script):
        return self.post("/execute/sync", script=script, args=[])

    def wait_for_search(self, name, seconds=10):
        """Returns whether the results of the search come to show a name, in any case. Old Doxygens
        show them in a frame."""
        results = self.post("/element", using="css selector", value="#MSearchResults")
        is_frame = self.run("return document.getElementById('MSearchResults').tagName") == "IFRAME"
        end, is_found = time.monotonic() + seconds, False
        while not is_found and time.monotonic() < end:
            time.sleep(0.2)
            if is_frame:
                self.post("/frame", id=results)
            is_found = name.lower() in self.run("return document.body.innerText").lower()
            self.post("/frame", id=None)
        return is_found

    def save(self, file):
        with urllib.request.urlopen(self.address + "/screenshot") as reply:
            file.write_bytes(base64.b64decode(json.load(reply)["value"]))

    def close(self):
        """Ends Chromium, which would outlive chromedriver."""
        urllib.request.urlopen(urllib.request.Request(self.address, method="DELETE")).close()
        self.driver.terminate()
        self.driver.wait()


# What sticks out of the page: the page itself, or the part of it that scrolls.
SIDEWAYS = """
return [document.documentElement, document.body, document.getElementById('doc-content')]
    .filter(part => part && part.scrollWidth > part.clientWidth + 1)
    .map(part => (part.id || part.tagName) + ' is ' + part.scrollWidth + ' wide, ' +
        part.clientWidth + ' shown');
"""

TYPE = """
const field = document.getElementById('MSearchField');
field.focus();
field.value = '%s';
field.dispatchEvent(new KeyboardEvent('keyup', {bubbles: true}));
searchBox.OnSearchFieldChange(new KeyboardEvent('keyup', {keyCode: 13}));
"""


def faults_in_browser(browser, folder):
    """Lists what the pages do not show, or show badly."""
    found, html_folder = [], folder / "html"

    def expect(is_true, fault):
        if not is_true:
            found.append(fault)

    def text():
        return browser.run("return document.querySelector('.contents').innerText")

    browser.resize(WIDTHS["desktop"])
    browser.open(html_folder / "index.html")
    expect("Getting started" in text(), "the front page does not name the guides")
    browser.run(TYPE % "setProductName")
    expect(browser.wait_for_search("setProductName"), "the search does not find setProductName")
    browser.save(folder / "search.png")
    browser.open(html_folder / "classVelmoCloudEntity_1_1FontItem.html")
    for member in ("ProductName()", "setProductName(", "JSON key \"ProductName\"", "setActivated("):
        expect(member in text().replace(" (", "(").replace("( )", "()"),
               f"the page of FontItem does not show {member}")
    browser.open(html_folder / "RecordTree_8hpp.html")
    expect("forEachLeaf" in text(), "the page of RecordTree.hpp does not show forEachLeaf()")
    for page in sorted(html_folder.glob("*.html")):
        browser.open(page)
        for name, width in WIDTHS.items():
            browser.resize(width)
            found += [f"{page.name} at {width} pixels: {each}" for each in browser.run(SIDEWAYS)]
            if page.stem in SHOWN:
                browser.save(folder / f"{name}-{page.stem}.png")
    return found


def main():
    folder = pathlib.Path(sys.argv[1]).resolve()
    faults = broken_links(folder / "html")
    browser = Browser()
    try:
        faults += faults_in_browser(browser, folder)
    finally:
        browser.close()
    print(*faults, sep="\n", end="\n" if faults else "")
    sys.exit(1 if faults else 0)


main()
