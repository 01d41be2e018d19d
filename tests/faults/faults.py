#!/usr/bin/env python3
"""Puts faults into a copy of the sources and shows which tests notice each.

    faults.py prepare COUNT   copies the project, puts about COUNT faults in, and builds the copy
    faults.py run [N...]      runs every test against each fault (or these), and keeps the results
    faults.py report          prints the table: each fault, and the tests that notice it

All faults are compiled in at once. The environment variable PERCH_FAULT chooses the one that is
active, so one build serves all. A fault that does not compile is dropped.
"""
import concurrent.futures
import json
import os
import random
import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
WORK = ROOT / "build" / "faults"
COPY = WORK / "source"
BUILD = WORK / "build"
FAULTS = WORK / "faults.json"
REFUSED = WORK / "refused.json" # do not compile
RESULTS = WORK / "results.json"

HEADER = """#pragma once
#include <concepts>
namespace faults {
extern int active;
constexpr bool at(int number) noexcept {
    return !__builtin_is_constant_evaluated() && active == number;
}
template <std::same_as<bool> Flag> // nothing else, which would convert
constexpr bool flipped(int number, Flag flag) noexcept {
    return flag != at(number);
}
} // namespace faults
"""
DEFINITION = """#include "faults.hpp"
#include <cstdlib>
namespace faults {
int active = 0;
// Before all initialisers.
[[gnu::constructor(101)]] static void choose() {
    if (const char* const text = std::getenv("PERCH_FAULT"))
        active = std::atoi(text);
}
} // namespace faults
"""

# What a line has that only the compiler evaluates.
STATIC = re.compile(r"= (delete|default);|^\s*(#|//|\*)|\\$|\b(static_assert|constexpr|consteval"
                    r"|template|requires|case|enum|using|noexcept\()")
# What a result has that is a Boolean.
BOOLEAN = re.compile(r"==|!=|<=|>=| < | > |&&|\|\||^!|^(true|false)$|\bis[A-Z]|contains\(|empty\(")
PROPERTY = re.compile(r"\s*PERCH_(?:PROPERTY|PROPERTY_SET_BY|CONSTANT)\(([\w:<>]+), "
                      r"(\w+(?:, set\w+)?)(?:, (\S+))?\);")
CONTROL = re.compile(r"(return|throw|break|continue|delete|friend|public|private|goto)\b")
OPEN, CLOSE = "([{", ")]}"


def masked(line):
    """Returns the line with texts, characters and comments blanked, at the same offsets."""
    line = re.sub(r'"(?:\\.|[^"\\])*"', lambda m: '"' + "_" * (len(m[0]) - 2) + '"', line)
    line = re.sub(r"'(?:\\.|[^'\\])*'", lambda m: "'" + "_" * (len(m[0]) - 2) + "'", line)
    return re.sub(r"//.*", lambda m: " " * len(m[0]), line)


def closing(line, opening):
    """Returns the offset of the bracket that closes the one at `opening`, or None."""
    depth = 0
    for offset in range(opening, len(line)):
        depth += (line[offset] in OPEN) - (line[offset] in CLOSE)
        if depth == 0:
            return offset
    return None


def operand(line, begin, step):
    """Returns the offset where the operand that begins at `begin` ends, going by `step`."""
    depth, offset = 0, begin
    first, last = (OPEN, CLOSE) if step > 0 else (CLOSE, OPEN)
    while 0 <= offset < len(line):
        letter = line[offset]
        if depth == 0 and (letter in last or letter in ",;?" or (letter == ":" and ":" not in
                           (line[offset - 1], line[offset + 1:offset + 2]))):
            return offset
        pair = line[offset:offset + 2] if step > 0 else line[offset - 1:offset + 1]
        if depth == 0 and pair in ("&&", "||"):
            return offset
        if depth == 0 and step < 0 and re.search(r"(\breturn| [-+|&]?=) $", line[:offset + 1]):
            return offset
        depth += (letter in first) - (letter in last)
        offset += step
    return None


def conditions(line):
    for match in re.finditer(r"\b(?:if|while) \(", line):
        begin = match.end() - 1
        end = closing(line, begin)
        inside = line[begin + 1:end] if end else ""
        if end and ";" not in inside and not re.search(r"[^=!<>]=[^=]", inside):
            yield begin + 1, end, "static_cast<bool>({text}) != FAULT", "condition negated"


def returns(line):
    match = re.search(r"\breturn ([^;]+);", line)
    if match and match[1] not in ("*this", "this"):
        if BOOLEAN.search(match[1]):
            flipped = "::faults::flipped(NUMBER, {text})"
            yield match.start(1), match.end(1), flipped, "result negated"
        elif "{" not in match[1]:
            yield match.start(), match.end(), "{ if (FAULT) return {}; {text} }", "returns nothing"


def comparisons(line):
    for match in re.finditer(r" (<|<=|>|>=|==|!=) ", line):
        left, right = operand(line, match.start(), -1), operand(line, match.end(), 1)
        if left is None or right is None:
            continue
        begin = left + 1 + (len(line[left + 1:]) - len(line[left + 1:].lstrip()))
        other = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}[match[1]]
        yield begin, right, "", f"{match[1]} becomes {other}"


def connectives(line):
    for match in re.finditer(r" (&&|\|\|) ", line):
        right = operand(line, match.end(), 1)
        if right is None:
            continue
        template = "(FAULT || ({text}))" if match[1] == "&&" else "(!FAULT && ({text}))"
        yield match.end(), right, template, f"right side of {match[1]} dropped"


def numbers(line):
    for match in re.finditer(r"(?<=[-+*%(=,] )\d+U?\b(?!\.)|(?<=[\[(])\d+U?\b(?=[\])])", line):
        yield match.start(), match.end(), "({text} + (FAULT ? 1 : 0))", "number is one more"


def statements(line):
    match = re.match(r"\s*((?:\+\+|--)?[A-Za-z_][\w.:]*(?:->[\w.]+|\[[^\]]*\]|\([^;]*?\))*"
                     r"(?:\s(?:[-+|&^]|<<|>>)?= [^;]+)?);", line)
    if match and not CONTROL.match(match[1]) and re.search(r"[(=]|\+\+|--", match[1]):
        yield match.start(1), match.end(1), "FAULT ? void() : void({text})", "statement dropped"


def defaults(line):
    match = PROPERTY.match(line)
    zeros = {"std::int64_t": "0", "float": "0", "bool": "false", "std::string": '""'}
    if not match or match[1] not in zeros:
        return
    others = {"bool": "({text}) != FAULT", "std::string": 'FAULT ? "other" : {text}'}
    other = others.get(match[1], "({text}) + FAULT")
    if match[3]:
        yield match.start(3), match.end(3), other, "another default"
    else:
        default = ", " + other.replace("{text}", zeros[match[1]])
        yield match.end(2), match.end(2), default, "another default"


# Random inputs of each property in fuzz/, as many as its test has or a part of them.
PROPERTIES = {"documents": 4000, "filling": 10000, "locations": 5000, "text": 2500, "trees": 2000}

KINDS = [conditions, returns, comparisons, connectives, numbers, statements]


def listed():
    """Returns the names of the project's files."""
    names = subprocess.run(["git", "ls-files"], cwd=ROOT, check=True, capture_output=True,
                           text=True).stdout.splitlines()
    return [name for name in names if (ROOT / name).is_file()]


def sources():
    folders = ("PerchAppLibrary/", "VelmoCloudEntity/", "tools/")
    return [name for name in listed()
            if name.startswith(folders) and name.endswith((".hpp", ".cpp"))]


def candidates(name):
    """Returns all faults that may be put into the file."""
    found, macro = [], False
    for number, line in enumerate((ROOT / name).read_text().split("\n")):
        plain = masked(line)
        isMacro, macro = macro or plain.lstrip().startswith("#define"), plain.endswith("\\")
        kinds = KINDS
        if "PERCH_" in plain:
            kinds = [defaults]
        elif isMacro or STATIC.search(plain):
            kinds = []
        for kind in kinds:
            for begin, end, template, what in kind(plain):
                found.append({"file": name, "line": number, "begin": begin, "end": end,
                              "template": template, "what": what, "text": line.strip()})
    return found


def chosen(count):
    """Returns about `count` faults: some of each file, more where there is more logic."""
    choose = random.Random(18)
    byFile = {name: candidates(name) for name in sources()}
    total = sum(len(found) for found in byFile.values())
    result = []
    for found in byFile.values():
        share = min(len(found), max(1, round(count * len(found) / total)))
        lines = set()
        choose.shuffle(found)
        for fault in found:
            if share > 0 and fault["line"] not in lines:
                lines.add(fault["line"])
                result.append(fault)
                share -= 1
    for number, fault in enumerate(result, 1):
        fault["number"] = number
    return result


def write(faults):
    """Copies the project with these faults."""
    texts = {name: (ROOT / name).read_bytes() for name in listed()}
    texts["faults.hpp"] = HEADER.encode()
    texts["PerchAppLibrary/faults.cpp"] = DEFINITION.encode()
    library = "PerchAppLibrary/CMakeLists.txt"
    texts[library] = texts[library].replace(b"add_library(PerchAppLibrary\n",
                                            b"add_library(PerchAppLibrary\n  faults.cpp\n", 1)
    for fault in faults:
        lines = texts[fault["file"]].decode().split("\n")
        line, begin, end = lines[fault["line"]], fault["begin"], fault["end"]
        lines[fault["line"]] = line[:begin] + inserted(fault, line[begin:end]) + line[end:]
        texts[fault["file"]] = "\n".join(lines).encode()
    for path in [path for path in COPY.rglob("*") if path.is_file()]:
        if path.relative_to(COPY).as_posix() not in texts:
            path.unlink() # the project no longer has it
    for name, text in texts.items(): # an unchanged file keeps its time, and is not compiled again
        path = COPY / name
        path.parent.mkdir(parents=True, exist_ok=True)
        if not path.exists() or path.read_bytes() != text:
            path.write_bytes(text)


def inserted(fault, text):
    """Returns what stands in place of the text."""
    if " becomes " in fault["what"]:
        old, new = fault["what"].split(" becomes ")
        place = masked(text).index(f" {old} ")
        result = f"(FAULT ? ({text[:place]} {new} {text[place + len(old) + 2:]}) : ({text}))"
    else:
        result = fault["template"].replace("{text}", text)
    return result.replace("FAULT", "::faults::at(NUMBER)").replace("NUMBER", str(fault["number"]))


def identity(fault):
    return [fault["file"], fault["text"], fault["what"]]


def linesWithErrors(log):
    """Returns file and line of each error of the compiler, and of what it was instantiated from."""
    path = rf"{re.escape(str(COPY))}/([^:\s]+):(\d+):\d+:"
    return {(name, int(line) - 1)
            for name, line in re.findall(rf"{path} (?:(?:fatal )?error|  required from)", log)}


def build():
    """Builds the copy. Returns what the compiler printed, or None if there is no error."""
    flags = f"-std=c++20 -O1 -w -include {COPY}/faults.hpp"
    subprocess.run(["cmake", "-G", "Ninja", "-S", COPY, "-B", BUILD, "-DCMAKE_BUILD_TYPE=",
                    f"-DCMAKE_CXX_FLAGS={flags}"], check=True, stdout=subprocess.DEVNULL)
    built = subprocess.run(["cmake", "--build", BUILD, "--", "-k", "0"], capture_output=True,
                           text=True)
    return built.stdout if built.returncode else None


def prepare(count):
    WORK.mkdir(parents=True, exist_ok=True)
    refused = json.loads(REFUSED.read_text()) if REFUSED.exists() else []
    faults = [fault for fault in chosen(count) if identity(fault) not in refused]
    write(faults)
    while log := build():
        bad = linesWithErrors(log)
        kept = [fault for fault in faults if (fault["file"], fault["line"]) not in bad]
        if len(kept) == len(faults):
            sys.exit(log[-4000:])
        print(f"{len(faults) - len(kept)} faults do not compile", flush=True)
        refused += [identity(fault) for fault in faults if fault not in kept]
        REFUSED.write_text(json.dumps(refused))
        faults = kept
        write(faults)
    FAULTS.write_text(json.dumps(faults, indent=1))
    RESULTS.unlink(missing_ok=True) # of other numbers
    print(f"{len(faults)} faults in {len({fault['file'] for fault in faults})} files")


def finished(command, environment, limit):
    """Runs a command. Returns its output, and its status or None if it exceeds the limit."""
    # timeout(1) also ends the processes that the command started.
    done = subprocess.run(["timeout", "--kill-after=1", str(limit), *command], env=environment,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, cwd=COPY)
    late = done.returncode in (124, 137)
    return done.stdout.decode(errors="replace"), None if late else done.returncode


def googletest(program, environment, prefix):
    """Returns the tests of a program that fail. Runs the rest after a crash, but not after five, nor
    after a test that does not end."""
    noticed, ran = [], []
    for _ in range(5):
        rest = ["--gtest_filter=-" + ":".join(ran)] if ran else []
        output, status = finished([program, "--gtest_brief=0", *rest], environment, 45)
        now = re.findall(r"^\[ RUN      \] (\S+)", output, re.M)
        noticed += re.findall(r"^\[  FAILED  \] (\S+?)(?:, where .*)? \(\d+ ms\)", output, re.M)
        if status in (0, 1):
            break
        noticed.append(now[-1] if now else "start")
        if status is None or not now:
            break
        ran += now
    return [prefix + name for name in noticed]


def tried(number):
    """Returns the names of the tests that notice the fault."""
    environment = dict(os.environ, PERCH_FAULT=str(number))
    noticed = []
    for name in ("", "-memory", "-plain-reader"):
        prefix = "PlainReader." if name == "-plain-reader" else ""
        noticed += googletest(BUILD / "tests" / f"velmo{name}-tests", environment, prefix)
    velmo = ["bash", COPY / "tests/velmo.sh", BUILD / "tools/velmo/velmo", COPY / "samples"]
    others = {"velmo.sh": velmo, "own-record": [BUILD / "examples/own-record"],
              "first-program": [BUILD / "examples/first-program"]}
    for name, runs in PROPERTIES.items():
        others["fuzz-" + name] = [BUILD / f"fuzz/fuzz-{name}-replay", str(runs)]
    noticed += [name for name, command in others.items()
                if finished(command, environment, 60)[1] != 0]
    return sorted(set(noticed))


def run(numbers):
    faults = json.loads(FAULTS.read_text())
    results = json.loads(RESULTS.read_text()) if numbers and RESULTS.exists() else {}
    if always := tried(0): # no fault
        sys.exit(f"without a fault, these fail: {always}")
    wanted = [fault["number"] for fault in faults if not numbers or fault["number"] in numbers]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for number, noticed in zip(wanted, pool.map(tried, wanted)):
            results[str(number)] = noticed
            RESULTS.write_text(json.dumps(results))
    report()


def report():
    results = json.loads(RESULTS.read_text())
    faults = [fault for fault in json.loads(FAULTS.read_text()) if str(fault["number"]) in results]
    only = set()
    missed = []
    for fault in faults:
        noticed = results[str(fault["number"])]
        only |= set(noticed) if len(noticed) == 1 else set()
        where = f"{fault['number']:4} {fault['file']}:{fault['line'] + 1}: {fault['what']}: "
        if not noticed:
            missed.append(where + fault["text"])
        more = f" and {len(noticed) - 2} more" if len(noticed) > 2 else ""
        print(where + (", ".join(noticed[:2]) + more or "none"))
    print(f"\n{len(faults)} faults, {len(faults) - len(missed)} noticed. Not noticed:")
    print(*missed, sep="\n")
    print("\nTests that are the only one to notice a fault:", *sorted(only), sep="\n  ")


if __name__ == "__main__":
    command, *arguments = sys.argv[1:] or ["help"]
    if command == "prepare":
        prepare(int(arguments[0]))
    elif command == "run":
        run({int(argument) for argument in arguments})
    elif command == "report":
        report()
    else:
        sys.exit(__doc__)
