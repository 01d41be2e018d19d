#!/usr/bin/env bash
# Includes point one way: see "What stands where" in the README.
set -u
cd "$(dirname "$0")/.." || exit 2
status=0

# forbid WHY PLACES... -- PATTERN: no line of the places may match.
forbid() {
    local why=$1 found
    shift
    local places=()
    while [ "$1" != -- ]; do places+=("$1"); shift; done
    if found=$(grep -srnE --include='*.hpp' --include='*.cpp' "$2" "${places[@]}"); then
        printf '%s:\n%s\n' "$why" "$found"
        status=1
    fi
}

forbid "PerchAppLibrary stands below VelmoCloudEntity" PerchAppLibrary -- '#include [<"]VelmoCloudEntity/'
forbid "platform and text are the ground floor of PerchAppLibrary" PerchAppLibrary/platform PerchAppLibrary/text -- \
    '#include <PerchAppLibrary/([A-Za-z]+\.hpp|record/)'
forbid "Third-party libraries are reached through PerchAppLibrary" VelmoCloudEntity -- \
    '#include [<"](simdjson|fast_float/|boost/|unicode/|fontconfig|md5\.h|fmt/|CLI/)'
forbid "entity is the ground floor" VelmoCloudEntity/entity -- '#include <VelmoCloudEntity/(font|catalogue|account|client)/'
forbid "catalogue stands below font" VelmoCloudEntity/catalogue -- '#include <VelmoCloudEntity/(font|account|client)/'
forbid "font stands below account and client" VelmoCloudEntity/font -- '#include <VelmoCloudEntity/(account|client)/'
forbid "account and client do not know each other" VelmoCloudEntity/account -- '#include <VelmoCloudEntity/client/'
forbid "account and client do not know each other" VelmoCloudEntity/client -- '#include <VelmoCloudEntity/(catalogue|font|account)/'
forbid "Nothing is printed and no process ended but in fatalError" VelmoCloudEntity \
    $(find PerchAppLibrary -name "*.?pp" ! -name fatalError.cpp) -- \
    '\b(printf|fputs|std::c(out|err)|abort|exit|terminate)\b *[(<]'

# Public headers keep other libraries out, but for the ones that give out their types, and need no private header.
public=$(find PerchAppLibrary VelmoCloudEntity -name '*.hpp' ! -path '*/detail/*' ! -name JSONElement.hpp \
    ! -name Dictionary.hpp ! -name URL.hpp ! -name ICU.hpp)
# shellcheck disable=SC2086
forbid "Public headers need no other library" $public -- '#include <(simdjson|fast_float/|boost/|unicode/|fontconfig)'
# shellcheck disable=SC2046
forbid "Public headers need no private one" $(grep -vE '/ByteMatches\.hpp$' <<<"$public") -- '#include <.*/detail/'

exit $status
