#!/usr/bin/env bash
# consumer.sh BUILD SOURCE COMPILER: installs the library, and builds and runs a program with it.
set -eu
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
cmake --install "$1" --prefix "$prefix/usr" >"$prefix/log"
if find "$prefix/usr" -name detail | grep .; then
    echo "Private headers are installed"
    exit 1
fi
cmake -G Ninja -S "$2/tests/consumer" -B "$prefix/build" -DCMAKE_PREFIX_PATH="$prefix/usr" \
    -DCMAKE_CXX_COMPILER="$3" -DEXAMPLE="$2/examples/own-record.cpp" >"$prefix/log" ||
    { cat "$prefix/log"; exit 1; }
cmake --build "$prefix/build" >"$prefix/log" || { cat "$prefix/log"; exit 1; }
"$prefix/build/consumer" | grep '^1 favourite$'
[ ! -e "$prefix/usr/bin/velmo" ] || "$prefix/usr/bin/velmo" --version
