#!/usr/bin/env python3
"""Opens the documentation site in Chromium: check.py FOLDER, which holds html/.

The front page, the search and a class show what they should, and no page scrolls sideways on a
telephone or on a desktop. Screenshots are kept in FOLDER. linkchecker looks for broken links.
"""
import pathlib
import sys

from selenium import webdriver
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.wait import WebDriverWait

WIDTHS = {"telephone": 400, "desktop": 1400}
SHOWN = ["index", "getting-started", "client", "records", "architecture", "performance",
         "classVelmoCloudEntity_1_1FontItem"]
# What sticks out of the page: the page itself, or the part of it that scrolls.
SIDEWAYS = """
return [document.documentElement, document.body, document.getElementById('doc-content')]
    .filter(part => part && part.scrollWidth > part.clientWidth + 1)
    .map(part => (part.id || part.tagName) + ' is ' + part.scrollWidth + ' wide, ' +
        part.clientWidth + ' shown');
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


def is_found(name):
    """Returns whether the results of the search come to show a name. Old Doxygens have a frame."""
    browser.find_element(By.ID, "MSearchField").send_keys(name, Keys.ENTER)
    results = browser.find_element(By.ID, "MSearchResults")
    if results.tag_name == "iframe":
        browser.switch_to.frame(results)
    return WebDriverWait(browser, 10).until(
        lambda _: name.lower() in browser.find_element(By.TAG_NAME, "body").text.lower())


with webdriver.Chrome(options=options) as browser:
    resize(WIDTHS["desktop"])
    for page, words in {"index.html": ["Getting started"], "RecordTree_8hpp.html": ["forEachLeaf"],
                        "classVelmoCloudEntity_1_1FontItem.html": [
                            "ProductName()", "setProductName(", 'JSON key "ProductName"']}.items():
        faults += [f"{page} does not show {word}" for word in words if word not in text(page)]
    if "Getting started" not in text("index.html") or not is_found("setProductName"):
        faults.append("the search does not find setProductName")
    browser.save_screenshot(str(folder / "search.png"))
    for page in sorted((folder / "html").glob("*.html")):
        browser.get(page.as_uri())
        for name, width in WIDTHS.items():
            resize(width)
            faults += [f"{page.name} at {width} pixels: {each}"
                       for each in browser.execute_script(SIDEWAYS)]
            if page.stem in SHOWN:
                browser.save_screenshot(str(folder / f"{name}-{page.stem}.png"))
sys.exit("\n".join(faults) or None)
