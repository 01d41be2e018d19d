#!/usr/bin/env bash
# count.sh WORKLOADS [--renew]: counts the instructions of each workload, which a busy machine does not change, and fails where
# one takes over 5 % more than the counts that are kept beside this script. --renew keeps the new ones.
set -euo pipefail
workloads=$1
kept=$(dirname "$0")/counts.txt
counted=$(mktemp)
trap 'rm -f "$counted"' EXIT

# One implementation of simdjson, whatever the processor has.
export SIMDJSON_FORCE_IMPLEMENTATION=westmere
for name in $("$workloads"); do
    output=$(valgrind --tool=callgrind --callgrind-out-file=/dev/null --toggle-collect=measured "$workloads" "$name" 2>&1) ||
        { printf '%s\n' "$output"; exit 1; }
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
    change=$(awk -v now="$count" -v before="${before:-0}" 'BEGIN { printf "%.1f", before ? 100 * (now / before - 1) : 100 }')
    printf '%-12s %12s instructions, %+.1f %%\n' "$name" "$count" "$change"
    if awk -v change="$change" 'BEGIN { exit change <= 5 }'; then
        printf '%s has become slower (%s before)\n' "$name" "${before:-none}"
        status=1
    fi
done <"$counted"
exit $status
