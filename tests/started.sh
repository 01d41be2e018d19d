#!/usr/bin/env bash
# started.sh BUILD SOURCE COMPILER: follows docs/getting-started.md, with its two files.
set -eu
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
block() { awk -v begin="^\`\`\`$1\$" '/^```/ { shown = $0 ~ begin; next } shown' "$guide"; }

guide=$2/docs/getting-started.md
block cmake >"$folder/CMakeLists.txt"
block cpp >"$folder/main.cpp"
cp "$2/samples/font-list.json" "$folder"
cd "$folder"
{
    cmake --install "$1" --prefix "$folder/velmo" &&
        cmake -G Ninja -B build -DCMAKE_PREFIX_PATH="$folder/velmo" -DCMAKE_CXX_COMPILER="$3" &&
        cmake --build build
} >log 2>&1 || { cat log; exit 1; }
build/app >output
# The page shows the first lines of the output.
diff <(awk '/^    376 fonts/ { shown = 1 } /^    \.\.\./ { exit } shown' "$guide") \
    <(sed 's/^/    /;2q' output)
