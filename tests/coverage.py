#!/usr/bin/env python3
"""coverage.py BUILD: prints how many lines and branches of the libraries and the command ran in the
tests of a build. Fails below the limits, or if coverage.txt does not list each line that never ran.

coverage.txt has a line `file|lines|reason|code` for each group of lines that never ran with no line
between them that did: the number of its lines and the code of the first."""
import collections
import json
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LISTED = ROOT / "tests/coverage.txt"
LEAST = {"lines": 98, "branches": 95} # percent
BUILD = pathlib.Path(sys.argv[1]).resolve()


def output(*command, **options):
    return subprocess.run(command, check=True, cwd=ROOT, stdout=subprocess.PIPE, text=True,
                          **options).stdout


def programs():
    """Returns the programs of the build that its tests run."""
    tests = json.loads(output("ctest", "--test-dir", BUILD, "--show-only=json-v1"))["tests"]
    words = {word for test in tests for word in test["command"]}
    return sorted(word for word in words
                  if pathlib.Path(word).is_relative_to(BUILD) and pathlib.Path(word).is_file())


def export(form, *options):
    """Returns what the profiles say of the sources."""
    first, *others = programs()
    sources = output("git", "ls-files", "PerchAppLibrary/*pp", "VelmoCloudEntity/*pp", "tools/*pp")
    # llvm-cov warns of functions that one program uses and another has, but does not use.
    return output("llvm-cov-19", "export", f"-format={form}", *options,
                  f"-instr-profile={BUILD}/tests.profdata", first,
                  *(f"-object={other}" for other in others), "-sources", *sources.split(),
                  stderr=subprocess.DEVNULL)


def counts_of_lines():
    """Returns the count of each line of code, summed over the instantiations of a template."""
    counts = collections.defaultdict(dict)
    for field, _, value in (line.partition(":") for line in export("lcov").splitlines()):
        if field == "SF":
            file = str(pathlib.Path(value).relative_to(ROOT))
        elif field == "DA":
            line, count = value.split(",")[:2]
            counts[file][int(line)] = int(count)
    return counts


def counts_of_branches():
    """Returns the count of each outcome of each condition, summed like the counts of lines."""
    counts = collections.Counter()
    for file in json.loads(export("text", "-skip-functions"))["data"][0]["files"]:
        for *place, ifTrue, ifFalse, _, _, _ in file["branches"]:
            counts[(file["filename"], *place, True)] += ifTrue
            counts[(file["filename"], *place, False)] += ifFalse
    return counts.values()


def never_ran(lines):
    """Returns the groups of lines that never ran, as (file, number of lines, code of the first)."""
    groups = collections.Counter()
    for file, counts in lines.items():
        code = (ROOT / file).read_text().splitlines()
        first = None
        for line in sorted(counts):
            first = None if counts[line] else first or line
            if first:
                groups[file, first, code[first - 1].strip()] += 1
    return {(file, number, code) for (file, _, code), number in groups.items()}


def is_enough(what, counts):
    percent = 100 * sum(count > 0 for count in counts) / len(counts)
    print(f"{percent:.1f} % of {len(counts)} {what} ran; {LEAST[what]} % must")
    return percent >= LEAST[what]


def main():
    output("llvm-profdata-19", "merge", "-sparse", "-o", BUILD / "tests.profdata",
           *(BUILD / "profiles").glob("*.profraw"))
    lines = counts_of_lines()
    entries = [entry.split("|", 3) for entry in LISTED.read_text().splitlines()]
    listed = {(file, int(number), code) for file, number, _, code in entries}
    found = never_ran(lines)
    for text, groups in (("never ran and is not listed", found - listed),
                         ("is listed, but ran or is not there", listed - found)):
        for file, number, code in sorted(groups):
            print(f"{file}: {code} ({number} lines) {text}")
    enough = [is_enough("lines", [count for file in lines.values() for count in file.values()]),
              is_enough("branches", counts_of_branches())]
    return 0 if found == listed and all(enough) else 1


sys.exit(main())
