// From the names that a node sees to where their values lie in the data of the whole screen.
#include <algorithm>

#include "screen/data.h"

namespace kit {
namespace {

constexpr std::size_t kMostSteps = kMostDepth;

/// The scope that knows the name; null where none does.
const Scope* scope_of(const std::string& name, const Scope& scope) {
    for (const Scope* at = &scope; at; at = at->outer) {
        const bool here = at->name.empty() ? at->values->find(name) != nullptr : at->name == name;
        if (here) return at;
    }
    return nullptr;
}

/// What stands for the value where it was made: the reference, and what of the path is left.
bool find_made(const Path& path, const Scope& scope, Path& origin) {
    const Value* written = scope.with;
    auto step = path.begin();
    while (written && written->kind != Kind::String && step != path.end()) {
        const auto index = static_cast<std::size_t>(std::max(step->index, 0));
        const bool item = step->name.empty() && written->kind == Kind::List;
        const Value* next =
            item && index < written->items.size() ? &written->items[index] : nullptr;
        written = step->name.empty() ? next : written->find(step->name);
        ++step;
    }
    if (!written || written->kind != Kind::String) return false;
    Template parts;
    std::string why;
    read_template(written->text, parts, why);  // which the check has found good
    const Reference* whole = parts.whole();
    if (!whole || whole->decimals >= 0 || whole->fallback) return false;
    Path further = whole->path;
    further.insert(further.end(), step, path.end());
    return find_origin(further, *scope.around, origin);
}

}  // namespace

bool find_origin(const Path& path, const Scope& scope, Path& origin) {
    const Scope* const at = path.size() > kMostSteps ? nullptr : scope_of(path.front().name, scope);
    if (!at) return false;
    if (at->with) return find_made(path, *at, origin);
    if (at->name.empty()) {
        origin = path;
        return true;
    }
    if (!at->origin) return false;
    origin = *at->origin;
    origin.insert(origin.end(), path.begin() + 1, path.end());
    return true;
}

}  // namespace kit
