#!/usr/bin/env bash
# Runs the commands of velmo on a sample: demo.sh VELMO SAMPLES
set -euo pipefail
velmo=$1
fonts=$2/font-list.json
activated=$2/activated-fonts.json
tags=$2/font-tags.json

show() { printf '\n$ velmo %s\n' "$*"; "$velmo" "$@"; }

# Prints the first lines of the output of a command, and the number of the other lines.
show_beginning() {
    local lines=$1 output
    shift
    output=$(show "$@")
    head -n "$((lines + 2))" <<<"$output"
    printf '... and %d more lines\n' "$(($(wc -l <<<"$output") - lines - 2))"
}

printf 'The tree of fonts from a reply of the service, with the activated fonts marked:\n'
show_beginning 12 tree "$fonts" --activate "$activated"
"$velmo" tree "$fonts" --activate "$activated" | tail -n 22

printf '\nOnly the activated fonts:\n'
show list activated "$fonts" --activate "$activated"

printf '\nThe locations of one font and its previews:\n'
show locate "$fonts" 339 --preview-tag S --color-tag B --font-size 48 --fixed \
    --product-url https://files.example.com/ --fix-preview-url https://previews.example.com/fixed/

printf '\nA search lists fonts with the whole key, then fonts with one of its characters:\n'
show_beginning 9 search "$fonts" anuphan
show search "$fonts" 宋体

printf '\nThe fonts with the tags (display or handwriting) and Cyrillic:\n'
show filter "$fonts" --tags "$tags" --check 4,5,12

printf '\nThe tree is exported as JSON:\n'
start=$(date +%s%N)
bytes=$("$velmo" export "$fonts" | wc -c)
end=$(date +%s%N)
printf '\n$ velmo export %s\n%d bytes in %d ms, including the start of the program\n' \
    "$fonts" "$bytes" "$(((end - start) / 1000000))"
