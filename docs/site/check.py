#!/usr/bin/env python3
"""Opens the documentation site in Chromium: check.py FOLDER, which holds html/.

The front page and a class show what they should, the search finds first the page that a person
means, and no page scrolls sideways on a telephone or on a desktop. Screenshots are kept in FOLDER.
linkchecker looks for broken links.
"""
import pathlib
import sys

from selenium import webdriver
from selenium.webdriver.common.by import By
from selenium.webdriver.support.wait import WebDriverWait

WIDTHS = {"telephone": 400, "desktop": 1400}
SHOWN = ["index", "getting-started", "client", "records", "architecture", "performance",
         "classVelmoCloudEntity_1_1FontItem"]
# What a person types, and the address that comes first.
QUESTIONS = {"install": "getting-started.html", "activate": "searching.html#searching-activat",
             "nested array": "records.html#records-nested-arrays", "search": "searching.html",
             "preview font": "locations.html", "save settings": "examples-settingscpp",
             "thread": "threads.html", "progress": "screen-in-a-worker-thread",
             "setProductName": "FontItem.html", "error code": "errors.html#errors-errors-of",
             "how do I override a setter": "records.html#records-overriding"}
# What sticks out of the page: the page itself, or the part of it that scrolls.
SIDEWAYS = """
return [document.documentElement, document.body, document.getElementById('doc-content')]
    .filter(part => part && part.scrollWidth > part.clientWidth + 1)
    .map(part => (part.id || part.tagName) + ' is ' + part.scrollWidth + ' wide, ' +
        part.clientWidth + ' shown');
"""
# Text that Doxygen did not read: a backtick outside of code, or a piece of a table within code.
UNREAD = """
const broken = document.querySelector('.contents')?.textContent.match(/[^]{0,20}.ilinebr/)?.[0];
const copy = document.querySelector('.contents')?.cloneNode(true);
copy?.querySelectorAll('code, pre, .fragment, script').forEach(part => part.remove());
return broken ?? copy?.textContent.match(/[^]{0,20}`[^]{0,20}/)?.[0];
"""
folder = pathlib.Path(sys.argv[1]).resolve()
options = webdriver.ChromeOptions()
for option in ("headless", "no-sandbox", "hide-scrollbars", "disable-dev-shm-usage"):
    options.add_argument("--" + option)
faults = []


def text(page):
    browser.get((folder / "html" / page).as_uri())
    return browser.find_element(By.CLASS_NAME, "contents").text.replace(" (", "(")


def resize(width):
    browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
        "width": width, "height": 900, "deviceScaleFactor": 1, "mobile": False})


def found(question):
    """Returns the address of the first result of the search."""
    browser.get((folder / "html" / "index.html").as_uri())
    browser.find_element(By.ID, "find-field").send_keys(question)
    first = WebDriverWait(browser, 10).until(lambda _: browser.find_elements(
        By.CSS_SELECTOR, "#find-results a"))[0].get_attribute("href")
    browser.save_screenshot(str(folder / f"search-{question.replace(' ', '-')}.png"))
    return first


with webdriver.Chrome(options=options) as browser:
    resize(WIDTHS["desktop"])
    for page, words in {"index.html": ["Getting started"], "RecordTree_8hpp.html": ["forEachLeaf"],
                        "classVelmoCloudEntity_1_1FontItem.html": [
                            "Filled from key", "ProductName", "setProductName("]}.items():
        faults += [f"{page} does not show {word}" for word in words if word not in text(page)]
    for question, address in QUESTIONS.items():
        first = found(question)
        if address not in first:
            faults.append(f'the search for "{question}" finds {first} first, not {address}')
    for page in sorted((folder / "html").glob("*.html")):
        browser.get(page.as_uri())
        if unread := browser.execute_script(UNREAD):
            faults.append(f"{page.name} shows {unread!r}")
        for name, width in WIDTHS.items():
            resize(width)
            faults += [f"{page.name} at {width} pixels: {each}"
                       for each in browser.execute_script(SIDEWAYS)]
            if page.stem in SHOWN:
                browser.save_screenshot(str(folder / f"{name}-{page.stem}.png"))
sys.exit("\n".join(faults) or None)
