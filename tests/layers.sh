#!/usr/bin/env bash
# Checks each #include of the libraries against the table of folders in docs/architecture.md.
set -u
cd "$(dirname "$0")/.." || exit 2

# The table as lines: folder, what it includes, other libraries, public headers that need these.
folders() {
    sed -n 's/^| `\(PerchAppLibrary\|VelmoCloudEntity\)/| \1/p' docs/architecture.md | tr -d '`' |
        awk -F' *[|] *' -v OFS='\t' '{ print $2, $4, $5, $6 }'
}

# The includes as lines: file, what it includes. Names with neither "." nor "/" are the standard's.
includes() {
    grep -roE --include='*.hpp' --include='*.cpp' '^ *# *include *["<][^">]*[./][^">]*' \
        PerchAppLibrary VelmoCloudEntity | sed -E 's/: *# *include *["<]/\t/' | sort
}

awk -F'\t' '
    function folder(path) { sub(/\/((detail|internal)\/.*|[^\/]*)$/, "", path); return path }
    function complain(why) { print $1 ": includes <" $2 ">, but " why; failed = 1 }
    # Returns whether a word of the list is the path, its folder, or ends in "/" and begins the path.
    function allows(list, path, words, n, i) {
        n = split(list, words, " ")
        for (i = 1; i <= n; ++i)
            if (path == words[i] || folder(path) == words[i] ||
                (words[i] ~ /\/$/ && index(path, words[i]) == 1))
                return 1
        return 0
    }
    FNR == NR { may[$1] = $2; others[$1] = $3; public[$1] = $4; next }
    {
        ++seen
        from = folder($1); private = $1 ~ /\/(detail|internal)\/|\.cpp$/; split($1, library, "/")
        if (!(from in may)) { complain("its folder is not in the table"); next }
        if ($2 !~ /^(PerchAppLibrary|VelmoCloudEntity)\//) {
            if (!allows(others[from], $2)) complain("its folder may not")
            name = $1; sub(/.*\//, "", name)
            if (!private && index(" " public[from] " ", " " name " ") == 0)
                complain("it is a public header")
        } else {
            if (folder($2) != from && !allows(may[from], $2)) complain("its folder may not")
            if ($2 ~ /\/detail\// && (!private || index($2, library[1] "/") != 1))
                complain("that is private")
            if ($2 ~ /\/internal\// && !private)
                complain("that is not installed")
        }
    }
    END { if (seen == 0) print "no includes found"; exit failed || seen == 0 }
' <(folders) <(includes) || exit 1

if grep -rnE --include='*.hpp' --include='*.cpp' --exclude=fatalError.cpp \
    '\b(printf|fputs|std::c(out|err)|abort|exit|terminate)\b *[(<]' \
    PerchAppLibrary VelmoCloudEntity; then
    echo "Only fatalError.cpp may print or end the process"
    exit 1
fi
