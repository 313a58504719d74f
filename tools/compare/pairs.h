// Which pictures belong together: of two files these, of two folders those of one name.
#pragma once

#include <string>
#include <vector>

namespace orvel_tools {

/// The paths of a picture on both sides; empty where it is not there.
struct Pair {
    std::string name;  // the path below the folder, without .png or .bmp
    std::string expected, actual;
};

struct Pairs {
    std::vector<Pair> pairs;           // in the order of their names' bytes
    bool folders = false;              // both sides are
    std::vector<std::string> trouble;  // a line for everything that could not be looked at
};

/// Every picture of either side, below sub-folders too: files named .png or .bmp, in any case. With
/// @p approving, the expected side need not be there.
Pairs find_pairs(const std::string& expected, const std::string& actual, bool approving);

}  // namespace orvel_tools
