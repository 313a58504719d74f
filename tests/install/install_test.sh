#!/usr/bin/env bash
# usage: install_test.sh SOURCE_FOLDER BUILD_FOLDER CASE
# What other projects do with an installed OrvelSDK. Each case works in a folder of its own.
set -euo pipefail

source_folder=$1
build_folder=$2
consumer=$source_folder/tests/consumer
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() {
    echo "$*" >&2
    exit 1
}

install_into() {  # PREFIX
    cmake --install "$build_folder" --prefix "$1" >install.log || fail "$(cat install.log)"
}

use_prefix() {  # PREFIX
    local pc
    pc=$(find "$1" -name orvelsdk.pc)
    PKG_CONFIG_PATH=$(dirname "$pc")
    LD_LIBRARY_PATH=$(dirname "$PKG_CONFIG_PATH")
    DYLD_LIBRARY_PATH=$LD_LIBRARY_PATH
    export PKG_CONFIG_PATH LD_LIBRARY_PATH DYLD_LIBRARY_PATH
}

run_consumer() {  # PROGRAM
    local version
    version=$("$1") || fail "$1 failed"
    [ "$version" = "$(sed -n 's/^#define ORVEL_VERSION "\(.*\)"/\1/p' \
        "$source_folder/include/orvel.h")" ] || fail "$1 uses version $version"
}

build_with_cmake() {  # LANGUAGE CMAKE_OPTIONS...
    local language=$1
    shift
    {
        cmake -S "$consumer" -B build -G Ninja -DWAY=installed -DLANGUAGE="$language" "$@" \
            >cmake.log 2>&1
        cmake --build build >>cmake.log 2>&1
    } || fail "$(cat cmake.log)"
    run_consumer build/consumer
}

# A tree that was moved after its installation must not remember where it was.
moved_tree() {  # PREFIX
    install_into "$work/before"
    mv "$work/before" "$1"
    if grep -rIl "$work/before" "$1"; then
        fail "these files remember where they were installed"
    fi
}

case $3 in
pkg_config_from_c)
    install_into "$work/prefix"
    use_prefix "$work/prefix"
    # shellcheck disable=SC2046  # a list of options
    cc -std=c99 -pedantic -Wall -Wextra -Werror "$consumer/consumer.c" -o consumer \
        $(pkg-config --cflags --libs orvelsdk)
    run_consumer ./consumer
    [ "$(pkg-config --modversion orvelsdk)" = "$(./consumer)" ] || fail "the .pc file's version"
    ;;
pkg_config_from_cpp_in_a_moved_tree)
    moved_tree "$work/after"
    use_prefix "$work/after"
    # shellcheck disable=SC2046  # a list of options
    c++ -std=c++11 -pedantic -Wall -Wextra -Werror "$consumer/consumer.cpp" -o consumer \
        $(pkg-config --cflags --libs orvelsdk)
    run_consumer ./consumer
    ;;
find_package_from_c)
    install_into "$work/prefix"
    build_with_cmake C -DCMAKE_PREFIX_PATH="$work/prefix"
    ;;
find_package_from_cpp_in_a_moved_tree)
    moved_tree "$work/a folder with spaces"
    build_with_cmake CXX -DCMAKE_PREFIX_PATH="$work/a folder with spaces"
    ;;
install_name_on_macos)
    # Elsewhere, what CMake would do there is read from the files that it generates.
    if [ "$(uname)" = Darwin ]; then
        install_into "$work/prefix"
        for library in "$build_folder/libOrvelSDK.dylib" "$work/prefix/lib/libOrvelSDK.dylib"; do
            [ "$(otool -D "$library" | tail -n 1)" = OrvelSDK ] || fail "$(otool -D "$library")"
            [ -e "$(dirname "$library")/OrvelSDK" ] || fail "programs do not find $library"
        done
    else
        cmake -S "$source_folder" -B build -G Ninja -DCMAKE_SYSTEM_NAME=Darwin \
            -DCMAKE_TRY_COMPILE_TARGET_TYPE=STATIC_LIBRARY \
            -DCMAKE_INSTALL_NAME_TOOL=/usr/bin/install_name_tool \
            -DORVEL_BUILD_TESTS=OFF -DORVEL_BUILD_TOOLS=OFF >cmake.log 2>&1 ||
            fail "$(cat cmake.log)"
        [ "$(grep -v install_name_tool build/build.ninja |
            grep -o -E 'install_name[^ ]*|SONAME.*')" = install_name,OrvelSDK ] ||
            fail "the linker is told more or less than the install name OrvelSDK"
        if grep -r install_name build/cmake_install.cmake build/src/cmake_install.cmake; then
            fail "the installation changes the install name"
        fi
        [ "$(readlink build/OrvelSDK)" = libOrvelSDK.dylib ] ||
            fail "programs do not find the library by its install name"
    fi
    ;;
*) fail "unknown case $3" ;;
esac
