#!/usr/bin/env bash
# Compiles each case of refused/cases.cpp, which must be refused with a message that matches. refused.sh COMPILER [--lines]
# With --lines, prints how many lines each message takes.
set -u
compiler=$1 lines=${2:-}
cd "$(dirname "$0")/.." || exit 2
status=0

# compile [-DMACRO=code]: prints what the compiler says, as a user of the installed headers sees it.
compile() { "$compiler" -std=c++20 -Werror -fsyntax-only -isystem . "$@" tests/refused/cases.cpp 2>&1; }

compile || { echo "refused/cases.cpp does not compile without a case"; exit 1; }
cases=$(sed -nE 's;^// ([A-Z]+=.*) // (.*)$;\1\t\2;p' tests/refused/cases.cpp)
[ "$(wc -l <<<"$cases")" -ge 25 ] || { echo "refused/cases.cpp has fewer cases than expected"; status=1; }
while IFS=$'\t' read -r case message; do
    said=$(compile "-D$case") && { echo "$case is not refused"; status=1; }
    grep -qE -- "$message" <<<"$said" || { printf '%s is refused, but not with "%s":\n%s\n' "$case" "$message" "$said"; status=1; }
    [ -z "$lines" ] || printf '%-60s %3d lines\n' "$case" "$(wc -l <<<"$said")"
done <<<"$cases"
exit $status
