#!/usr/bin/env bash
# hardened.sh PROGRAM: checks that the program has the protections of cmake/Hardening.cmake.
set -u
found=$(LC_ALL=C readelf --wide --file-header --segments --dynamic --dyn-syms "$1") || exit 2
status=0
for pattern in 'Type: +DYN ' GNU_RELRO BIND_NOW 'UND __stack_chk_fail\b' 'UND __[a-z]+_chk\b'; do
    grep -qE "$pattern" <<<"$found" || { echo "$1 lacks: $pattern"; status=1; }
done
exit $status
