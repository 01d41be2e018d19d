#!/usr/bin/env bash
# count.sh PROGRAM [--renew]: counts the instructions of each workload of the program. A busy machine
# does not change them. Fails if a workload takes over 5 % more than counts.txt says. --renew writes
# the counts to counts.txt.
set -euo pipefail
program=$1
kept=$(dirname "$0")/counts.txt
counted=$(mktemp)
trap 'rm -f "$counted"' EXIT

# One implementation of simdjson, independent of the processor.
export SIMDJSON_FORCE_IMPLEMENTATION=westmere
for name in $("$program"); do
    output=$(valgrind --tool=callgrind --callgrind-out-file=/dev/null --toggle-collect=measured \
        "$program" "$name" 2>&1) || { printf '%s\n' "$output"; exit 1; }
    printf '%s %s\n' "$name" "$(sed -n 's/.*Collected : //p' <<<"$output")" >>"$counted"
done
if [ "${2:-}" = --renew ]; then
    cp "$counted" "$kept"
    cat "$kept"
    exit
fi
status=0
while read -r name count; do
    before=$(sed -n "s/^$name //p" "$kept")
    change=$(awk -v now="$count" -v before="${before:-0}" \
        'BEGIN { printf "%.1f", before ? 100 * (now / before - 1) : 100 }')
    printf '%-12s %12s instructions, %+.1f %%\n' "$name" "$count" "$change"
    if awk -v change="$change" 'BEGIN { exit change <= 5 }'; then
        printf '%s takes more instructions than before (%s)\n' "$name" "${before:-none}"
        status=1
    fi
done <"$counted"
exit $status
