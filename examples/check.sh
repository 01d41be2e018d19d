#!/usr/bin/env bash
# Runs the commands in the first comment of an example, and compares what they print, on both
# channels, with the lines below them. A status other than 0 is a last line: [1]. A command runs in
# an empty folder with a link to the samples. Usage: check.sh SOURCE PROGRAM [ARGUMENTS...]
set -u
source=$(realpath "$1")
name=$(basename "$1" .cpp)
shift
# shellcheck disable=SC2034 # the function below uses it
program=("$@")
eval "$name() { \"\${program[@]}\" \"\$@\"; }" # so that a command may be a pipeline

directory=$(mktemp -d)
trap 'rm -rf "$directory"' EXIT
ln -s "$(dirname "$source")/../samples" "$directory/samples"
cd "$directory" || exit 2

expected=$(sed -n 's|^//     ||p' "$source")
printed=$(grep '^\$ ' <<<"$expected" | while IFS= read -r line; do
    printf '%s\n' "$line"
    eval "${line#\$ }" </dev/null 2>&1
    status=$?
    [ $status = 0 ] || printf '[%d]\n' $status
done)
[ -n "$printed" ] || { echo "$source has no commands"; exit 1; }
diff <(printf '%s\n' "$expected") <(printf '%s\n' "$printed")
