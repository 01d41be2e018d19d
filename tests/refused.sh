#!/usr/bin/env bash
# refused.sh COMPILER [--lines]: compiles each case of refused/cases.cpp. The compiler must refuse it
# with a message that matches. --lines prints the number of lines of each message.
set -u
compiler=$1 lines=${2:-}
cd "$(dirname "$0")/.." || exit 2
status=0

# compile [-DREFUSED_name]: prints the compiler's messages, as a user of installed headers sees them.
compile() {
    "$compiler" -std=c++20 -Werror -fsyntax-only -isystem . "$@" tests/refused/cases.cpp 2>&1
}

# Lists the cases of refused/cases.cpp: name, expected message.
cases() {
    sed -nE 's,^#(if|elif|ifdef|ifndef|elif defined) ?(defined )?REFUSED_([A-Za-z]+) // (.*)$,\3\t\4,p' \
        tests/refused/cases.cpp
}

compile || { echo "refused/cases.cpp does not compile without a case"; exit 1; }
while IFS=$'\t' read -r name message; do
    said=$(compile "-DREFUSED_$name") && { echo "$name is not refused"; status=1; }
    if ! grep -qE -- "$message" <<<"$said"; then
        printf '%s is refused, but not with "%s":\n%s\n' "$name" "$message" "$said"
        status=1
    fi
    [ -z "$lines" ] || printf '%-22s %3d lines\n' "$name" "$(wc -l <<<"$said")"
done < <(cases)
exit $status
