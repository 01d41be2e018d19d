#!/usr/bin/env bash
# records.sh VELMO: checks that no record or list was added by half: each that a header declares is
# a type of velmo read, which RecordTableTest.cpp takes, too, and has a sample. The test of lists has
# each list, and a page of the guides each record.
set -eu
velmo=$1
cd "$(dirname "$0")/.."
export LC_ALL=C
declared=$(cat VelmoCloudEntity/*/*.hpp |
    grep -oP '^ *PERCH_RECORD(_FROM_JSON)?\(\K(?!UserFontMap,)\w+|^class \K\w+List(?=$| : public \w*RecordList<\w+,)' | sort)

# compare PLACE: prints which names on standard input are not those of the headers.
compare() {
    sort -u | comm -3 <(echo "$declared") - |
        sed -E "s|^[^\t]+|& is in a header, but not in $1|; s|^\t(.*)|\1 is in $1, but in no header|"
}
missing=$(
    "$velmo" read --types | compare "velmo read --types"
    basename -s .json samples/records/* | compare samples/records
    grep -v 'List$' <<<"$declared" | cat - <(grep -oP 'expectList\("\K\w+' tests/RecordTableTest.cpp) |
        compare "the test ListTable"
    grep 'List$' <<<"$declared" | cat - <(grep -ohwF "$declared" docs/making-records.md) |
        compare docs/making-records.md
)
[ -z "$missing" ] || { echo "$missing"; exit 1; }
