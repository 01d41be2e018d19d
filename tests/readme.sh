#!/usr/bin/env bash
# The README's first program is the one that is built.
cd "$(dirname "$0")/.." || exit 2
diff <(sed -n '/^```cpp$/,/^```$/p' README.md | sed '1d;$d') examples/first-program.cpp
