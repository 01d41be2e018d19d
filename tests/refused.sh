#!/usr/bin/env bash
# refused.sh COMPILER [--lines]: compiles each case of refused/cases.cpp. The compiler must refuse it
# with a message that matches, in the first error. --lines prints the number of lines of each
# message, and the first error.
set -u
compiler=$1 lines=${2:-}
cd "$(dirname "$0")/.." || exit 2
status=0

# compile [-DMACRO=code]: prints the compiler's messages, as a user of installed headers sees them.
compile() {
    "$compiler" -std=c++20 -Werror -fsyntax-only -isystem . "$@" tests/refused/cases.cpp 2>&1
}

compile || { echo "refused/cases.cpp does not compile without a case"; exit 1; }
cases=$(sed -nE 's;^// ([A-Z_]+=.*) // (.*)$;\1\t\2;p' tests/refused/cases.cpp)
[ -n "$cases" ] || { echo "refused/cases.cpp has no cases"; exit 1; }
while IFS=$'\t' read -r case message; do
    said=$(compile "-D$case") && { echo "$case is not refused"; status=1; }
    first=$(grep -m 1 -E 'error:' <<<"$said")
    if ! grep -qE -- "$message" <<<"$first"; then
        printf '%s is refused, but not first with "%s":\n%s\n' "$case" "$message" "$said"
        status=1
    fi
    [ -z "$lines" ] || printf '%-60s %3d lines: %s\n' "$case" "$(wc -l <<<"$said")" "$first"
done <<<"$cases"

# An older language. The compiler must stop at once.
said=$(compile -std=c++17)
if ! grep -m 1 'error:' <<<"$said" | grep -q 'need C++20' || [ "$(wc -l <<<"$said")" -gt 20 ]; then
    printf 'C++17 is not refused with few lines:\n%s\n' "$said"
    status=1
fi

# The guide's tables, up to the last one, have messages of cases.
while read -r row; do
    grep -qE -f <(cut -f 2 <<<"$cases") <<<"$row" || { echo "No case has the message $row"; status=1; }
done < <(sed -nE '/^## Others/q; s/^\| (`[^|]*) \|.*/\1/p' docs/compiler-messages.md | tr -d '`')
exit $status
