#!/usr/bin/env bash
# Checks a folder of saved replies each night. Prints what filling ignores only if something of it
# is new, since a service that renames a key, or sends another type, leaves fields of a client empty.
#
#     $ mkdir replies; cp samples/font-*.json replies; nightly-check.sh replies
#     $ sed -i 's/"Format":/"Fmt":/' replies/font-list.json; nightly-check.sh replies
#     replies/font-list.json: FontList; 10798 values used, 59 ignored
#       [0].Children[0].Fmt: FontItem has no such property: "TTF" (59 times)
#     replies/font-tags.json: FontTagList; 949 values used, 0 ignored
#     [1]
#     $ nightly-check.sh replies
#     $ cp samples/error-reply.json replies/font-tags.json; nightly-check.sh replies
#     replies/font-list.json: FontList; 10798 values used, 59 ignored
#       [0].Children[0].Fmt: FontItem has no such property: "TTF" (59 times)
#     replies/font-tags.json: is an error reply: 005001, The user login has expired.
#     [1]
#
# Exit status: 0 nothing new; else that of velmo check.
set -u
folder=${1:?Usage: nightly-check.sh FOLDER}
known=$folder/known.txt # what was there the last time

touch "$known"
velmo check --json "$folder"/*.json 2>/dev/null |
    grep -oE '"problem":"[^"]*"|"place":"[^"]*","found":"[^"]*","expected":"[^"]*"' |
    LC_ALL=C sort -u >"$known.new"
new=$(LC_ALL=C comm -13 "$known" "$known.new")
mv "$known.new" "$known"
[ -z "$new" ] || velmo check "$folder"/*.json
