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

version_of() {  # MACRO HEADER
    sed -n "s/^#define $1 \"\(.*\)\"/\1/p" "$source_folder/$2"
}

run_consumer() {  # PROGRAM
    local version
    version=$("$1") || fail "$1 failed"
    case $version in
    "library $(version_of ORVEL_VERSION include/orvel.h)") ;;
    "release $(version_of KIT_VERSION kit/include/orvel_kit.h)") ;;
    *) fail "$1 uses version $version" ;;
    esac
}

flags=(none)  # what pkg-config says; it quotes for the shell
flags_of() {  # PKG_CONFIG_NAME
    eval "flags=($(pkg-config --cflags --libs "$1"))"
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

# The libraries of a copy of the sources in FOLDER, with nothing but a compiler and CMake.
build_copy() {  # FOLDER CMAKE_BUILD_OPTION...
    local folder=$1 entry
    shift
    mkdir -p "$folder"
    for entry in "$source_folder"/*; do
        case ${entry##*/} in
        build | demo-output) ;;
        *) cp -R "$entry" "$folder" ;;
        esac
    done
    {
        cmake -S "$folder" -B "$folder/build" -DCMAKE_DISABLE_FIND_PACKAGE_CLI11=ON \
            -DCMAKE_DISABLE_FIND_PACKAGE_nlohmann_json=ON \
            -DCMAKE_DISABLE_FIND_PACKAGE_PNG=ON -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON &&
            cmake --build "$folder/build" -j "$(getconf _NPROCESSORS_ONLN)" "$@"
    } >cmake.log 2>&1 || fail "$(cat cmake.log)"
}

case $3 in
plain_builds_need_a_compiler_alone_and_make_the_same_bytes_everywhere)
    # Where ccache is, the first takes what was compiled in the project's own folder; the second is
    # compiled anew, so what is compared was compiled in two folders.
    CCACHE_BASEDIR=$work/one build_copy "$work/one" --target OrvelSDK --target hello
    CCACHE_DISABLE=1 build_copy "$work/another folder/with a longer name" --target OrvelSDK
    library=$(cd one && find build -name 'libOrvelSDK.*' -type f)
    cmp "one/$library" "another folder/with a longer name/$library" || fail "other bytes"
    one/build/examples/hello || fail "a host of a plain build"
    grep -q 'CMAKE_BUILD_TYPE:STRING=Release' "$work/one/build/CMakeCache.txt" ||
        fail "a plain build is not optimised"
    ;;
pkg_config_from_c)
    install_into "$work/prefix"
    use_prefix "$work/prefix"
    # shellcheck disable=SC2046  # a list of options
    cc -std=c99 -pedantic -Wall -Wextra -Werror "$consumer/consumer.c" -o consumer \
        $(pkg-config --cflags --libs orvelsdk)
    run_consumer ./consumer
    [ "$(pkg-config --modversion orvelsdk)" = "$(version_of KIT_VERSION kit/include/orvel_kit.h)" ] ||
        fail "the .pc file's version"
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
    use_prefix "$work/prefix"  # macOS: the host names the library without a path
    build_with_cmake C -DCMAKE_PREFIX_PATH="$work/prefix"
    ;;
find_package_from_cpp_in_a_moved_tree)
    moved_tree "$work/a folder with spaces"
    use_prefix "$work/a folder with spaces"
    build_with_cmake CXX -DCMAKE_PREFIX_PATH="$work/a folder with spaces"
    ;;
kit_by_pkg_config_shared_and_static_in_a_moved_tree)
    moved_tree "$work/a folder with spaces"
    use_prefix "$work/a folder with spaces"
    for kit in orvelkit orvelkit-static; do
        flags_of $kit
        cc -std=c99 -pedantic -Wall -Wextra -Werror "$consumer/kit_consumer.c" -o $kit-c ${flags[@]+"${flags[@]}"}
        c++ -std=c++20 -Wall -Wextra -Werror "$consumer/kit_consumer.cpp" -o $kit-cpp ${flags[@]+"${flags[@]}"}
        run_consumer ./$kit-c
        run_consumer ./$kit-cpp
        [ "$(pkg-config --modversion $kit)" = "$(pkg-config --modversion orvelsdk)" ] ||
            fail "the version of $kit.pc"
    done
    # A host of the archive needs no shared kit.
    rm -f "$LD_LIBRARY_PATH"/libOrvelKit.so* "$LD_LIBRARY_PATH"/libOrvelKit*.dylib
    run_consumer ./orvelkit-static-c
    if ./orvelkit-c 2>shared.log; then fail "the shared kit was linked as an archive"; fi
    ;;
kit_by_find_package_shared_and_static_in_a_moved_tree)
    moved_tree "$work/a folder with spaces"
    for language in C CXX; do
        for kit in Kit KitStatic; do
            rm -rf build
            build_with_cmake $language -DKIT=$kit -DCMAKE_PREFIX_PATH="$work/a folder with spaces"
        done
    done
    ;;
screens_by_pkg_config_and_find_package_in_a_moved_tree)
    moved_tree "$work/a folder with spaces"
    use_prefix "$work/a folder with spaces"
    for name in orvelscreen orvelscreen-static; do
        flags_of $name
        cc -std=c99 -pedantic -Wall -Wextra -Werror "$consumer/screen_consumer.c" -o $name ${flags[@]+"${flags[@]}"}
        run_consumer ./$name
    done
    for library in Screen ScreenStatic; do
        rm -rf build
        build_with_cmake C -DKIT=$library -DCMAKE_PREFIX_PATH="$work/a folder with spaces"
    done
    # A host of the archive needs no other library than the first.
    rm -f "$LD_LIBRARY_PATH"/libOrvel{Kit,Screen}.so* "$LD_LIBRARY_PATH"/libOrvel{Kit,Screen}*.dylib
    run_consumer ./orvelscreen-static
    ;;
kit_that_is_not_installed_is_told)
    for component in liborvelsdk0 liborvelsdk-dev; do
        cmake --install "$build_folder" --prefix "$work/prefix" --component $component >install.log ||
            fail "$(cat install.log)"
    done
    build_with_cmake C -DCMAKE_PREFIX_PATH="$work/prefix"
    if cmake -S "$consumer" -B asking -G Ninja -DWAY=installed -DLANGUAGE=C -DKIT=Kit \
        -DCMAKE_PREFIX_PATH="$work/prefix" >asking.log 2>&1; then
        fail "a kit is found that was not installed"
    fi
    grep -q "was installed without its component Kit" asking.log || fail "$(cat asking.log)"
    ;;
archive_brings_only_the_faces_that_are_named)
    install_into "$work/prefix"
    use_prefix "$work/prefix"
    flags_of orvelkit-static
    cc -std=c99 "$consumer/kit_consumer.c" -o consumer ${flags[@]+"${flags[@]}"}
    nm consumer >symbols
    grep -q ' kit_sans_12$' symbols || fail "the face is missing"
    if grep -E ' kit_(digits|bold|mono|sans_40)' symbols; then fail "faces come along unasked"; fi
    ;;
screens_are_tested_by_one_line_of_cmake)
    moved_tree "$work/a folder with spaces"
    use_prefix "$work/a folder with spaces"
    expected="$work/expected screens"
    {
        cmake -S "$consumer/screens" -B build -G Ninja -DEXPECTED="$expected" \
            -DCMAKE_PREFIX_PATH="$work/a folder with spaces" && cmake --build build
    } >cmake.log 2>&1 || fail "$(cat cmake.log)"
    run_screens() { ctest --test-dir build --output-on-failure -R "^$1\$" >screens.log 2>&1; }
    if run_screens screens; then fail "nothing is expected, and yet the test passes"; fi
    approval=$(sed -n 's/^To approve what was drawn: //p' screens.log)
    eval "$approval" || fail "$(cat screens.log)"
    run_screens screens || fail "$(cat screens.log)"
    export INK=9
    if run_screens screens; then fail "a change is not found"; fi
    grep -q "100 of 600 pixels differ" screens.log || fail "$(cat screens.log)"
    report=$(sed -n 's/^The report: //p' screens.log)
    grep -q "<h1>1 of 1 picture not as expected</h1>" "$report" || fail "no report"
    run_screens masked || fail "$(cat screens.log)"
    if run_screens failing; then fail "a program that fails passes"; fi
    grep -q "The program failed: 1" screens.log || fail "$(cat screens.log)"
    ;;
scenes_that_are_installed_are_drawn_and_name_their_schema)
    moved_tree "$work/a folder with spaces"
    use_prefix "$work/a folder with spaces"
    PATH="$work/a folder with spaces/bin:$PATH"
    cp -R "$work/a folder with spaces/share/orvelsdk/scenes" .
    drawn=0
    while read -r line; do
        (cd scenes && eval "$line") >drawing.log 2>&1 || fail "$line: $(cat drawing.log)"
        picture=scenes/${line##* }
        orvel-compare "$source_folder/tests/golden/scenes/${line##* }" "$picture" >drawing.log ||
            fail "$(cat drawing.log)"
        drawn=$((drawn + 1))
    done < <(sed -n 's/^    \(orvel-render \)/\1/p' scenes/README.md)
    [ $drawn -ge 6 ] || fail "only $drawn scenes are drawn by the lines of the README"
    named=0
    for file in "$work/a folder with spaces"/share/orvelsdk/scenes/*/*.json; do
        schema=$(sed -n 's/^ *"[$]schema": "\(.*\)",$/\1/p' "$file")
        [ -n "$schema" ] || continue
        cmp "$(dirname "$file")/$schema" "$source_folder/share/schemas/orvel-scene-1.json" ||
            fail "$file: no $schema"
        named=$((named + 1))
    done
    [ $named -ge 6 ] || fail "only $named scenes name their schema"
    ;;
scenes_are_tested_by_one_line_of_cmake)
    moved_tree "$work/a folder with spaces"
    use_prefix "$work/a folder with spaces"
    cp -R "$consumer/scenes" "my scenes"
    configure_scenes() {  # CMAKE_OPTION...
        cmake -S "my scenes" -B build -G Ninja -DCMAKE_PREFIX_PATH="$work/a folder with spaces" "$@" \
            >cmake.log 2>&1
    }
    run_scene() { ctest --test-dir build --output-on-failure -R "^$1\$" >scenes.log 2>&1; }
    approve() {
        approval=$(sed -n 's/^To approve what was drawn: //p' scenes.log)
        eval "$approval" || fail "$(cat scenes.log)"
        run_scene "$1" || fail "$(cat scenes.log)"
    }
    configure_scenes || fail "$(cat cmake.log)"
    for name in sample data; do
        if run_scene $name; then fail "nothing is expected, and yet $name passes"; fi
        grep -q "panel.txt: line 1: found    column 0,0 64x24" scenes.log || fail "$(cat scenes.log)"
        approve $name
    done
    [ -e "my scenes/expected sample/panel.png" ] || fail "no picture is expected"
    # Values that change words and pixels, and one that changes words alone.
    printf '{"n": 9, "name": "a; [b] \\\\ c"}' >"my scenes/values.json"
    if run_scene data; then fail "a change is not found"; fi
    grep -q "panel.txt: line 2: expected   text \"7\"" scenes.log || fail "$(cat scenes.log)"
    grep -q 'panel.txt: line 2: found      text "9"' scenes.log || fail "$(cat scenes.log)"
    grep -q "pixels differ" scenes.log || fail "$(cat scenes.log)"
    grep -q "<h1>1 of 1 picture not as expected</h1>" "$(sed -n 's/^The report: //p' scenes.log)" ||
        fail "no report"
    approve data
    printf '{"n": 9, "name": "a; [b] \\\\ d"}' >"my scenes/values.json"
    if run_scene data; then fail "a change of the description alone is not found"; fi
    grep -q "1 picture: 1 equal" scenes.log || fail "$(cat scenes.log)"
    grep -q 'found      rect "a; \[b\] .* d"' scenes.log || fail "$(cat scenes.log)"
    if run_scene refused; then fail "a scene that is refused passes"; fi
    grep -q "there is no n in the data" scenes.log || fail "$(cat scenes.log)"
    for mistake in "NAME a EXPECTED b" "NAME a EXPECTED b SCENE c COMMAND d" \
        "NAME a EXPECTED b COMMAND d DATA e" "NAME a SCENE c" "NAME a EXPECTED b COMMAND d OPTIONS e"; do
        if configure_scenes -DMISTAKE="$mistake"; then fail "not refused: $mistake"; fi
        grep -q "orvel_add_screen_test: " cmake.log || fail "$(cat cmake.log)"
    done
    ;;
install_name_on_macos)
    # Elsewhere, what CMake would do there is read from the files that it generates.
    if [ "$(uname)" = Darwin ]; then
        install_into "$work/prefix"
        for library in "$build_folder/libOrvelSDK.dylib" "$work/prefix/lib/libOrvelSDK.dylib"; do
            [ "$(otool -D "$library" | tail -n 1)" = OrvelSDK ] || fail "$(otool -D "$library")"
            [ -e "$(dirname "$library")/OrvelSDK" ] || fail "programs do not find $library"
        done
        for library in "$build_folder/libOrvelKit.dylib" "$work/prefix/lib/libOrvelKit.dylib" \
            "$build_folder/libOrvelScreen.dylib" "$work/prefix/lib/libOrvelScreen.dylib"; do
            [ "$(otool -D "$library" | tail -n 1)" = "@rpath/${library##*/}" ] ||
                fail "$(otool -D "$library")"
            otool -L "$library" | grep -q '@rpath/libOrvelSDK.dylib' || fail "$(otool -L "$library")"
        done
    else
        mkdir bin
        printf '#!/bin/sh\necho 11.0\n' >bin/sw_vers
        chmod +x bin/sw_vers
        (cd "$source_folder" && PATH=$work/bin:$PATH cmake --preset tarball -B "$work/build" \
            -DORVEL_BUILD_TOOLS=OFF \
            -DCMAKE_SYSTEM_NAME=Darwin -DCMAKE_TRY_COMPILE_TARGET_TYPE=STATIC_LIBRARY \
            -DCMAKE_CXX_OSX_DEPLOYMENT_TARGET_FLAG=-mmacosx-version-min= \
            -DCMAKE_INSTALL_NAME_TOOL=/usr/bin/install_name_tool) >cmake.log 2>&1 ||
            fail "$(cat cmake.log)"
        [ "$(grep -v install_name_tool build/build.ninja | grep -o -E 'install_name[^ ]*|SONAME.*' |
            sort | xargs)" = "install_name,@rpath/libOrvelKit.dylib \
install_name,@rpath/libOrvelScreen.dylib install_name,OrvelSDK" ] ||
            fail "the linker is told more or less than the three install names"
        for exports in exports_apple.txt exports_kit_apple.txt exports_screen_apple.txt; do
            [ "$(grep -c "exported_symbols_list,$source_folder/cmake/$exports" build/build.ninja)" = 1 ] ||
                fail "no library exports what $exports says"
        done
        grep -q -E 'change OrvelSDK @rpath/libOrvelSDK.dylib .*libOrvelKit' build/build.ninja ||
            fail "the kit does not find the library by its run path"
        grep -q -e '-mmacosx-version-min=11.0' build/build.ninja ||
            fail "the tarball is for no older macOS than the builder's"
        if grep -E -e '-(id|change) ' build/cmake_install.cmake build/src/cmake_install.cmake \
            build/kit/cmake_install.cmake; then
            fail "the installation changes the install name"
        fi
        [ "$(readlink build/OrvelSDK)" = libOrvelSDK.dylib ] ||
            fail "programs do not find the library by its install name"
    fi
    ;;
*) fail "unknown case $3" ;;
esac
