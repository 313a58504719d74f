// The names that a scene may go without: those of its conditions, and of references with a
// fallback.
#pragma once

#include <map>
#include <string>
#include <tuple>

#include "screen/data.h"
#include "screen/refusal.h"

namespace kit {

/// Which of them were ever there, while nodes are built with one set of data or several.
class Names {
public:
    /// What stands at @p trail asks for @p path.
    void ask(const Trail& trail, Place place, const Path& path, const Scope& scope);
    /// Those of the references of a text.
    void ask(const Trail& trail, Place place, const Template& text, const Scope& scope);

    /// A line for each that never was.
    std::string report() const;

private:
    struct Name {
        std::string line;
        bool known = false;
    };
    std::map<std::tuple<std::string, int, int, std::string>, Name> names_;
};

}  // namespace kit
