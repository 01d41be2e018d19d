#!/usr/bin/env bash
# consumer.sh SOURCE COMPILER FROM WAY...: builds and runs a user's program with the library, in each
# way: find_package and pkg-config find what is installed under FROM, or what a build in FROM
# installs; add_subdirectory and FetchContent build the sources.
set -eu
source=$1 compiler=$2 prefix=$3
shift 3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
example=$source/examples/own-record.cpp
if [ -e "$prefix/CMakeCache.txt" ]; then
    cmake --install "$prefix" --prefix "$work/moved" >"$work/log"
    prefix=$work/prefix
    mv "$work/moved" "$prefix" # an installed tree can be moved
fi
if find "$prefix/include/PerchAppLibrary" "$prefix/include/VelmoCloudEntity" -name detail | grep .; then
    echo "Private headers are installed"
    exit 1
fi
"$prefix/bin/velmo" --version

by_cmake() { # WAY [OPTIONS]
    local way=$1
    shift
    cmake -G Ninja -S "$source/tests/consumer" -B "$work/$way" -DCMAKE_PREFIX_PATH="$prefix" \
        -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_BUILD_TYPE=Release -DCMAKE_UNITY_BUILD=ON -DWAY="$way" \
        -DSOURCE="$source" -DEXAMPLE="$example" "$@" &&
        cmake --build "$work/$way" --target consumer
}

by_pkg_config() { # as docs/getting-started.md says; pkg-config finds a package without help
    local flags
    [ "$prefix" = /usr ] || export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
    flags=$(pkg-config --cflags --libs VelmoCloudEntity)
    [ "$prefix" = /usr ] || flags+=" -Wl,-rpath,$prefix/lib"
    mkdir "$work/pkg-config"
    # shellcheck disable=SC2086
    "$compiler" -std=c++20 "$example" $flags -o "$work/pkg-config/consumer"
}

build() { # WAY
    case $1 in
    pkg-config) by_pkg_config ;;
    find_package)
        by_cmake find_package -DWANTED=1.0 &&
            ! by_cmake newer -DWAY=find_package -DWANTED=1.99 2>"$work/err" &&
            grep 'compatible with requested version "1.99"' "$work/err"
        ;;
    *) by_cmake "$1" ;;
    esac
}

for way; do
    build "$way" >"$work/log" 2>&1 || { cat "$work/log"; echo "Failed: $way"; exit 1; }
    "$work/$way/consumer" | grep -q '^1 favourite$'
    echo "$way: builds and runs"
done
