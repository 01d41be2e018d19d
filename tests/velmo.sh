#!/usr/bin/env bash
# Tests the command: what it prints, where, and its exit status. Usage: velmo.sh VELMO SAMPLES
set -u
velmo=$1
samples=$2
made=$(dirname "$velmo") # the folder of what is made from the definition of the command line
fonts=$samples/font-list.json
activated=$samples/activated-fonts.json
tags=$samples/font-tags.json
directory=$(mktemp -d)
trap 'rm -rf "$directory"' EXIT
failures=0

fail() {
    printf 'FAILED: %s\n' "$*"
    failures=$((failures + 1))
}

# expect STATUS PATTERN ARGUMENTS...: the exit status, and an extended regular expression that
# matches a line of standard output (for status 0) or of standard error. An error is one line.
expect() {
    local status=$1 pattern=$2
    shift 2
    "$velmo" "$@" >"$directory/out" 2>"$directory/err" </dev/null
    local got=$?
    [ $got = "$status" ] || fail "velmo $*: status $got instead of $status"
    local channel=err
    [ "$status" != 0 ] || channel=out
    grep -qE -- "$pattern" "$directory/$channel" ||
        fail "velmo $*: no '$pattern' in: $(head -c 300 "$directory/$channel")"
    [ "$status" != 2 ] || [ "$(wc -l <"$directory/err")" = 1 ] ||
        fail "velmo $*: not one line: $(cat "$directory/err")"
}

# expect_nothing OUTPUT ARGUMENTS...: exactly this output, and status 1.
expect_nothing() {
    local output=$1 got
    shift
    got=$("$velmo" "$@" 2>/dev/null; echo $?)
    [ "$got" = "$output"$'\n'1 ] || fail "velmo $*: not '$output' and status 1 but: $got"
}

# expect_highlight KEY FILE TEXT: searched for on a terminal, the text is printed with its colours.
# script makes a terminal. A bare chroot may have script, but no terminal for it.
if script -qc true /dev/null </dev/null >/dev/null 2>&1; then
    on_terminal() { NO_COLOR= TERM=linux script -qc "$1" /dev/null </dev/null; }
    expect_highlight() {
        on_terminal "'$velmo' search '$2' '$1'" | grep -qF "$3" ||
            fail "search for '$1' on a terminal: no '$3'"
    }
else
    echo 'No terminal here: colours and progress are not tested'
    on_terminal() { :; }
    expect_highlight() { :; }
fi

# document NAME TEXT: a file for the commands.
document() { printf '%b' "$2" >"$directory/$1"; }

document broken.json '[{"Id": 1},\n {"Id" 2}]'
document cut.json '[{"Id": 1}'
document twice.json '[{"Id":1},{"Id":1}]'
document odd.json '[{"Id":1,"ProductName":"A","ProductFileName":"abc",
        "ProductFileUrl":"https://h/a.ttf"},7,null,
    {"Id":"2","ProductName":"B\\u001b[31m","ProductFileName":"b.ttf","ProductFileUrl":"1:b.ttf"},
    {"Id":3,"IsGroup":true,"ProductSetName":"Set","GroupTag":"T ",
        "Children":[{"Id":4,"IsFavorited":true}]}]'

# Wrong usage, unreadable files, malformed documents: one line, status 2.
expect 2 '"tre" is no command; did you mean tree\?' tre "$fonts"
expect 2 'ID: "7x" is not an integer' locate "$fonts" 7x
expect 2 '/nonexistent: cannot be read: No such file' tree /nonexistent
expect 2 'cannot be read: Is a directory' export "$directory"
expect 2 'broken.json: line 2, column 8: unexpected "2"' tree "$directory/broken.json"
expect 2 'broken.json: line 2' list activated "$fonts" --activate "$directory/broken.json"
expect 2 'standard input: line 1, column 1: the text is empty' tree -
expect 2 '--name= has no value; an empty one is written --name' find "$fonts" --name= --fuzzy
expect 2 '"xyz" is no command \(see' xyz

# What has no end is read to the first byte that cannot be in a document, or not at all.
truncate -s 5G "$directory/sparse.json"
printf '[1,' | cat - /dev/zero 2>/dev/null | timeout 20 "$velmo" export - >"$directory/out" 2>&1
grep -q 'column 4: unexpected control character 0' "$directory/out" || fail "zeros in a document"
for file in sparse.json /dev/zero /dev/urandom; do
    [[ $file = /* ]] || file=$directory/$file
    timeout 20 "$velmo" tree "$file" 2>&1 | grep -qE ', column [0-9]+: |4 GB' || fail "tree $file"
done

# Help as a word; the example of each command, which the man page shows, on the samples.
expect 0 '^velmo [0-9]+\.[0-9]' version
expect 0 'velmo tree .OPTIONS. FILE$' help tree
mapfile -t examples < <(sed -n '/^\.nf/{n;s/\\-/-/g;p}' "$made/velmo.1")
[ ${#examples[@]} = 15 ] || fail "15 examples"
for example in "${examples[@]}"; do
    (cd "$samples" && PATH=$made:$PATH bash -o pipefail -c "$example" >/dev/null) ||
        fail "$example"
done

# Colours.
expect 0 $'^\033\\[1mTITLE' tree "$fonts" --color always
expect_highlight 仿宋 "$fonts" $'\033[1;31m仿宋'
expect_plain() { # VARIABLE OPTION
    on_terminal "$1 '$velmo' tree '$fonts' $2" | grep -q $'\033' && fail "colours with $*"
}
expect_plain TERM=dumb ''
expect_plain NO_COLOR=1 ''
expect_plain TERM=linux '--color never'

# Rows fit on a terminal: columns are left out, then names are cut, but not what a search found.
for command in "tree '$fonts' --activate '$activated'" "find '$fonts' --key a --fuzzy" \
    "search '$fonts' regular"; do
    shown=$(on_terminal "stty cols 60; '$velmo' $command --color never" | tr -d '\r')
    [ -z "$shown" ] || { [ "$(wc -L <<<"$shown")" -le 60 ] && grep -q … <<<"$shown"; } ||
        fail "$command does not fit: $(head -c 300 <<<"$shown")"
    grep -q 'FORMAT' <<<"$shown" && fail "$command: no column is left out"
    eval "'$velmo' $command" | grep -q … && fail "$command is cut in a pipe"
done
# Values and sentences wrap between words and elements, and nothing of them is cut.
for command in "read FontTagList '$tags'" "check '$tags' --as FontList"; do
    shown=$(on_terminal "stty cols 60; '$velmo' $command --color never" | tr -d '\r')
    [ -z "$shown" ] || { [ "$(wc -L <<<"$shown")" -le 60 ] && [ "$(tr -d ' \n' <<<"$shown")" = \
        "$(eval "'$velmo' $command" | tr -d ' \n')" ]; } ||
        fail "$command does not wrap: $(head -c 300 <<<"$shown")"
done
document long.json "[{\"ProductName\":\"B\",\"ProductFileName\":\"$(printf 'a%.0s' $(seq 70))xyz\"}]"
shown=$(on_terminal "stty cols 60; '$velmo' search '$directory/long.json' xyz")
[ -z "$shown" ] || grep -q $'…\033\\[1;31mxyz' <<<"$shown" || fail "a match is cut off: $shown"

# A large document: its rows come in batches; a line tells how far it is read, on a terminal.
printf '[{"Id":0}%s]' "$(printf ',{"Id":%d}' $(seq 2500))" >"$directory/many.json"
"$velmo" tree "$directory/many.json" >"$directory/out"
[ "$(grep -cE '^TITLE|^\(, \) +[0-9]+$|^2501 fonts' "$directory/out")" = 2503 ] ||
    fail "a tree of 2501 fonts"
printf '{"FontList":[]%1200000s}' '' >"$directory/large.json"
slow="(printf '[%1200000s'; sleep 0.6; printf ']') |
    '$velmo' tree - --activate '$directory/large.json' >/dev/null"
shown=$(on_terminal "$slow")
for part in 'standard input: 1 MB' 'large.json: [#########' ': parsing 1 MB'; do
    [ -z "$shown" ] || grep -qF -- "$part" <<<"$shown" || fail "progress: no $part in $shown"
done
[ -z "$(on_terminal "TERM=dumb; export TERM; $slow")" ] || fail "progress on TERM=dumb"

# Well-formed documents of any shape.
document mixed.json '{"sms_token":[{"a":"b"},7,null,[1]]}'
expect 0 '^ *7$' read UserItem "$directory/mixed.json"

# The fonts of the sample: shown, listed, read and exported.
expect 0 '^  Anuphan Light\(TTF, 3.00\) +339 +activated' tree "$fonts" --activate "$activated"
expect 0 ' activated favorite$' list favorited "$fonts" --favorite "$activated" --activate "$activated"
expect 0 '^\[\{"Guid":"","Id":900001,.*"Children":\[\{"Guid":"","Id":1,' export "$fonts"

# Finding: texts of any bytes; an empty result and status 1 if there is nothing.
expect 0 '^ *10  Ünïcödé Straße ' find "$fonts" --name 'Ünïcödé Straße'
expect_nothing '[]' find "$fonts" --name $'\xFF\xE5' --fuzzy --json
expect 2 'Exactly 1 option from' find "$fonts" --name a --key b

# Searching: whole-key matches first, and where they are.
expect 0 '^ 4  仿宋       ProductName$' search "$fonts" 宋 # an ideograph takes two columns
expect 0 '^0 fonts with "宋#"$' search "$fonts" '宋#'
expect_nothing '{"whole":[],"character":[]}' search "$fonts" $'\xFF' --json
expect 0 '^\{"whole":\[\{"Id":1,.*\{"Id":4,[^]]*\],"character":\[\{"Id":1,' search "$fonts" 宋 --json
expect_highlight strasse "$fonts" $'Ünïcödé \033[1;31mStraße\033[0m'

document halves.json '[{"ProductName": "y 😀 x"}, {"ProductName": "😀"}]'
expect_highlight '😀xy' "$directory/halves.json" $'😀 \033[1;31mx'
echo '[]' | "$velmo" list activated - --activate - 2>&1 |
    grep -qF 'standard input can be only one of the files' || fail "standard input read twice"

# Looking up: in the order of the tree. With --flat, one item of the list itself, a group included.
expect 0 '^\[\{"Id":337,.*\{"Id":339,[^{]*\}\]$' lookup "$fonts" 339,337 339 --json
expect 0 '^\{"Id":900001,"ProductName":"","IsGroup":true,' lookup "$fonts" 900001 --flat --json
expect 1 '900001 is the Id of a group; --flat finds' lookup "$fonts" 900001
expect 1 'no item at the top level has the Id 339' lookup "$fonts" 339 --flat
grep -q null "$directory/out" && fail "text for people says null"
expect 2 'takes one ID' lookup "$fonts" 1 2 --flat

# Filtering by ticked tags, by Id or name: those of a group add up.
count() {
    "$velmo" filter "$fonts" --tags "$tags" --check "$1" --json | grep -o '"IsGroup":false' | wc -l
}
[ "$(count 4,5)" = $(($(count 4) + $(count 5))) ] || fail "tags of one group do not add up"
expect 0 '^376 fonts$' filter --tags "$tags" --check 99999 "$fonts"
grep -qF 'font-tags.json: no tag has the Id 99999' "$directory/err" ||
    fail "an unknown tag is not named"
[ "$(count 'DISPLAY,5')" = "$(count 4,5)" ] || fail "a tag is not ticked by its name"
expect 0 '^376 fonts$' filter "$fonts" --tags "$tags" --check 'no such'
grep -qF 'no tag has the name no such' "$directory/err" || fail "an unknown name is not named"

# Many Ids, in many tags and fonts: linear, or the walks take minutes.
{ printf '[{"Id":0}' && printf ',{"Id":%d}' $(seq 60000) && echo ']'; } >"$directory/ids.json"
for arguments in "lookup $directory/ids.json $(seq -s ' ' 20000)" \
    "filter $directory/ids.json --tags $directory/ids.json --force --check $(seq -s , 20000)"; do
    # shellcheck disable=SC2086
    timeout 30 "$velmo" $arguments >/dev/null 2>&1
    [ $? != 124 ] || fail "velmo ${arguments%% *} of 20000 Ids takes too long"
done
document tags.json '[{"Id":1,"IsGroup":true,"Children":[{"Id":2,"FontIdList":[4,4,1]},{"Id":3}]}]'
expect 0 '^\{"FontIdList":\[1,2,4\],' \
    filter "$directory/odd.json" --tags "$directory/tags.json" --check 9 --json
expect 0 '^\{"FontIdList":\[1,4\],"fonts":\[\{"Id":1,.*\{"Id":4,[^{]*\}\]\}$' \
    filter "$directory/odd.json" --tags "$directory/tags.json" --check 2 --json
expect 0 '^\[\{"Id":1,.*"Children":\[\{"Id":2,"Name":"","IsGroup":false,"FontCount":3\}' \
    tags "$directory/tags.json" --json

# The sample of each type is read, and shown as data.
for type in $("$velmo" read --types); do
    expect 0 . read "$type" "$samples/records/$type.json"
    [ ! -s "$directory/err" ] || fail "read $type: $(cat "$directory/err")"
    expect 0 '^[[{]' read "$type" "$samples/records/$type.json" --json
done
expect 0 '"UrlList":\[\{"name":"list","kind":"array of UrlItem","default":\[\]\}\]' read --types --json
expect 0 '"UserFontGroupMapItem":\[\{"name":"UserGuid","kind":"String","default":""\},' \
    read --types --json
expect 0 '^EmSize +1.27E1$' read fontim "$samples/records/FontImageItem.json"
expect 0 '^AppTag ' read FONTAP "$samples/records/FontApplyItem.json"
expect 2 'did you mean UserItem\?' read serItem "$fonts"
expect 2 'did you mean ConfigItem\?' read ConfigListItem "$fonts" # four letters too many
expect 2 'may be FontTagItem, FontTagList' read FontTag "$fonts"
expect 2 'TYPE and FILE are required' read FontTagList

# A document of another type is refused, or shown with a warning by --force. An empty one, or one
# that tells nothing, is of any type.
error='"Exception":true,"ExceptionCode":"005001","ExceptionMessage":"\\u001b"'
while read -r type text warning; do
    document other.json "$text"
    message=${warning:+$directory/other.json: $warning}
    got=$("$velmo" read "$type" "$directory/other.json" --force 2>&1 >/dev/null; echo $?)
    [ "$got" = "${warning:+velmo: warning: $message$'\n'}0" ] || fail "read $type of $text: $got"
    [ -z "$warning" ] || got=$("$velmo" read "$type" "$directory/other.json" 2>&1; echo $?)
    [ "$got" = "${warning:+velmo: $message (use --force to read it)$'\n2'}" ] ||
        [ "$got" = 0 ] || fail "read $type of $text: $got"
done <<END
FontList {$error} is an error reply: 005001, The user login has expired.
UserItem {$error,"PlatformId":1,"Tel":""} is an error reply: 005001, The user login has expired.
UserItem {$error,"Tel":"1"}
FontList {"ExceptionCode":"005001"} is an error reply: 005001, The user login has expired.
FontList {"ErrorCode":7,"ExceptionMessage":"a\\\\nb"} is an error reply: 000007, a\u000Ab
FontList [{"Id":1},{"Id":2,"Name":"a","FontIdList":[1]}] looks like a FontTagList, not a FontList
FontTagList [{"UserId":"a","Pwd":"b"}] looks like an array of EsUserItem, not a FontTagList
UrlItem [{"Url":"a","Name":"b"}] is a list that looks like a UrlList, an object was expected
FontList {"List":[{"Id":1}]} is an object, a list was expected
FontList "fonts" is a single value, a list was expected
FontList [{"ProductName":"a","Name":"b"}]
FontList {}
UserItem []
FontList null
END
for arguments in "tree $tags" "tree $fonts --activate $tags" "tree $fonts --favorite $tags" \
    "filter $samples/collections.json --tags $tags --check 4" \
    "filter $fonts --tags $samples/collections.json --check 4"; do
    # shellcheck disable=SC2086
    expect 2 '(Tag|Collection)List' $arguments
done

# Checking: every sample is used whole, but another value for a constant; what is ignored is told,
# for each file, and as data.
for file in "$samples"/*s.json "$samples"/*-list.json "$samples"/records/*.json; do
    [ "${file##*/}" = ClientOperaItem.json ] ||
        expect 0 '; [1-9][0-9]* values used, 0 ignored$' check "$file"
done
expect_nothing "$samples/records/ClientOperaItem.json: ClientOperaItem; 15 values used, 1 ignored
  PlatformId: ClientOperaItem.PlatformId cannot be set: 2" check "$samples/records/ClientOperaItem.json"
document renamed.json '[{"Id":1,"Nam":"a"},{"Id":2,"Nam":"b","Tags":{}}]'
"$velmo" check "$directory/renamed.json" "$directory/cut.json" "$samples/error-reply.json" \
    --as FontList >"$directory/out" 2>"$directory/err"
[ $? = 2 ] || fail "check: the status is not the worst"
for line in 'renamed.json: FontList; 2 values used, 3 ignored$' '^  \[0\].Nam: .*FontItem.*2 times' \
    '^  \[1\].Tags: FontItem.Tags takes an array of Int, not an object: \{\}$' 'error-reply.json: is an error reply: 005001' \
    'the document: FontList is read from an array of objects, not an object'; do
    grep -qE "$line" "$directory/out" || fail "check: no $line in $(cat "$directory/out")"
done
grep -q 'cut.json: line 1, column 11' "$directory/err" || fail "check: a cut file is not named"
"$velmo" check "$directory/renamed.json" "$samples/error-reply.json" --as FontList --json |
    grep -q '"path":"\[0].Nam","count":2,.*"problem":"is an error reply: 005001, The user' ||
    fail "check --json"
while read -r status text words; do
    document other.json "$text"
    expect "$status" . check "$directory/other.json"
    grep -qF "other.json: $words" "$directory/out" || fail "check of $text: $(cat "$directory/out")"
done <<'END'
0 [] empty
0 null empty
0 [{"UserId":"a","Pwd":"b"}] EsUserItem; 2 values used, 0 ignored
END
document other.json '{"x":1}'
expect_nothing "$directory/other.json: is of no known type" check "$directory/other.json"

# Error codes.
expect 0 '^Code record fail.$' error 002004 --lang En
[ "$("$velmo" error 001001 --lang Ch; echo $?)" = $'\n'0 ] || fail "a code with a blank message"
for code in 2004 ''; do
    expect 1 "the code \"$code\" is not in the table; a code has six digits" error "$code"
done
expect_nothing null error 000004 --json

# Fonts in JSON: exactly these members.
names='"Id":4,"ProductName":"","IsGroup":false,"DisplayName":"","TreeNodeTitle":"\(, \)"'
flags='"IsActivated":false,"IsFavorited":true,"IsAuthed":false'
expect 0 "^\[\{$names,$flags\}\]\$" list favorited "$directory/odd.json" --json
names='"Id":3,"ProductName":"","IsGroup":true,"DisplayName":"Set \(1\)","TreeNodeTitle":"T Set"'
expect 0 "\{$names,.*\"Children\":\[\{\"Id\":4" tree "$directory/odd.json" --json

# Locations: a font without a usable file name or URL is named, and the rest is still shown.
expect 0 '"getRemotePreviewFile":"https://p/Anuphan/3.00/Anuphan-Light_S_B_32.png"\}$' \
    locate "$fonts" 339 --fixed --fix-preview-url https://p/ --json
expect 1 'odd.json: font 1 "A": its file name "abc" is too short' locate "$directory/odd.json" 1
expect 1 'twice.json: 2 fonts have the Id 1; the first' locate "$directory/twice.json" 1
expect 0 '"remotePreviewFile":null' locate "$directory/odd.json" 2 --json
grep -qF 'odd.json: font 2 "B\u001B[31m": its ProductFileUrl "1:b.ttf" gives no URL' \
    "$directory/err" || fail "no warning of the URL"
expect 0 '^Anuphan Light\(' locate "$fonts" 0339
grep -qE '^  Drawn with the font +[^ ]' "$directory/out" || fail "the font to draw with is missing"
expect 2 'no\\u000Asuch' tree "$directory/no
such"
expect 1 '3 is the Id of a group, which has no file' locate "$directory/odd.json" 3
grep -q . "$directory/out" && fail "a font that is not there has locations"
expect_nothing null locate "$directory/odd.json" 5 --json
"$velmo" locate "$directory/odd.json" 1 --json 2>/dev/null |
    grep -qF '"LocalPreviewFile":null,"remotePreviewFile":"https://h/a_B.png"' ||
    fail "null for a missing location"

# Fonts of folders: one group for each family; what is damaged is named.
dejavu=/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf
mkdir -p "$directory/fonts/below"
expect_nothing '[]' scan "$directory/fonts"
expect 2 '/nonexistent: cannot be read: No such file' scan /nonexistent
if [ -f $dejavu ]; then
    cp $dejavu "$directory/fonts/below/A.TTF"
    ln -s .. "$directory/fonts/below/up" # a circle
    head -c 20000 $dejavu >"$directory/fonts/cut.ttf"
    cp "$fonts" "$directory/fonts"
    name=$(printf 'd%.0s' $(seq 250)) # a path of over 4096 bytes cannot be opened
    (cd "$directory/fonts" && for _ in $(seq 17); do mkdir "$name" && cd "$name" || exit; done)
    names='"ProductSetName":"DejaVu Sans","ProductName":"DejaVu Sans","PostscriptName":"DejaVuSans"'
    expect 0 "\"Id\":2,.*$names,\"Format\":\"TTF\",\"Version\":\"2.37\",.*/fonts/below/A.TTF\"" \
        scan "$directory/fonts" "$directory/fonts/below"
    for warning in "$directory/fonts/cut.ttf: is damaged or no font; it is left out" \
        'd/d*: cannot be read: File name too long'; do
        grep -qx "velmo: warning: .*$warning" "$directory/err" || fail "scan: no $warning"
    done
    "$velmo" tree "$directory/out" | grep -q '^1 font, ' || fail "a scanned font twice"
    mkfifo "$directory/fonts/pipe.ttf"
    timeout 20 "$velmo" scan "$directory/fonts/pipe.ttf" 2>&1 |
        grep -q 'pipe.ttf: is no regular file; it is left out' || fail "scan opens a FIFO"
    count_below() { grep -o '"ProductFileName":"/usr/share/fonts/' | wc -l; }
    [ "$("$velmo" scan | count_below)" = "$("$velmo" scan /usr/share/fonts | count_below)" ] ||
        fail "scan of /usr/share/fonts"
fi

# Completions of bash: the words on the line, and what can be in place of the last one. The others
# and the man page are only checked for their syntax, where there is a program for that.
completed() {
    COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
    (cd "$samples" && _velmo && printf '%s' "${COMPREPLY[*]}")
}
# shellcheck disable=SC1091
source "$made/velmo.bash"
while IFS='|' read -r line expected; do
    # shellcheck disable=SC2086
    got=$(eval "completed $line")
    [ "$got" = "$expected" ] || fail "completion of $line: $got"
done <<'END'
velmo lo|lookup locate
velmo list ''|activated authorized favorited
velmo tree --color = al|always
velmo tree --activate act|activated-fonts.json
velmo read UserFontG|UserFontGroupMapItem
velmo locate font-list.json 3|
END
touch "$directory/a*"
touch "$directory/ab"
got=$(cd "$directory" && COMP_WORDS=(velmo tree 'a') COMP_CWORD=2 && _velmo 2>/dev/null &&
    printf '%s|' "${COMPREPLY[@]}")
[ "$got" = 'a*|ab|' ] || [ "$got" = 'ab|a*|' ] || fail "a file named a* completes to $got"
if command -v fish >/dev/null; then
    while IFS='|' read -r line expected; do
        got=$(cd "$samples" && fish -c "source '$made/velmo.fish'; complete -C 'velmo $line'" |
            cut -f1 | paste -sd ' ')
        [ "$got" = "$expected" ] || fail "completion of $line in fish: $got"
    done <<'END'
list a|activated authorized
lo|locate lookup
filter --ch|--check
check --as UserFontG|UserFontGroupMapItem
tree --activate act|activated-fonts.json
END
fi
synopsis=$(sed -n '/^.SS filter/{n;p}; /^.SS find/{n;p}; /^.SS read/{n;p}' "$made/velmo.1" |
    sed 's/\\f[BIR]//g; s/\\-/-/g')
[ "$synopsis" = 'velmo find (--name TEXT | --key TEXT) [OPTION]... FILE
velmo filter --tags FILE --check TAG,... [OPTION]... FILE
velmo read [OPTION]... [TYPE] [FILE]' ] || fail "synopsis: $synopsis"
for check in "fish -n $made/velmo.fish" "zsh -n $made/_velmo" \
    "groff -K utf8 -man -ww -z -rLL=100n $made/velmo.1"; do
    command -v "${check%% *}" >/dev/null || continue
    got=$($check 2>&1)
    [ -z "$got" ] || fail "$check: $got"
done

# No control character reaches the terminal, and a device that is full is reported.
"$velmo" tree "$directory/odd.json" | grep -q $'\033' && fail "tree prints a control character"
document signs.json '[{"ProductName":"\\u202Ea\\u2066b\\u200Fc\\u061Cd\\u2028e\\u009Bf"}]'
expect 0 '\\u202Ea\\u2066b\\u200Fc\\u061Cd\\u2028e\\u009Bf' read FontList "$directory/signs.json"
for arguments in "export $fonts" --help --version 'tree --help'; do
    # shellcheck disable=SC2086
    "$velmo" $arguments >/dev/full 2>"$directory/err"
    [ $? = 2 ] || fail "velmo $arguments: a full device is not reported"
done

# Without memory, one line names the file. The address sanitizer does not start with such a limit.
zeros="[0$(printf ',0%.0s' $(seq 400000))]"
printf '%s' "$zeros" >"$directory/zeros.json"
printf '{"FontList":%s}' "$zeros" >"$directory/map.json"
(printf '['; head -c 200M /dev/zero | tr '\0' ' ') >"$directory/huge.json"
for arguments in "read FontTagList $directory/zeros.json" "tree $directory/huge.json" \
    "tree $fonts --activate $directory/map.json"; do
    # shellcheck disable=SC2086
    (ulimit -v 150000 && "$velmo" --version >/dev/null 2>&1 || exit 0
        "$velmo" $arguments >/dev/null 2>"$directory/err"
        [ $? = 2 ] && grep -qx "velmo: ${arguments##* }: not enough memory" "$directory/err") ||
        fail "velmo $arguments without memory: $(cat "$directory/err")"
done

[ $failures = 0 ] && printf 'velmo does as it should\n'
exit $((failures > 0))
