// Faces small enough that what is written in them can be worked out by hand.
#pragma once

#include <cstring>

#include "orvel_kit.h"

namespace orvel_test {

/// Lines of 8 rows, 6 above the baseline and 2 below; capitals of 5.
///
///     H     1   e     i   f     g     é     -     .   U+2026   U+FFFD   W, 70 wide
///     #.#   #   ...   #   .##   ...   ###   ...   .   .....    ###      #........#.....
///     #.#   #   ...   .   .#.   ...   #.#   ...   .   .....    ###      #........#.....
///     ###   #   ##.   #   ###   ###   #.#   ###   .   .....    ###      #........#.....
///     #.#   #   #..   #   .#.   #.#   #.#   ...   .   .....    ###      #........#.....
///     #.#   #   .##   #   .#.   ###   ###   ...   #   #.#.#    ###      ###############
///                               ..#
///                               ###
///
/// Each ends a column behind its last one. The left column of f hangs over the letter before it. A
/// space is 3 wide.
inline constexpr char kTinyFile[] =
    "STARTFONT 2.1\nFONT tiny\nSIZE 8 72 72\nFONTBOUNDINGBOX 70 7 -1 -2\n"
    "STARTPROPERTIES 3\nFONT_ASCENT 6\nFONT_DESCENT 2\nCAP_HEIGHT 5\nENDPROPERTIES\n"
    "CHARS 13\n"
    "STARTCHAR space\nENCODING 32\nSWIDTH 0 0\nDWIDTH 3 0\nBBX 0 0 0 0\nBITMAP\n"
    "ENDCHAR\n"
    "STARTCHAR hyphen\nENCODING 45\nSWIDTH 0 0\nDWIDTH 4 0\nBBX 3 1 0 2\nBITMAP\n"
    "E0\nENDCHAR\n"
    "STARTCHAR period\nENCODING 46\nSWIDTH 0 0\nDWIDTH 2 0\nBBX 1 1 0 0\nBITMAP\n"
    "80\nENDCHAR\n"
    "STARTCHAR one\nENCODING 49\nSWIDTH 0 0\nDWIDTH 2 0\nBBX 1 5 0 0\nBITMAP\n"
    "80\n80\n80\n80\n80\nENDCHAR\n"
    "STARTCHAR H\nENCODING 72\nSWIDTH 0 0\nDWIDTH 4 0\nBBX 3 5 0 0\nBITMAP\n"
    "A0\nA0\nE0\nA0\nA0\nENDCHAR\n"
    "STARTCHAR W\nENCODING 87\nSWIDTH 0 0\nDWIDTH 71 0\nBBX 70 5 0 0\nBITMAP\n"
    "804020100804020104\n804020100804020104\n804020100804020104\n804020100804020104\nFFFFFFFFFFFFFF"
    "FFFC\nENDCHAR\n"
    "STARTCHAR e\nENCODING 101\nSWIDTH 0 0\nDWIDTH 4 0\nBBX 3 3 0 0\nBITMAP\n"
    "C0\n80\n60\nENDCHAR\n"
    "STARTCHAR f\nENCODING 102\nSWIDTH 0 0\nDWIDTH 3 0\nBBX 3 5 -1 0\nBITMAP\n"
    "60\n40\nE0\n40\n40\nENDCHAR\n"
    "STARTCHAR g\nENCODING 103\nSWIDTH 0 0\nDWIDTH 4 0\nBBX 3 5 0 -2\nBITMAP\n"
    "E0\nA0\nE0\n20\nE0\nENDCHAR\n"
    "STARTCHAR i\nENCODING 105\nSWIDTH 0 0\nDWIDTH 2 0\nBBX 1 5 0 0\nBITMAP\n"
    "80\n00\n80\n80\n80\nENDCHAR\n"
    "STARTCHAR eacute\nENCODING 233\nSWIDTH 0 0\nDWIDTH 4 0\nBBX 3 5 0 0\nBITMAP\n"
    "E0\nA0\nA0\nA0\nE0\nENDCHAR\n"
    "STARTCHAR ellipsis\nENCODING 8230\nSWIDTH 0 0\nDWIDTH 6 0\nBBX 5 1 0 0\nBITMAP\n"
    "A8\nENDCHAR\n"
    "STARTCHAR replacement\nENCODING 65533\nSWIDTH 0 0\nDWIDTH 4 0\nBBX 3 5 0 0\nBITMAP\n"
    "E0\nE0\nE0\nE0\nE0\nENDCHAR\n"
    "ENDFONT\n";

/// H and a full stop alone: what a face may lack.
inline constexpr char kBareFile[] =
    "STARTFONT 2.1\nFONT bare\nSIZE 8 72 72\nFONTBOUNDINGBOX 3 5 0 0\n"
    "STARTPROPERTIES 3\nFONT_ASCENT 6\nFONT_DESCENT 2\nCAP_HEIGHT 5\nENDPROPERTIES\n"
    "CHARS 2\n"
    "STARTCHAR period\nENCODING 46\nSWIDTH 0 0\nDWIDTH 2 0\nBBX 1 1 0 0\nBITMAP\n"
    "80\nENDCHAR\n"
    "STARTCHAR H\nENCODING 72\nSWIDTH 0 0\nDWIDTH 4 0\nBBX 3 5 0 0\nBITMAP\n"
    "A0\nA0\nE0\nA0\nA0\nENDCHAR\n"
    "ENDFONT\n";

inline const kit_face* tiny_face() {
    static const kit_face* const face =
        kit_face_read(kTinyFile, std::strlen(kTinyFile), nullptr, 0);
    return face;
}

inline const kit_face* bare_face() {
    static const kit_face* const face =
        kit_face_read(kBareFile, std::strlen(kBareFile), nullptr, 0);
    return face;
}

}  // namespace orvel_test
