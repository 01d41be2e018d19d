#!/usr/bin/env bash
# Builds and tests in a bare Debian of another suite, or for 64-bit ARM: elsewhere.sh [SUITE|arm64].
# The chroot stays in build/elsewhere, so that a second run only builds what changed.
set -euo pipefail
cd "$(dirname "$0")/.."
target=${1:-stable}
root=$PWD/build/elsewhere/$target
home=/root/VelmoCloudEntity

say() { printf '%s\n' "$*"; }

# Prints the address of Debian's packages: VELMO_MIRROR, or what apt uses on this machine.
mirror() {
    local found
    # shellcheck disable=SC2016
    found=${VELMO_MIRROR:-$(apt-get indextargets --format '$(SITE)' 'Created-By: Packages' \
        'Origin: Debian' | sed -n 1p)}
    [ -n "$found" ] || {
        say "apt has no archive of Debian here. Run with VELMO_MIRROR=ADDRESS of one." >&2
        return 1
    }
    printf '%s\n' "$found"
}

make_chroot() { # SUITE
    local proxy address log=$root.log
    [ ! -e "$root/etc/apt/apt.conf.d/machine" ] || return 0
    address=$(mirror)
    say "Making a chroot of Debian $1 in $root"
    rm -rf "$root"
    mkdir -p "$root"
    proxy=$(apt-config dump --format '%v' Acquire::http::Proxy)
    unshare --mount env ${proxy:+http_proxy="$proxy"} \
        debootstrap --variant=minbase "$1" "$root" "$address" >"$log" 2>&1 ||
        { cat "$log"; exit 1; }
    apt-config dump Acquire >"$root/etc/apt/apt.conf.d/machine"
}

# Runs a command in the chroot. Its mounts and processes end with it.
inside() {
    # shellcheck disable=SC2016
    unshare --mount --pid --fork bash -c '
        set -e
        mount -t proc proc "$0/proc"
        mount --bind /dev/pts "$0/dev/pts"
        exec chroot "$0" "$@"' "$root" "$@"
}

# Copies the working tree into the chroot. Keeps what an earlier run has built there.
bring_sources() {
    cp -L /etc/resolv.conf "$root/etc/resolv.conf"
    mkdir -p "$root$home"
    find "$root$home" -mindepth 1 -maxdepth 1 ! -name build -exec rm -rf {} +
    git ls-files -z --cached --others --exclude-standard |
        tar --create --null --files-from=- --ignore-failed-read |
        tar --extract --directory "$root$home"
}

release() { sed -n 's/^PRETTY_NAME="\(.*\)"$/\1/p' "$root/etc/os-release"; }

in_project() { inside bash -euc "cd $home; $1"; }

# Builds with a cross compiler and with the packages of the other architecture.
test_arm64() {
    # shellcheck disable=SC2016
    in_project '
        dpkg --add-architecture arm64
        apt-get -qq update
        packages=(g++-aarch64-linux-gnu qemu-user)
        for package in $(./dev packages); do
            case $package in
            g++) continue ;;
            *-dev) ! apt-cache show "$package:arm64" >/dev/null 2>&1 || package+=:arm64 ;;
            esac
            packages+=("$package")
        done
        export DEBIAN_FRONTEND=noninteractive
        apt-get -qq install -y --no-install-recommends "${packages[@]}" >/tmp/apt.log 2>&1 ||
            { cat /tmp/apt.log; exit 1; }
        cmake --preset arm64 >/dev/null
        cmake --build --preset arm64
        ctest --preset arm64'
}

if [ "$target" = arm64 ]; then
    make_chroot stable
    bring_sources
    say "For 64-bit ARM in $(release)"
    test_arm64
else
    make_chroot "$target"
    bring_sources
    say "In $(release)"
    in_project './dev demo; ./dev test'
fi
