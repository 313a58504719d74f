#!/usr/bin/env bash
# usage: scripts_test.sh SOURCE_FOLDER CASE
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

case $2 in
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
    for command in demo check scripts/bootstrap scripts/build scripts/draw; do
        [[ $("$source_folder/$command" --help) == "usage: "*"$command"* ]] || fail "$command --help"
    done
    ;;
mistakes_are_said_in_one_line)
    for call in "demo --unknown" "check unknown" "scripts/bootstrap unknown" "scripts/build unknown" \
        "scripts/draw nowhere /tmp"; do
        read -r command argument <<<"$call"
        status=0
        # shellcheck disable=SC2086  # several arguments
        "$source_folder/$command" $argument >/dev/null 2>"$work/err" || status=$?
        [ "$status" != 0 ] || fail "$call succeeds"
        expect "lines of $call" "$(wc -l <"$work/err")" 1
    done
    ;;
*) fail "unknown case $2" ;;
esac
