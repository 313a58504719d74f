// Whatever a scene says is looked at once, also what the present data do not show.
#include <algorithm>
#include <iterator>
#include <utility>

#include "screen/condition.h"
#include "screen/sources.h"
#include "screen/values.h"

namespace kit {
namespace {

class Checker {
public:
    explicit Checker(Sources& sources) : sources_(sources) {}

    void scene(Source& source);
    void node(const Trail& trail, const Value& node);

private:
    void member(const Trail& trail, Type type, const Value& value);
    bool references(const Trail& trail, const Value& value) const;
    void children(const Trail& trail, Type type, const Value& value);
    void include(const Trail& trail, const Value& name);
    void scene_key(const Trail& trail, const Value& value);

    Sources& sources_;
    int open_ = 0;   // scenes that include each other, down to this one
    int below_ = 0;  // the highest of those that this one includes
};

struct SceneKey {
    std::string_view name;
    Type type;
};

constexpr SceneKey kSceneKeys[] = {
    {"//", Type::Anything},     {"$schema", Type::Anything}, {"orvel", Type::Number},
    {"size", Type::Anything},   {"theme", Type::Theme},      {"face", Type::Face},
    {"sample", Type::Anything}, {"root", Type::Node},
};

/// Looks for references in a value that may hold them, and whether they are well-formed.
bool Checker::references(const Trail& trail, const Value& value) const {
    if (value.kind == Kind::String) {
        Template parts;
        std::string why;
        if (!read_template(value.text, parts, why)) refuse(trail, value.place, why);
        return !parts.plain();
    }
    bool any = false;
    int item = 0;
    for (const Value& inner : value.items) {
        const bool named = value.kind == Kind::Object;
        any |= references(named ? trail.into(inner.key) : trail.into(item), inner);
        ++item;
    }
    return any;
}

void Checker::member(const Trail& trail, Type type, const Value& value) {
    const bool holds_nodes = type == Type::Nodes || type == Type::Node;
    const bool open = !holds_nodes && !as_written(type) && references(trail, value);
    if (!open && !fits(type, value)) refuse_misfit(trail, type, value);
    std::string why;
    Path path;
    Condition condition;
    if (type == Type::Where && !read_path(value.text, path, why)) refuse(trail, value.place, why);
    if (type == Type::Condition && !read_condition(value.text, condition, why)) {
        refuse(trail, value.place, why);
    }
    if (type == Type::File) include(trail, value);
    if (holds_nodes) children(trail, type, value);
}

void Checker::children(const Trail& trail, Type type, const Value& value) {
    if (type == Type::Node) {
        if (value.kind == Kind::Object) node(trail, value);
        return;
    }
    int item = 0;
    for (const Value& child : value.items) node(trail.into(item++), child);
}

/// Keys that another has to stand beside, or that it leaves without effect.
void check_beside(const Trail& trail, const Value& node) {
    const auto refuse_key = [&](const char* key, const char* other, const char* how) {
        refuse(trail, node.find(key)->key_place,
               "found " + in_quotes(key) + how + in_quotes(other));
    };
    using Two = std::pair<const char*, const char*>;
    // Not a list in braces, as in choices_of().
    static constexpr Two kPairs[] = {{"as", "each"}, {"lines", "wrap"}, {"value", "selected"}};
    std::vector<Two> pairs(std::begin(kPairs), std::end(kPairs));
    if (node.find("dropdown")) pairs.emplace_back("selected", "items");
    if (node.find("radio") || node.find("list_item")) pairs.emplace_back("selected", "value");
    for (const auto& [key, needed] : pairs) {
        const bool alone = node.find(key) && !node.find(needed);
        if (alone) refuse_key(key, needed, " without ");  // GCOVR_EXCL_BR_LINE: throws
    }
    const bool twice = node.find("on") && node.find("value");
    if (twice) refuse_key("on", "value", " without effect beside ");  // GCOVR_EXCL_BR_LINE: throws
    for (const char* key : {"values", "color"}) {
        const bool lost = node.find("chart") && node.find("series") && node.find(key);
        if (!lost) continue;
        refuse_key(key, "series", " without effect beside ");  // GCOVR_EXCL_BR_LINE: throws
    }
}

/// The least and the most, as far as both are written, and alike.
void check_bounds(const Trail& trail, const Value& node) {
    const Value *least = node.find("min"), *most = node.find("max");
    if (!least || !most) return;
    const auto compare = [&](const Value& low, const Value& high) {
        const bool numbers = low.kind == Kind::Number && high.kind == Kind::Number;
        if (numbers && low.number > high.number) refuse_bounds(trail, node, low.text, high.text);
    };
    compare(*least, *most);
    for (std::size_t i = 0; i < std::min(least->items.size(), most->items.size()); ++i) {
        compare(least->items[i], most->items[i]);
    }
}

void Checker::node(const Trail& trail, const Value& node) {
    const KindSpec* kind = nullptr;
    const Value& content = kind_of(trail, node, kind);
    for (const Value& value : node.items) {
        const Trail inner = trail.into(value.key);
        if (&value == &content) {
            member(inner, kind->value, value);
        } else if (const KeySpec* key = key_named(value.key, kind->keys)) {
            member(inner, key->type, value);
        } else {
            refuse(inner, value.key_place,
                   "unknown key of a " + std::string(kind->name) +
                       what_was_meant(value.key, key_names(kind->keys)));
        }
    }
    check_beside(trail, node);
    check_bounds(trail, node);
}

void Checker::include(const Trail& trail, const Value& name) {
    Source& source = sources_.included(*trail.source, name.text, trail, name.place);
    if (source.open) refuse(trail, name.place, in_quotes(source.file) + " includes itself");
    if (open_ <= kDeepest && source.height == 0) scene(source);
    if (open_ + std::max(source.height, 1) > kDeepest + 1) {
        refuse(trail, name.place, "found more than 8 includes in each other");
    }
    below_ = std::max(below_, source.height);
}

/// That it is a scene at all, of the one version that there is.
void check_head(const Source& source) {
    const Value& document = source.document;
    if (document.kind != Kind::Object) {
        refuse({&source}, document.place, found(document) + ", expected a scene, an object");
    }
    const Value* version = document.find("orvel");
    if (!version) refuse({&source}, document.place, "found no \"orvel\": 1, which every scene has");
    const Trail trail = {&source, nullptr, "orvel"};
    if (!whole_between(*version, 1, 1)) {
        refuse(trail, version->place, found(*version) + ", expected 1, the version of the format");
    }
    if (!document.find("root")) refuse({&source}, document.place, "found no \"root\", a node");
}

void Checker::scene_key(const Trail& trail, const Value& value) {
    const auto* known = std::find_if(std::begin(kSceneKeys), std::end(kSceneKeys),
                                     [&](const SceneKey& key) { return key.name == value.key; });
    if (known == std::end(kSceneKeys)) {
        std::vector<std::string_view> names;
        for (const SceneKey& key : kSceneKeys) names.push_back(key.name);
        refuse(trail, value.key_place, "unknown key of a scene" + did_you_mean(value.key, names));
    }
    if (value.key == "root") {
        node(trail, value);
        for (const char* key : {"if", "each"}) {
            const Value* found_one = value.find(key);
            if (found_one) refuse(trail.into(key), found_one->key_place, "the root is there once");
        }
        return;
    }
    const auto is_side = [](const Value& side) { return fits(Type::Length, side); };
    const bool sized =
        value.items.size() == 2 && is_side(value.items[0]) && is_side(value.items[1]);
    if (value.key == "size" && !sized) {
        refuse(trail, value.place, found(value) + ", expected [width, height], 1 to 32767 each");
    }
    if (value.key == "sample" && value.kind != Kind::Object) {
        refuse(trail, value.place, found(value) + ", expected an object");
    }
    member(trail, known->type, value);
}

/// While what a scene includes is looked at, also where that ends by a refusal.
class Opened {
public:
    explicit Opened(Source& source) : source_(source) { source_.open = true; }
    ~Opened() { source_.open = false; }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

private:
    Source& source_;
};

void Checker::scene(Source& source) {
    check_head(source);
    const int outer = std::exchange(below_, 0);
    const Opened opened(source);
    ++open_;
    for (const Value& value : source.document.items) {
        scene_key({&source, nullptr, value.key}, value);
    }
    --open_;
    source.height = std::exchange(below_, outer) + 1;
}

/// That of the keys which is the kind, where the others are keys of its own ("icon").
const Value* kind_among(const std::vector<const Value*>& kinds) {
    for (const Value* one : kinds) {
        const unsigned keys = kind_named(one->key)->keys;
        const bool fits_all = std::all_of(kinds.begin(), kinds.end(), [&](const Value* other) {
            return other == one || key_named(other->key, keys);
        });
        if (fits_all) return one;
    }
    return nullptr;
}

}  // namespace

void check(Sources& sources, Source& source) { Checker(sources).scene(source); }

const Value& kind_of(const Trail& trail, const Value& node, const KindSpec*& kind) {
    if (node.kind != Kind::Object) refuse(trail, node.place, found(node) + ", expected a node");
    std::vector<const Value*> kinds;
    const Value* stranger = nullptr;
    for (const Value& value : node.items) {
        if (kind_named(value.key)) {
            kinds.push_back(&value);
        } else if (!stranger && !key_named(value.key, ~0u)) {
            stranger = &value;
        }
    }
    if (const Value* one = kind_among(kinds)) {
        kind = kind_named(one->key);
        return *one;
    }
    if (kinds.empty() && stranger) {
        refuse(trail.into(stranger->key), stranger->key_place,
               "unknown kind" + what_was_meant(stranger->key, kind_names()));
    }
    if (kinds.empty()) refuse(trail, node.place, "found a node without a kind, like \"row\"");
    refuse(trail.into(kinds[1]->key), kinds[1]->key_place,
           "found a second kind beside " + in_quotes(kinds[0]->key));
}

}  // namespace kit
