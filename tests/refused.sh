#!/usr/bin/env bash
# Compiles each case of refused/cases.cpp, which must be refused with a message that matches. refused.sh COMPILER [--lines]
# With --lines, prints how many lines each message takes.
set -u
compiler=$1 lines=${2:-}
cd "$(dirname "$0")/.." || exit 2
status=0

# compile [-DREFUSED_name]: prints what the compiler says, as a user of the installed headers sees it.
compile() { "$compiler" -std=c++20 -Werror -fsyntax-only -isystem . "$@" tests/refused/cases.cpp 2>&1; }

compile || { echo "refused/cases.cpp does not compile without a case"; exit 1; }
while IFS=$'\t' read -r name message; do
    said=$(compile "-DREFUSED_$name") && { echo "$name is not refused"; status=1; }
    grep -qE -- "$message" <<<"$said" || { printf '%s is refused, but not with "%s":\n%s\n' "$name" "$message" "$said"; status=1; }
    [ -z "$lines" ] || printf '%-22s %3d lines\n' "$name" "$(wc -l <<<"$said")"
done < <(sed -nE 's/^#(if|elif|ifdef|ifndef|elif defined) ?(defined )?REFUSED_([A-Za-z]+) \/\/ (.*)$/\3\t\4/p' tests/refused/cases.cpp)
exit $status
