#!/usr/bin/python3 -B
"""Looks at the built manual in a browser without a window: no page is wider than a narrow window, no script fails,
light pages are light and dark ones dark, and the search finds what readers look for.

  browser_check.py HTML_DIRECTORY"""

import sys
import tempfile
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.support.ui import WebDriverWait

# No profile of anybody's, no sandbox for a caller who may be root, and nothing that asks the network.
OPTIONS = [
    "--headless",
    "--no-sandbox",
    "--disable-gpu",
    "--disable-quic",
    "--no-first-run",
    "--disable-background-networking",
    "--disable-component-update",
    "--disable-sync",
    "--allow-file-access-from-files",
]
NARROW = 390
SEARCHES = {
    "TWO_SIDED": "catalogue/kmt_svc_scan.html",
    "comment": "language.html",
    "jt_override_attribute_value": "c/changes.html",
}


# The theme hides what is wider than the window, or lets all of the text be moved sideways.
WIDTH = "return Math.max(...['html', '.main', '.content'].map(e => document.querySelector(e)?.scrollWidth || 0))"


def browser(profile):
    options = webdriver.ChromeOptions()
    options.binary_location = "/usr/bin/chromium"
    for option in [*OPTIONS, "--user-data-dir=" + profile]:
        options.add_argument(option)
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


def set_window(driver, width, scheme):
    size = {"width": width, "height": 844, "deviceScaleFactor": 1, "mobile": False}
    driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", size)
    feature = {"name": "prefers-color-scheme", "value": scheme}
    driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {"features": [feature]})


def faulty_pages(driver, folder):
    set_window(driver, NARROW, "light")
    for page in sorted(folder.rglob("*.html")):
        driver.get(page.as_uri())
        width = driver.execute_script(WIDTH)
        if width > NARROW:
            yield f"{page.relative_to(folder)}: {width} pixels wide in a window of {NARROW}"
        for entry in driver.get_log("browser"):
            yield f"{page.relative_to(folder)}: {entry['message']}"


def brightness(driver):
    """Of the page behind the text, 0 to 255."""
    color = driver.execute_script("return getComputedStyle(document.body).backgroundColor")
    return max(int(part) for part in color[color.index("(") + 1 : -1].split(",")[:3])


def wrong_colours(driver, folder):
    for scheme, bright in (("light", True), ("dark", False)):
        set_window(driver, 1280, scheme)
        driver.get((folder / "model.html").as_uri())
        if (brightness(driver) > 127) != bright:
            yield f"a page that is to be {scheme} is not"
        picture = driver.find_element(By.CSS_SELECTOR, "article img")
        if ("invert" in picture.value_of_css_property("filter")) == bright:
            yield f"a picture does not fit to a {scheme} page"


def vain_searches(driver, folder):
    set_window(driver, 1280, "light")
    for words, page in SEARCHES.items():
        driver.get((folder / "search.html").as_uri() + "?q=" + words)
        links = "#search-results li a"
        try:
            WebDriverWait(driver, 20).until(lambda d: "finished" in d.find_element(By.ID, "search-results").text)
        except Exception:
            yield f"a search for {words} does not end"
            continue
        found = [link.get_attribute("href") for link in driver.find_elements(By.CSS_SELECTOR, links)]
        if not any(page in link for link in found):
            yield f"a search for {words} does not find {page}"


def findings(folder):
    with tempfile.TemporaryDirectory() as profile:
        driver = browser(profile)
        try:
            return [*faulty_pages(driver, folder), *wrong_colours(driver, folder), *vain_searches(driver, folder)]
        finally:
            driver.quit()


def main():
    found = findings(Path(sys.argv[1]).resolve())
    print("\n".join(found), end="\n" if found else "")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
