#include "widgets/split.h"

namespace orvel {

std::vector<std::string> split(std::string_view text) {
    std::vector<std::string> pieces;
    std::string piece;
    for (const char c : text) {
        if (c == '|') {
            pieces.push_back(piece);
            piece.clear();
        } else {
            piece += c;
        }
    }
    pieces.push_back(piece);
    return pieces;
}

}  // namespace orvel
