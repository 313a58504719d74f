#!/usr/bin/env bash
# usage: scripts_test.sh SOURCE_FOLDER CASE [BUILD_FOLDER]
# The commands at the top of the tree, with a package manager that only writes down what it is told.
set -euo pipefail

source_folder=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    printf '%s\n' "$@" >&2
    exit 1
}

expect() {  # WHAT ACTUAL EXPECTED
    [ "$2" = "$3" ] || fail "$1:" "$2" "expected:" "$3"
}

# A copy of the scripts, and a path on which the only package manager is a stand-in: it has every
# package but those named here, and writes its arguments to $work/told.
# shellcheck disable=SC2016  # the stand-ins expand their own arguments
machine_without() {  # PACKAGES
    local tool
    mkdir -p "$work/a tree/scripts" "$work/bin"
    cp "$source_folder/scripts/bootstrap" "$work/a tree/scripts"
    for tool in bash cat dirname env grep mkdir tail tr uname; do
        ln -s "$(command -v "$tool")" "$work/bin/$tool"
    done
    printf '#!/bin/bash\nfor name in %s; do [ "$3" = "$name" ] && exit 1; done\necho installed\n' \
        "$* none" >"$work/bin/dpkg-query"
    printf '#!/bin/bash\necho "$@" >>"%s/told"\necho E: no network; exit %s\n' \
        "$work" "${apt_status:-0}" >"$work/bin/apt-get"
    printf '#!/bin/bash\n[ "$2" != libclang-rt-dev ]\n' >"$work/bin/apt-cache"
    printf '#!/bin/bash\necho %s\n' "${user:-0}" >"$work/bin/id"
    chmod +x "$work/bin/"*
    touch "$work/told"
}

bootstrap() {  # SCOPE; leaves $status, $output, $error
    status=0
    PATH=$work/bin "$work/a tree/scripts/bootstrap" "$1" <&- >"$work/out" 2>"$work/err" || status=$?
    output=$(cat "$work/out")
    error=$(cat "$work/err")
}

# A tool by its name, refusing what macOS's does not take.
refused() {  # COMMAND...
    ! "$@" </dev/null >/dev/null 2>&1 || fail "not refused: $*"
}

# A program that does nothing, or what it is given.
stand_in() {  # NAME [COMMANDS]
    mkdir -p "$work/bin"
    printf '#!/bin/bash\n%s\n' "${2:-}" >"$work/bin/$1"
    chmod +x "$work/bin/$1"
}

# A checkout whose packages, site and npm package are a file each.
# shellcheck disable=SC2016  # the stand-ins expand their own arguments
small_checkout() {
    tree=$work/tree
    mkdir -p "$tree/scripts" "$tree/packaging" "$tree/kit/include"
    cp "$source_folder/scripts/release" "$tree/scripts"
    cp "$source_folder/packaging/tidy_tarball" "$tree/packaging"
    printf '#!/bin/bash\necho package >"$3/orvelsdk.deb"\n' >"$tree/scripts/package"
    stand_in emcc 'echo "emcc (Emscripten gcc/clang-like replacement) 3.1.6 ()"'
    PATH=$work/bin:$PATH
    printf '#!/bin/bash\necho module >"$1/orvelsdk-1.2.3.tgz"\n' >"$tree/scripts/npm"
    printf 'cd "$(dirname "$0")/.." && mkdir -p build/js build/tarball && echo "a b 1 MIT" >build/tarball/compiled-in\n' \
        >>"$tree/scripts/npm"
    printf '#!/bin/bash\ncp "$2" "$1.spdx.json"\n' >"$tree/packaging/bill_of_materials"
    printf '#!/bin/bash\n' >"$tree/scripts/playground"
    printf '#!/bin/bash\nmkdir -p build/docs/site && echo page >build/docs/site/index.html\n' >"$tree/scripts/docs"
    sed -i '2s/^/cd "$(dirname "$0")\/.." \&\& /' "$tree/scripts/docs"
    chmod +x "$tree/scripts/"* "$tree/packaging/"*
    printf '#define KIT_VERSION "1.2.3"\n' >"$tree/kit/include/orvel_kit.h"
    printf '# Changelog\n\n## 1.2.3\n\n- New.\n\n## 1.2.2\n\n- Old.\n' >"$tree/CHANGELOG.md"
    echo /build/ >"$tree/.gitignore"
    git -C "$tree" init -q
    commit
}

commit() {
    git -C "$tree" add -A
    git -C "$tree" -c user.name=a -c user.email=a@b.example commit -qm "A change"
}

release() {  # ARGUMENT...; leaves $status, $error
    status=0
    "$tree/scripts/release" "$@" >"$work/out" 2>"$work/err" || status=$?
    error=$(cat "$work/err")
}

case $2 in
release_holds_everything_and_its_sums)
    small_checkout
    release --twice "$work/dist"
    expect status "$status$error" 0
    cd "$work/dist"
    expect files "$(printf '%s ' *)" \
        "NOTES.md SHA256SUMS orvelsdk-1.2.3-site.tar.gz orvelsdk-1.2.3-sources.tar.gz \
orvelsdk-1.2.3.tgz orvelsdk-1.2.3.tgz.spdx.json orvelsdk.deb "
    expect "what the module has from elsewhere" "$(cat ./*.tgz.spdx.json)" "a b 1 MIT
lib emscripten 3.1.6 MIT"
    sha256sum --quiet -c SHA256SUMS || fail "the sums are not those of the files"
    expect "files with a sum" "$(wc -l <SHA256SUMS)" 6
    expect notes "$(grep . NOTES.md)" "- New."
    tar -xzf orvelsdk-1.2.3-site.tar.gz
    expect "the page" "$(cat orvelsdk-1.2.3-site/index.html)" page
    tar -xzf orvelsdk-1.2.3-sources.tar.gz
    diff -r -x .git -x build orvelsdk-1.2.3 "$tree"
    ;;
release_made_twice_tells_the_file_that_differs)
    small_checkout
    # shellcheck disable=SC2016
    printf '#!/bin/bash\necho "$0" >"$3/orvelsdk.deb"\n' >"$tree/scripts/package"
    commit
    release --twice "$work/dist"
    expect status "$status" 1
    expect error "$error" "release: these files came out with other bytes"
    grep -q '^+.* orvelsdk.deb$' "$work/out" || fail "it does not name the file:" "$(cat "$work/out")"
    ;;
release_is_made_of_a_commit_alone)
    small_checkout
    echo more >>"$tree/kit/include/orvel_kit.h"
    release "$work/dist"
    expect status "$status" 1
    expect error "$error" "release: found changes without a commit, the first in kit/include/orvel_kit.h"
    rm -rf "$tree/.git"
    release "$work/dist"
    expect status "$status" 1
    expect "last of it" "$(tail -n 1 "$work/err")" "release: the sources are no git checkout"
    ;;
release_removes_nothing_but_a_release)
    small_checkout
    mkdir "$work/dist" && echo mine >"$work/dist/letter"
    release "$work/dist"
    expect status "$status" 1
    expect error "$error" "release: $work/dist holds something other than a release"
    expect letter "$(cat "$work/dist/letter")" mine
    rm "$work/dist/letter"
    release "$work/dist"
    release "$work/dist"
    expect "status of the second" "$status" 0
    ;;
bsd_tools_are_unlike_gnus)
    [ "$(uname)" != Darwin ] || exit 0
    touch "$work/file"
    refused sed -i s/a/b/ "$work/file"
    refused sed 's/a\+/b/' "$work/file"
    refused date -d @0
    refused readlink -f "$work"
    refused mktemp --suffix=.txt
    refused stat -c %s "$work/file"
    refused find -name file
    refused find "$work" -printf '%f\n'
    refused grep -P a "$work/file"
    refused cp --recursive "$work/file" "$work/copy"
    refused head --lines=1 "$work/file"
    refused xargs -r echo
    refused nproc
    refused realpath "$work"
    expect "lines, as text" "$(printf 'a\nb\n' | wc -l)" "       2 "
    expect "what xargs does with nothing" "$(xargs echo ran </dev/null)" ""
    expect "what sed makes of it" "$(echo aab | sed -E 's/a+/c/')" cb
    ;;
demo_and_check_run_with_bsd_tools)
    tree="$work/a tree"
    mkdir -p "$tree/build/release"
    cp -R "$source_folder/demo" "$source_folder/check" "$source_folder/scripts" \
        "$source_folder/CMakePresets.json" "$tree"
    ln -s "$3/examples" "$3/orvel-bmp2png" "$tree/build/release"
    for tool in cmake apt-get brew; do stand_in $tool; done
    stand_in dpkg-query 'echo installed'
    stand_in ctest 'echo "1/1 Test #1: A.B ......   Passed    0.01 sec"; echo "100% tests passed"'
    PATH=$work/bin:$PATH
    "$tree/demo" "$work/pictures" >"$work/said" || fail "$(cat "$work/said")"
    for file in hello.bmp hello.png gallery.html; do
        [ -s "$work/pictures/$file" ] || fail "no $file:" "$(cat "$work/said")"
    done
    grep -qx '  hello.png' "$work/said" || fail "$(cat "$work/said")"
    expect "what check says" "$("$tree/check" -R canvas)" "building (release)
testing (release)
100% tests passed"
    ;;
those_for_linux_say_so_elsewhere)
    stand_in uname 'echo Darwin'
    echo 'import sys; sys.platform = "darwin"' >"$work/sitecustomize.py"
    for command in .ci/run bench/run scripts/release scripts/wheel scripts/matrix scripts/mutate \
        scripts/coverage scripts/valgrind; do
        status=0
        PATH=$work/bin:$PATH PYTHONPATH=$work "$source_folder/$command" >"$work/out" 2>&1 || status=$?
        expect "status of $command" $status 1
        expect "what $command says" "$(cat "$work/out")" \
            "${command#scripts/}: it needs Linux"
    done
    ;;
bootstrap_is_silent_and_fetches_nothing_when_nothing_is_missing)
    machine_without
    bootstrap ci
    expect status "$status" 0
    expect output "$output$error" ""
    expect "the package manager was told" "$(cat "$work/told")" ""
    ;;
bootstrap_installs_only_what_is_missing)
    machine_without ninja-build libcli11-dev libgtest-dev
    bootstrap demo
    expect status "$status" 0
    expect output "$output" "bootstrap: installing ninja-build libcli11-dev"
    expect error "$error" ""
    expect "the package manager was told" "$(cat "$work/told")" \
        "-q -o DPkg::Lock::Timeout=120 update
-q -y -o DPkg::Lock::Timeout=120 install --no-install-recommends ninja-build libcli11-dev"
    ;;
bootstrap_fetches_for_the_library_a_compiler_and_cmake_alone)
    machine_without g++ cmake ninja-build pkg-config libpng-dev libcli11-dev nlohmann-json3-dev python3 libfreetype-dev \
        libfontconfig-dev fonts-dejavu-core libsdl2-dev libgtest-dev
    bootstrap library
    expect output "$output" "bootstrap: installing g++ cmake ninja-build"
    ;;
bootstrap_takes_the_first_name_that_the_system_knows)
    machine_without libclang-rt-dev libclang-common-14-dev
    bootstrap ci
    expect status "$status" 0
    expect "the package manager was told" "$(tail -n 1 "$work/told")" \
        "-q -y -o DPkg::Lock::Timeout=120 install --no-install-recommends libclang-common-14-dev"
    ;;
bootstrap_says_why_a_package_was_not_installed)
    apt_status=100
    machine_without cmake
    bootstrap demo
    expect status "$status" 1
    expect error "$error" "bootstrap: apt-get -q -o DPkg::Lock::Timeout=120 update failed; all of its \
output is in build/bootstrap.log, which ends:
E: no network"
    ;;
bootstrap_needs_root_or_sudo_to_install)
    user=1000
    machine_without cmake
    bootstrap demo
    expect status "$status" 1
    expect error "$error" \
        "bootstrap: there is no sudo, and only root can install what is missing: cmake "
    expect "the package manager was told" "$(cat "$work/told")" ""
    ;;
bootstrap_without_a_package_manager_names_what_is_missing)
    machine_without
    rm "$work/bin/apt-get" "$work/bin/dpkg-query"
    bootstrap demo
    expect status "$status" 1
    [[ $error == "bootstrap: neither apt nor Homebrew is here; please install by hand"*cmake* ]] ||
        fail "$error"
    ;;
commands_explain_themselves)
    for command in demo check scripts/bake scripts/bootstrap scripts/build scripts/describe scripts/release scripts/wheel \
        scripts/draw; do
        [[ $("$source_folder/$command" --help) == "usage: "*"$command"* ]] || fail "$command --help"
    done
    ;;
mistakes_are_said_in_one_line)
    for call in "demo --unknown" "check unknown" "scripts/bootstrap unknown" "scripts/build unknown" \
        "scripts/draw nowhere /tmp" "scripts/bake unknown"; do
        read -r command argument <<<"$call"
        status=0
        # shellcheck disable=SC2086  # several arguments
        "$source_folder/$command" $argument >/dev/null 2>"$work/err" || status=$?
        [ "$status" != 0 ] || fail "$call succeeds"
        [ "$(wc -l <"$work/err")" -eq 1 ] || fail "$call says:" "$(cat "$work/err")"
    done
    ;;
*) fail "unknown case $2" ;;
esac
