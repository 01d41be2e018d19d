#!/usr/bin/env bash
# Runs the commands in the first comment of an example, or in the indented blocks of a page, and
# compares what they print, on both channels, with the lines below them. A status other than 0 is a
# last line: [1]. A command runs in an empty folder with a link to the samples. For a script or a
# page, the program is velmo. Usage: check.sh SOURCE PROGRAM [ARGUMENTS...]
set -u
source=$(realpath "$1")
name=$(basename "$1" .cpp)
shift
case $source in
    *.cpp) prefix='//     ' ;;
    *.sh) prefix='#     ' ;;
    *) prefix='    ' name=velmo ;;
esac
# shellcheck disable=SC2034 # the function below uses it
program=("$@")
eval "$name() { \"\${program[@]}\" \"\$@\"; }" # so that a command may be a pipeline
if [[ $source = *.sh ]]; then
    PATH=$(dirname "$(realpath "$1")"):$PATH
    program=(bash "$source")
fi

directory=$(mktemp -d)
trap 'rm -rf "$directory"' EXIT
ln -s "$(dirname "$source")/../samples" "$directory/samples"
cd "$directory" || exit 2

expected=$(sed -n "s|^$prefix||p" "$source")
printed=$(grep '^\$ ' <<<"$expected" | while IFS= read -r line; do
    printf '%s\n' "$line"
    eval "${line#\$ }" </dev/null 2>&1
    status=$?
    [ $status = 0 ] || printf '[%d]\n' $status
done)
[ -n "$printed" ] || { echo "$source has no commands"; exit 1; }
diff <(printf '%s\n' "$expected") <(printf '%s\n' "$printed")
