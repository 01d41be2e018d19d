#!/usr/bin/env bash
# The whole road on a sample, with the command velmo: demo.sh VELMO SAMPLES
set -euo pipefail
velmo=$1
fonts=$2/font-list.json
activated=$2/activated-fonts.json
tags=$2/font-tags.json

show() { printf '\n$ velmo %s\n' "$*"; "$velmo" "$@"; }

# The first lines of what a command shows, and how many more there are.
show_beginning() {
    local lines=$1 output
    shift
    output=$(show "$@")
    head -n "$((lines + 2))" <<<"$output"
    printf '... and %d lines more\n' "$(($(wc -l <<<"$output") - lines - 2))"
}

printf 'A reply of the service becomes a tree of fonts, marked by the fonts that the user has activated:\n'
show_beginning 12 tree "$fonts" --activate "$activated"
"$velmo" tree "$fonts" --activate "$activated" | tail -n 22

printf '\nThe marks come from the list of the fonts that the user has activated; these alone:\n'
show list activated "$fonts" --activate "$activated"

printf '\nWhere one font and its previews are:\n'
show locate "$fonts" 339 --preview-tag S --color-tag B --font-size 48 --fixed \
    --product-url https://files.example.com/ --fix-preview-url https://previews.example.com/fixed/

printf '\nA search box shows the fonts with the whole key first, then those with one of its characters; in Latin and in Chinese:\n'
show_beginning 9 search "$fonts" anuphan
show search "$fonts" 宋体

printf '\nTicked tags of one group add up (display or handwriting), those of several narrow one another (and Cyrillic):\n'
show filter "$fonts" --tags "$tags" --check 4,5,12

printf '\nThe whole tree goes back out as JSON:\n'
start=$(date +%s%N)
bytes=$("$velmo" export "$fonts" | wc -c)
end=$(date +%s%N)
printf '\n$ velmo export %s\n%d bytes in %d ms, the start of the program included\n' "$fonts" "$bytes" \
    "$(((end - start) / 1000000))"
