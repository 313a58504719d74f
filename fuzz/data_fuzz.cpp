// Any data, templates and paths, taken apart at zero bytes: no finding of the sanitizers, short
// texts and reasons of one line; what is set by a path is found at its end.
#include <cstddef>
#include <cstdint>
#include <string>

#include "harness.h"
#include "input.h"
#include "screen/data.h"
#include "screen/number.h"

namespace {

using fuzz::require;

bool one_line(const std::string& why) {
    return !why.empty() && why.find_first_of("\n\r") == std::string::npos;
}

void show(const kit::Value& root, const std::string& source) {
    const kit::Scope all = {&root, {}, nullptr};
    const kit::Scope scope = {root.items.empty() ? &root : &root.items[0], "day", &all};
    kit::Template parts;
    kit::Value room;
    std::string text, why;
    if (!kit::read_template(source, parts, why)) {
        require(one_line(why), "a template without a reason");
        return;
    }
    const bool filled = kit::fill(parts, scope, text, why);
    require(filled || one_line(why), "no text and no reason");
    require(!filled || text.size() <= kit::kMostText, "too long a text");
    const kit::Value* const value = kit::evaluate(parts, scope, room, why);
    require(value || one_line(why), "no value and no reason");
    require(!filled || value, "a text, but no value");
}

void set(kit::Value& root, const std::string& path, const std::string& json) {
    kit::Value value;
    kit::Path steps;
    std::string why;
    const std::string before = kit::write_json(root);
    if (!kit::set_json(root, path, json, why)) {
        require(one_line(why), "not set, without a reason");
        require(kit::write_json(root) == before, "changed, but not set");
        return;
    }
    require(kit::read_path(path, steps, why) && kit::read_document(json, "", value, why), "set");
    const kit::Value* const found = kit::look_up(steps, {&root, {}, nullptr});
    require(kit::write_json(found ? *found : kit::Value()) == kit::write_json(value),
            "set to something else");
}

void round(const std::string& number) {
    if (!kit::is_number(number)) return;
    for (const int decimals : {0, 2, 9}) {
        const std::string text = kit::rounded(number, decimals);
        require(kit::is_number(text) || text.size() > 300, "rounded to no number");
        require(text.find_first_not_of("-0.") != std::string::npos || text[0] != '-', "-0");
    }
    require(kit::compare_numbers(number, number) == 0, "another number than itself");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    kit::Value root;
    std::string why;
    if (!kit::read_document(input.c_string(), "data", root, why)) root = {};
    const std::string source = input.c_string(), path = input.c_string(), json = input.c_string();
    show(root, source);
    set(root, path, json);
    show(root, source);
    round(json);
    return 0;
}
