// Any bytes as JSON: no finding of the sanitizers, a reason that is one line with a place, and a
// tree that is written as what reads as the same tree.
#include <cstddef>
#include <cstdint>
#include <string>

#include "harness.h"
#include "screen/document.h"

namespace {

using fuzz::require;

void look_at(const kit::Value& value, int depth) {
    require(depth <= kit::kMostDepth + 1, "too deep");
    require(value.place.line > 0 && value.place.column > 0, "a value without a place");
    for (const kit::Value& item : value.items) {
        look_at(item, depth + 1);
        if (value.kind != kit::Kind::Object) continue;
        require(item.key_place.line > 0, "a key without a place");
        require(value.find(item.key) == &item, "a member that is not found");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    kit::Value root, again;
    std::string why;
    if (!kit::read_document(text, "f", root, why)) {
        require(why.compare(0, 2, "f:") == 0, "a reason without a place");
        require(why.find_first_of("\n\r") == std::string::npos, "a reason of two lines");
        return 0;
    }
    look_at(root, 1);
    const std::string written = kit::write_json(root);
    require(kit::read_document(written, "f", again, why), "what is written cannot be read");
    require(kit::write_json(again) == written, "another tree");
    return 0;
}
