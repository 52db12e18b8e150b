#!/usr/bin/env bash
# lint.sh [--full]: every check of the house, each with OK, FAIL or SKIP; fails when one fails.
# clang-tidy looks at the sources that differ from origin; with --full at all of them, and each
# public header is compiled alone, and read by moc.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

full=no
[ "${1:-}" != --full ] || full=yes
build=build/dev
failed=0

# check NAME COMMAND...: status 77 means that the check could not be made here.
check() {
    local name=$1 output status
    shift
    output=$("$@" 2>&1)
    status=$?
    case $status in
    0) printf 'OK    %s\n' "$name" ;;
    77) printf 'SKIP  %s: ' "$name" ;;
    *)
        printf 'FAIL  %s\n' "$name"
        failed=1
        ;;
    esac
    [ -z "$output" ] || printf '%s\n' "$output" | sed "$([ $status -eq 77 ] || echo 's/^/      /')"
}

sources() { git ls-files -z -co --exclude-standard -- '*.cpp' '*.h'; }

check_format() {
    local files
    files=$(sources | xargs -0 -r -P2 -n40 clang-format --dry-run -Werror 2>&1 |
        sed -nE 's/^([^ :]+):[0-9]+:[0-9]+: error.*/\1/p' | sort -u)
    [ -z "$files" ] || { printf '%s\n' "$files" 'run ./dev format'; return 1; }
}

# Text crosses between the toolkit and Qt in one place, so that every peer treats it the same.
# Bytes (QByteArray) are no text.
check_text_conversion() {
    ! git grep --untracked -nE -e 'QString::fromStd|(\.|->)toStd(W|U16|U32)?String\(' \
        --and --not -e 'QByteArray|Base64' -- voxi2_qt apps \
        ':!voxi2_qt/kernel/*text*' ':!voxi2_qt/export/include/voxi2_qt/kernel/*text*'
}

check_qt_symbols() {
    if ! ls $build/lib/*.so >/dev/null 2>&1; then
        echo "nothing is built in $build"
        return 77
    fi
    tools/check_qt_symbols.sh $build/lib
}

# Whoever includes one header of ours alone must get by with it. (That sources get by without the
# precompiled header is found by clang-tidy, which does not see it.)
check_headers() {
    if [ $full = no ]; then
        echo "only with --full"
        return 77
    fi
    if [ ! -f $build/build.ninja ]; then
        echo "nothing is configured in $build"
        return 77
    fi
    local output
    output=$(cmake --build $build --target all_verify_interface_header_sets -- -k 0 2>&1) ||
        { printf '%s\n' "$output" | grep -E 'error|FAILED'; return 1; }
    tools/check_moc.py $build
}

check_kinds() {
    local kind missing=
    for kind in $(sed -nE 's/^ *serve<Qt(\w+)2>.*/VX\12/p' voxi2_qt/kernel/qtfactory2.cpp |
        sed 's/VXViewModelPeer2/VXAbstractViewModel2/'); do
        grep -q "\`$kind\`" docs/kinds.md || missing+=" $kind"
    done
    [ -z "$missing" ] || { echo "not in docs/kinds.md:$missing"; return 1; }
}

# What Doxygen finds in the reference: broken references, unknown parameters and commands.
check_reference() {
    if ! command -v doxygen >/dev/null; then
        echo "there is no doxygen"
        return 77
    fi
    mkdir -p build/docs
    doxygen docs/Doxyfile
}

changed_sources() {
    local base
    if [ $full = yes ] || ! base=$(git merge-base HEAD origin/HEAD 2>/dev/null ||
        git merge-base HEAD origin/main 2>/dev/null); then
        [ $full = yes ] && git ls-files -- '*.cpp'
        return 0
    fi
    git diff --name-only --diff-filter=d "$base" -- '*.cpp'
    git ls-files -o --exclude-standard -- '*.cpp'
}

check_tidy() {
    local files
    if [ ! -f $build/compile_commands.json ]; then
        echo "nothing is configured in $build"
        return 77
    fi
    # A source outside the database (a consumer project's) has no flags to be checked with.
    files=$(changed_sources | sort -u | while read -r file; do
        ! grep -qF "\"$PWD/$file\"" $build/compile_commands.json || echo "$file"
    done)
    if [ -z "$files" ]; then
        echo "no changed source (--full checks all)"
        return 77
    fi
    printf '%s\n' "$files" | timeout 5400 python3 tools/run_tidy.py $build
}

check format check_format
check layers python3 tools/check_layers.py
check symmetry python3 tools/check_symmetry.py
check qt-symbols check_qt_symbols
check text-conversion check_text_conversion
check kinds check_kinds
check docs python3 tools/check_docs.py
check programs python3 tools/check_programs.py
check reference check_reference
check headers check_headers
check tidy check_tidy
check sizes python3 tools/check_file_sizes.py
exit $failed
