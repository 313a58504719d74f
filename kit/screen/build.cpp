#include "screen/build.h"

#include <algorithm>
#include <utility>

#include "screen/condition.h"
#include "screen/values.h"

namespace kit {
namespace {

/// What a node takes from those above it.
struct Around {
    const Scope& scope;
    const Look& look;
    int parent;
    int slot;
    int item;                   // of the list that the node is repeated for
    const std::string& suffix;  // of ids in repetitions, "[2]"
};

/// The least and the most may come from the data.
void check_bounds(const Trail& trail, const Value& written, const Node& node) {
    for (const std::size_t axis : {0U, 1U}) {
        const int least = node.least[axis], most = node.most[axis];
        if (least > most) {
            refuse_bounds(trail, written, std::to_string(least), std::to_string(most));
        }
    }
}

class Builder {
public:
    Builder(const Sources& sources, Names* names) : sources_(sources), names_(names) {}

    void scene(const Source& source, const Around& around);

    Nodes nodes;

private:
    void node(const Trail& trail, const Value& written, const Around& around);
    void repeated(const Trail& trail, const Value& written, const Value& path,
                  const Around& around);
    void one(const Trail& trail, const Value& written, const Around& around);
    void keys(const Trail& trail, const Value& written, const Value& content, const Scope& scope,
              Node& node);
    void children(const Trail& trail, const Value& written, const Value& content,
                  const Around& around);
    void list(const Trail& trail, const Value& content, const Around& around);
    void include(const Trail& trail, const Value& written, const Value& name, const Around& around);
    Reading reading(const Scope& scope) { return {sources_, scope, budget_, names_}; }

    const Sources& sources_;
    Names* names_;
    Budget budget_;
    int asked_ = 0;  // how many nodes
};

void Builder::scene(const Source& source, const Around& around) {
    Look look = around.look;
    const Value& document = source.document;
    if (const Value* theme = document.find("theme")) {
        set_theme(reading(around.scope), {&source, nullptr, "theme"}, *theme, look);
    }
    if (const Value* face = document.find("face")) {
        set_face(reading(around.scope), {&source, nullptr, "face"}, *face, look);
    }
    const Trail trail = {&source, nullptr, "root"};
    const Around below = {around.scope, look,        around.parent,
                          around.slot,  around.item, around.suffix};
    node(trail, *document.find("root"), below);
}

void Builder::node(const Trail& trail, const Value& written, const Around& around) {
    if (const Value* path = written.find("each")) return repeated(trail, written, *path, around);
    one(trail, written, around);
}

void Builder::repeated(const Trail& trail, const Value& written, const Value& path,
                       const Around& around) {
    Path steps;
    std::string why;
    read_path(path.text, steps, why);  // which the check has found good
    const Value* list = look_up(steps, around.scope);
    const Trail each = trail.into("each");
    if (!list) refuse(each, path.place, missing(steps, around.scope));
    if (list->kind != Kind::List) {
        refuse(each, path.place,
               path.text + " is " + name_of(list->kind) + " in the data, not a list");
    }
    const Value* as = written.find("as");
    Scope inner = {nullptr, as ? std::string_view(as->text) : "item", &around.scope};
    Path origin;
    if (find_origin(steps, around.scope, origin)) inner.origin = &origin;
    origin.push_back({"", 0});
    for (const Value& item : list->items) {
        inner.values = &item;
        const int number = origin.back().index;
        const std::string suffix = around.suffix + '[' + std::to_string(number) + ']';
        one(trail, written, {inner, around.look, around.parent, around.slot, number, suffix});
        ++origin.back().index;
    }
}

void Builder::one(const Trail& trail, const Value& written, const Around& around) {
    if (++asked_ > kMostAsked) {
        refuse(trail, written.place,
               "found more than " + std::to_string(kMostAsked) +
                   " nodes with those that are left out");
    }
    if (const Value* text = written.find("if")) {
        Condition condition;
        std::string why;
        read_condition(text->text, condition, why);
        if (names_) names_->ask(trail.into("if"), text->place, condition.path, around.scope);
        if (!holds(condition, around.scope)) return;
    }
    if (count_of(nodes) == kMostNodes) {
        refuse(trail, written.place, "found more than " + std::to_string(kMostNodes) + " nodes");
    }
    Node node;
    const Value& content = kind_of(trail, written, node.kind);
    node.parent = around.parent;
    node.slot = around.slot;
    node.item = around.item;
    node.source = trail.source;
    node.place = written.place;
    node.look = around.look;
    if (const Value* id = written.find("id")) node.id = id->text + around.suffix;
    keys(trail, written, content, around.scope, node);
    finish(node);
    node.own_state = node.state;
    check_bounds(trail, written, node);
    const int number = count_of(nodes);
    const Look look = node.look;
    nodes.push_back(std::move(node));
    children(trail, written, content, {around.scope, look, number, 0, 0, around.suffix});
    at(nodes, number).end = count_of(nodes);
}

void Builder::keys(const Trail& trail, const Value& written, const Value& content,
                   const Scope& scope, Node& node) {
    const Reading values = reading(scope);
    if (const Value* theme = written.find("theme")) {
        set_theme(values, trail.into("theme"), *theme, node.look);
    }
    if (const Value* face = written.find("face")) {
        set_face(values, trail.into("face"), *face, node.look);
    }
    node.along = node.parent < 0 ? -1 : at(nodes, node.parent).axis();
    for (const Value& value : written.items) {
        const Trail into = trail.into(value.key);
        if (&value != &content) {
            set_key(values, into, value, *key_named(value.key, node.kind->keys), node);
        } else if (!node.holds_nodes()) {
            set_content(values, into, value, node);
        }
    }
    if (!node.is(Sort::Picture)) return;
    const kit_screen_host& host = sources_.host();
    if (host.picture) node.picture = host.picture(host.self, node.text.c_str());
    node.unknown = !node.picture;
}

void Builder::children(const Trail& trail, const Value& written, const Value& content,
                       const Around& around) {
    const Node& node = at(nodes, around.parent);
    if (node.is(Sort::Include)) {
        include(trail, written, content, around);
    } else if (node.kind->value == Type::Nodes) {
        list(trail.into(content.key), content, around);
    } else if (node.frames() && content.kind == Kind::Object) {
        this->node(trail.into(content.key), content, around);
    }
}

void Builder::list(const Trail& trail, const Value& content, const Around& around) {
    int slot = 0;
    for (const Value& child : content.items) {
        node(trail.into(slot), child,
             {around.scope, around.look, around.parent, slot, 0, around.suffix});
        ++slot;
    }
    Node& parent = at(nodes, around.parent);
    const int show = parent.show;
    if (show == kAll) return;
    int& number = parent.shown_of;
    for (int i = around.parent + 1; i < count_of(nodes); i = at(nodes, i).end) {
        const bool shows = number++ == show;
        for (int k = i; !shows && k < at(nodes, i).end; ++k) at(nodes, k).hidden = true;
    }
}

void Builder::include(const Trail& trail, const Value& written, const Value& name,
                      const Around& around) {
    Value values;
    values.kind = Kind::Object;
    if (const Value* with = written.find("with")) {
        values = reading(around.scope).value(trail.into("with"), Type::With, *with);
    }
    const Scope scope = {&values, {}, nullptr, nullptr, written.find("with"), &around.scope};
    scene(sources_.known(*trail.source, name.text),
          {scope, around.look, around.parent, 0, 0, around.suffix});
}

}  // namespace

Nodes build(const Sources& sources, const Value& data, Names* names) {
    Builder builder(sources, names);
    Look look;
    orvel_theme_default(&look.theme);
    look.face = kit_sans_12();
    const Scope scope = {&data};
    builder.scene(sources.first(), {scope, look, -1, 0, 0, ""});
    give_tags(builder.nodes);
    return std::move(builder.nodes);
}

}  // namespace kit
