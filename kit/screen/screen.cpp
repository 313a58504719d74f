// The interface: nothing that is raised below it gets out.
#include <string>
#include <utility>

#include "screen/build.h"
#include "screen/edit.h"
#include "screen/screen.h"

namespace {

using namespace kit;

kit_box whole_of(const kit_screen& screen) { return screen.nodes.front().box; }

/// Takes over what shows with these data and this size, and remembers where it differs.
void show(kit_screen& screen, const Value& data, Pair size) {
    Live live = screen.live;
    Nodes nodes = shown(screen.sources, data, size, live);
    screen.damage = join(screen.damage, difference(screen.nodes, nodes));
    screen.nodes = std::move(nodes);
    screen.live = std::move(live);
}

/// The data to begin with: the host's, or those that the scene brings as an example.
Value first_data(const Source& source, const char* data) {
    Value value;
    std::string why;
    value.kind = Kind::Object;
    if (data) {
        if (!read_document(data, "data", value, why)) throw Refused{why};
        if (value.kind != Kind::Object) {
            throw Refused{reason("data", value.place, found(value) + ", expected an object")};
        }
    } else if (const Value* sample = source.document.find("sample")) {
        value = *sample;
    }
    return value;
}

kit_screen* opened(kit_screen made, std::string_view text, const char* data) {
    made.sources.read(text);
    Source& source = made.sources.first();
    check(made.sources, source);
    if (const Value* size = source.document.find("size")) {
        made.size = {static_cast<int>(size->items[0].number),
                     static_cast<int>(size->items[1].number)};
    }
    made.data = first_data(source, data);
    made.nodes = shown(made.sources, made.data, made.size, made.live);
    made.damage = whole_of(made);
    return new kit_screen(std::move(made));
}

/// What the scene may go without, and neither the data nor its sample have.
std::string unknown_names(const kit_screen& screen) {
    Names names;
    build(screen.sources, screen.data, &names);
    if (const Value* sample = screen.sources.first().document.find("sample")) {
        try {
            build(screen.sources, *sample, &names);
        } catch (const Refused&) {  // as far as it goes
        }
    }
    return names.report();
}

/// How deep lists and objects lie in each other.
int depth_of(const Value& value) {
    int deepest = 0;
    for (const Value& item : value.items) deepest = std::max(deepest, depth_of(item));
    return deepest + 1;
}

void check_depth(const Value& document, const Source& source) {
    if (depth_of(document) > kMostDepth) throw Refused{source.file + ": nodes lie too deep"};
}

/// Changes the first scene by @p change; it stays as it was where the new one is refused.
template <typename Change>
int edited(kit_screen* screen, char* why, size_t size, const Change& change) {
    if (!screen) return -1;
    return guarded(-1, why, size, [&] {
        Source& source = screen->sources.first();
        Value document = source.document;
        change(document, source);
        check_depth(document, source);
        const std::size_t known = screen->sources.count();
        std::swap(source.document, document);
        try {
            check(screen->sources, source);
            show(*screen, screen->data, screen->size);
        } catch (...) {
            std::swap(source.document, document);
            screen->sources.forget_after(known);
            throw;
        }
        return 0;
    });
}

}  // namespace

kit_screen* kit_screen_open(const char* path, const char* data, const kit_screen_host* host,
                            char* why, size_t size) {
    return guarded<kit_screen*>(nullptr, why, size, [&] {
        const std::string file = path ? path : "";
        std::string text;
        if (!read_scene_file(file, kMostBytes, text)) {
            throw Refused{file + ": the file cannot be read"};
        }
        const std::size_t slash = file.rfind('/');
        std::string folder = file.substr(0, slash + 1);  // npos + 1 is 0
        return opened({Sources(host ? *host : kit_screen_host{}, file, std::move(folder), true)},
                      text, data);
    });  // GCOVR_EXCL_BR_LINE: what a way out by an exception leaves to do
}

kit_screen* kit_screen_read(const void* bytes, size_t length, const char* name, const char* data,
                            const kit_screen_host* host, char* why, size_t size) {
    return guarded<kit_screen*>(nullptr, why, size, [&] {
        const std::string_view text(bytes ? static_cast<const char*>(bytes) : "",
                                    bytes ? length : 0);
        return opened({Sources(host ? *host : kit_screen_host{}, name ? name : "scene", "", false)},
                      text, data);
    });  // GCOVR_EXCL_BR_LINE: what a way out by an exception leaves to do
}

void kit_screen_close(kit_screen* screen) { delete screen; }

void kit_screen_size(const kit_screen* screen, int* w, int* h) {
    const kit_box box = screen ? whole_of(*screen) : kit_box{};
    if (w) *w = box.w;
    if (h) *h = box.h;
}

int kit_screen_resize(kit_screen* screen, int w, int h, char* why, size_t size) {
    if (!screen) return -1;
    return guarded(-1, why, size, [&] {
        if (w < 1 || h < 1 || w > kMostSide || h > kMostSide) {
            throw Refused{"found " + std::to_string(w) + " x " + std::to_string(h) +
                          ", expected 1 to 32767 pixels each"};
        }
        show(*screen, screen->data, {w, h});
        screen->size = {w, h};
        return 0;
    });
}

int kit_screen_set(kit_screen* screen, const char* name, const char* json, char* why, size_t size) {
    if (!screen) return -1;
    return guarded(-1, why, size, [&] {
        const char* const text = json ? json : "";
        Value data;
        std::string reason;
        if (!name || !*name) {
            data = first_data(screen->sources.first(), text);
        } else {
            data = screen->data;
            if (!set_json(data, name, text, reason)) throw Refused{reason};
        }
        show(*screen, data, screen->size);
        screen->data = std::move(data);
        return 0;
    });
}

const char* kit_screen_get(kit_screen* screen, const char* name) {
    if (!screen) return nullptr;
    return guarded<const char*>(nullptr, nullptr, 0, [&]() -> const char* {
        const Value* value = &screen->data;
        Path path;
        std::string why;
        if (name && *name) {
            const Scope scope = {&screen->data};
            value = read_path(name, path, why) ? look_up(path, scope) : nullptr;
        }
        if (!value) return nullptr;
        screen->said = write_json(*value);
        return screen->said.c_str();
    });
}

int kit_screen_add(kit_screen* screen, const char* parent, int at, const char* json, char* why,
                   size_t size) {
    return edited(screen, why, size, [&](Value& scene, const Source& source) {
        add_node(scene, source, parent, at, fragment(json, "node"));
    });
}

int kit_screen_remove(kit_screen* screen, const char* id, char* why, size_t size) {
    return edited(screen, why, size,
                  [&](Value& scene, const Source& source) { remove_node(scene, source, id); });
}

int kit_screen_change(kit_screen* screen, const char* id, const char* key, const char* json,
                      char* why, size_t size) {
    return edited(screen, why, size, [&](Value& scene, const Source& source) {
        const Value value = json ? fragment(json, "value") : Value{};
        change_node(scene, source, id, key ? key : "", json ? &value : nullptr);
    });  // GCOVR_EXCL_BR_LINE: what a way out by an exception leaves to do
}

int kit_screen_draw(kit_screen* screen, orvel_canvas* canvas, kit_box* dirty) {
    if (dirty) *dirty = {};
    if (!screen || !canvas) return -1;
    return guarded(-1, nullptr, 0, [&] {
        const kit_box all = {0, 0, orvel_canvas_width(canvas), orvel_canvas_height(canvas)};
        const kit_box part = meet(whole_nodes(screen->nodes, screen->damage), all);
        if (!is_empty(part) && !paint(screen->nodes, canvas, part)) return -1;
        screen->damage = {};
        if (dirty) *dirty = part;
        return 0;
    });
}

void kit_screen_expose(kit_screen* screen, const kit_box* box) {
    if (!screen) return;
    const kit_box all = whole_of(*screen);
    screen->damage = join(screen->damage, box ? meet(*box, all) : all);
}

const char* kit_screen_describe(kit_screen* screen) {
    if (!screen) return nullptr;
    return guarded<const char*>(nullptr, nullptr, 0, [&] {
        screen->said = describe(screen->nodes);
        return screen->said.c_str();
    });
}

const char* kit_screen_report(kit_screen* screen) { return kit_screen_report_on(screen, nullptr); }

const char* kit_screen_report_on(kit_screen* screen, const kit_format* panel) {
    if (!screen || (panel && kit_pixels_stride(panel, 1) == 0)) return nullptr;
    return guarded<const char*>(nullptr, nullptr, 0, [&] {
        screen->said = report(screen->nodes, panel) + unknown_names(*screen);
        return screen->said.c_str();
    });
}

int kit_screen_box(const kit_screen* screen, const char* id, kit_box* box) {
    if (!screen || !id || !*id || !box) return -1;
    for (const Node& node : screen->nodes) {
        if (node.hidden || node.id != id) continue;
        *box = node.visible;
        return is_empty(node.visible) ? -1 : 0;
    }
    return -1;
}
