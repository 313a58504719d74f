#include "screen/edit.h"

#include <algorithm>
#include <utility>

#include "screen/kinds.h"

namespace kit {
namespace {

void stand_nowhere(Value& value) {
    value.place = value.key_place = {};
    for (Value& item : value.items) stand_nowhere(item);
}

/// A node, and the list that it is an item of, if it is.
struct Found {
    Value* node = nullptr;
    Value* list = nullptr;
};

Found find_below(Value& node, std::string_view id);

Found find_in(Value& node, Value* list, std::string_view id) {
    const Value* own = node.find("id");
    if (own && own->text == id) return {&node, list};
    return find_below(node, id);
}

Found find_below(Value& node, std::string_view id) {
    for (Value& value : node.items) {
        const KindSpec* kind = kind_named(value.key);
        if (!kind) continue;
        if (kind->value == Type::Node && value.kind == Kind::Object) {
            const Found found = find_in(value, nullptr, id);
            if (found.node) return found;
        }
        if (kind->value != Type::Nodes) continue;
        for (Value& child : value.items) {
            const Found found = find_in(child, &value, id);
            if (found.node) return found;
        }
    }
    return {};
}

[[noreturn]] void refuse_edit(const Source& source, const std::string& what) {
    throw Refused{source.file + ": " + what};
}

Found find_node(Value& scene, const Source& source, const char* id) {
    const Found found = id ? find_in(*scene.find("root"), nullptr, id) : Found{};
    if (!found.node) refuse_edit(source, "there is no node with the id " + in_quotes(id ? id : ""));
    return found;
}

void remove_member(Value& object, std::string_view key) {
    const Value* member = object.find(key);
    if (!member) return;
    const auto number = static_cast<std::uint32_t>(member - object.items.data());
    object.items.erase(object.items.begin() + static_cast<std::ptrdiff_t>(number));
    auto& sorted = object.sorted;
    sorted.erase(std::find(sorted.begin(), sorted.end(), number));
    for (std::uint32_t& other : sorted) other -= other > number ? 1 : 0;
}

}  // namespace

Value fragment(const char* json, const char* name) {
    Value value;
    std::string why;
    if (!read_document(json ? json : "", name, value, why)) throw Refused{why};
    stand_nowhere(value);
    return value;
}

void add_node(Value& scene, const Source& source, const char* parent, int at, Value node) {
    Value& holder = *find_node(scene, source, parent).node;
    for (Value& value : holder.items) {
        const KindSpec* kind = kind_named(value.key);
        if (!kind || kind->value != Type::Nodes) continue;
        const auto count = static_cast<int>(value.items.size());
        value.items.insert(value.items.begin() + (at < 0 ? count : std::min(at, count)),
                           std::move(node));
        return;
    }
    refuse_edit(source, in_quotes(parent) + " is no row, column or stack");
}

void remove_node(Value& scene, const Source& source, const char* id) {
    const Found found = find_node(scene, source, id);
    if (!found.list) refuse_edit(source, in_quotes(id) + " is in no row, column or stack");
    found.list->items.erase(found.list->items.begin() + (found.node - found.list->items.data()));
}

void change_node(Value& scene, const Source& source, const char* id, const char* key,
                 const Value* value) {
    const std::string_view name = key;
    if (!id && name != "theme" && name != "face") {
        refuse_edit(source, "of the scene itself, only theme and face can be changed");
    }
    Value& node = id ? *find_node(scene, source, id).node : scene;
    if (!value) return remove_member(node, key);
    Value& member = node.member(key);
    std::string kept = std::move(member.key);
    member = *value;
    member.key = std::move(kept);
}

}  // namespace kit
