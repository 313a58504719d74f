#include "screen/names.h"

namespace kit {

void Names::ask(const Trail& trail, Place place, const Path& path, const Scope& scope) {
    const std::string& file = trail.source->file;
    const auto [at, first] =
        names_.try_emplace({file, place.line, place.column, written(path)}, Name{});
    Name& name = at->second;
    if (first) name.line = line_of(*trail.source, place, path_of(trail), "name: ");
    if (name.known || may_be_there(path, scope)) {
        name.known = true;
    } else if (first) {
        name.line += missing(path, scope) + '\n';
    }
}

void Names::ask(const Trail& trail, Place place, const Template& text, const Scope& scope) {
    for (const Template::Part& part : text.parts) {
        if (part.reference && part.reference->fallback) {
            ask(trail, place, part.reference->path, scope);
        }
    }
}

std::string Names::report() const {
    std::string lines;
    for (const auto& [key, name] : names_) {
        if (!name.known) lines += name.line;
    }
    return lines;
}

}  // namespace kit
