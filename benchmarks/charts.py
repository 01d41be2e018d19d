#!/usr/bin/env python3
"""Draws the charts of the documentation: charts.py FOLDER reads FOLDER/results.json and writes the
charts beside it as SVG. They follow the light or dark scheme of the page's reader."""
import io
import json
import pathlib
import re
import sys

import matplotlib

matplotlib.use("svg")
matplotlib.rcParams.update({
    "svg.fonttype": "none", "svg.hashsalt": "velmo", "font.family": "sans-serif", "font.size": 10,
    "axes.spines.top": False, "axes.spines.right": False, "axes.titlesize": 11,
    "axes.titleweight": "bold", "axes.titlelocation": "left"})
from matplotlib import pyplot, ticker

# Each colour, and the one in place of it on a dark page.
DARK = {"#fefefe": "#1c1d1f", "#24292f": "#d6dce2", "#0969da": "#58a6ff", "#a8b1ba": "#636b74",
        "#d7dce1": "#3a3f45", "#9a5b00": "#e0a04a", "#1a7f37": "#56c271", "#8250df": "#bb95f5",
        "#bf3989": "#f07cc0", "#57606a": "#9aa4af"}
PAGE, INK, OURS, OTHERS, GRID = list(DARK)[:5]
LINES = list(DARK)[5:]
OUR_NAME = "VelmoCloudEntity"
matplotlib.rcParams.update({"text.color": INK, "axes.labelcolor": INK, "axes.titlecolor": INK})
FELT = {"First load": "first load", "Search for “sans”": 'key "sans", fuzzy',
        "Export as text": "export, default heap"}


def short(side):
    return side.replace(" by hand", "").replace(", literally", "")


def number(value):
    """Three digits, but at most two behind the point."""
    return f"{value:,.{2 if value < 10 else 1 if value < 100 else 0}f}"


def save(figure, file):
    text = io.StringIO()
    figure.savefig(text, format="svg", facecolor=PAGE, metadata={"Date": None, "Creator": None})
    pyplot.close(figure)
    rules = "".join(f'[style*="{use}: {light}"]{{{use}:{dark}!important}}'
                    for light, dark in DARK.items() for use in ("fill", "stroke"))
    style = f"<style>@media (prefers-color-scheme: dark){{{rules}}}</style>"
    svg = re.sub(r"(<svg [^>]*>)", r"\1\n " + style, text.getvalue(), count=1)
    file.write_text(re.sub(r"[ \t]+$", "", svg, flags=re.M), encoding="utf-8")


def plain(axes, grid):
    axes.set_facecolor(PAGE)
    axes.tick_params(colors=INK, length=0)
    axes.grid(axis=grid, color=GRID, linewidth=0.7)
    axes.set_axisbelow(True)
    for spine in axes.spines.values():
        spine.set_color(GRID)


def bars(axes, sides, value, label, unit):
    """Bars of the sides, in their order from top to bottom, each with a label."""
    values = [value(side) for side in sides]
    names = [short(side["side"]) for side in sides]
    drawn = axes.barh(names, values, height=0.66,
                      color=[OURS if name == OUR_NAME else OTHERS for name in names])
    axes.bar_label(drawn, [label(side) for side in sides], padding=4, color=INK)
    axes.invert_yaxis()
    axes.set_xlim(0, max(values) * 1.45)
    axes.xaxis.set_major_locator(ticker.MaxNLocator(4))
    axes.set_xlabel(unit)
    plain(axes, "x")


def times(side, ours):
    ratio = side["milliseconds"] / ours["milliseconds"]
    return f"{ratio:.{2 if ratio < 10 else 0}f}"


def felt_chart(results, file):
    """What a client feels, against the three fastest others of each kind."""
    sizes = sorted({each["fonts"] for each in results if each["work"] == "first load"})[:2]
    figure, grid = pyplot.subplots(len(sizes), len(FELT), figsize=(12, 4.4), layout="constrained")
    for row, fonts in zip(grid, sizes):
        for axes, (title, work) in zip(row, FELT.items()):
            sides = sorted((each for each in results
                            if (each["work"], each["fonts"]) == (work, fonts)),
                           key=lambda side: side["milliseconds"])
            ours = next(side for side in sides if side["side"] == OUR_NAME)
            bars(axes, [ours] + [side for side in sides if side is not ours][:3],
                 lambda side: side["milliseconds"],
                 lambda side, ours=ours: number(side["milliseconds"]) + " ms" +
                 ("" if side is ours else f"  ({times(side, ours)}×)"), "milliseconds")
            axes.set_title(f"{title}, {round(fonts, -3):,} fonts")
    save(figure, file)


def speed_chart(results, work, file):
    """All sides at the middle one of the sizes."""
    sizes = sorted({each["fonts"] for each in results if each["work"] == work})
    fonts = sizes[len(sizes) // 2]
    sides = sorted((each for each in results if (each["work"], each["fonts"]) == (work, fonts)),
                   key=lambda side: side["milliseconds"])
    ours = next(side for side in sides if side["side"] == OUR_NAME)

    def speed(side):
        return side["fonts"] / side["milliseconds"] / 1e3

    def label(side):
        text = f"{speed(side):.2f}"
        return text if side is ours else f"{text}, {times(side, ours)} times our time"

    figure, axes = pyplot.subplots(figsize=(8.2, 1.2 + 0.32 * len(sides)), layout="constrained")
    bars(axes, sides, speed, label, "million fonts per second")
    axes.set_title(f"{work.capitalize()}, {fonts:,} fonts")
    save(figure, file)


def growth_chart(results, work, file):
    """The time for each font against their number, of the sides that were measured at all sizes."""
    sizes = sorted({each["fonts"] for each in results if each["work"] == work})
    sides = {}
    for each in results:
        if each["work"] == work:
            sides.setdefault(each["side"], {})[each["fonts"]] = \
                each["milliseconds"] * 1e6 / each["fonts"]
    figure, axes = pyplot.subplots(figsize=(8.2, 4.6), layout="constrained")
    colours = iter(LINES)
    for side, times in sides.items():
        if list(sorted(times)) != sizes:
            continue
        colour = OURS if side == OUR_NAME else next(colours)
        axes.plot(sizes, [times[size] for size in sizes], color=colour, marker="o", markersize=5,
                  linewidth=2.6 if side == OUR_NAME else 1.6)
        for size in sizes:
            axes.annotate(number(times[size]), (size, times[size]), (0, 6), color=colour,
                          textcoords="offset points", ha="center", fontsize=9)
        axes.annotate(short(side), (sizes[-1], times[sizes[-1]]), (30, 0), color=colour,
                      textcoords="offset points", va="center",
                      fontweight="bold" if side == OUR_NAME else "normal")
    axes.set(xscale="log", yscale="log", xlabel="fonts", ylabel="nanoseconds per font",
             title=f"{work.capitalize()}: time for each font",
             xlim=(sizes[0] * 0.75, sizes[-1] * 5))
    axes.set_xticks(sizes, [f"{size:,}" for size in sizes])
    axes.yaxis.set_major_locator(ticker.LogLocator(subs=(1, 2, 3, 5, 7)))
    axes.yaxis.set_major_formatter(ticker.FuncFormatter(lambda value, _: f"{value:,.0f}"))
    axes.minorticks_off()
    plain(axes, "y")
    save(figure, file)


def main(folder):
    results = json.loads((folder / "results.json").read_text(encoding="utf-8"))
    felt_chart(results, folder / "client.svg")
    for name, work in {"load": "load, kept heap", "export": "export"}.items():
        speed_chart(results, work, folder / f"{name}-throughput.svg")
        growth_chart(results, work, folder / f"{name}-growth.svg")


main(pathlib.Path(sys.argv[1]))
