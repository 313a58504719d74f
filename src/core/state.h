// The library-wide state and the functions that the library exports for its own callers.
#pragma once

#include <string>

#include "core/files.h"
#include "orvel.h"

namespace orvel {

/// What calls tell the library for later. Besides, it knows only the music player's process id and,
/// on Linux, the sound library that it has loaded.
struct GlobalState {
    bool initialized = false;
    std::string custom_resource_path;  // the root that the host set; empty when it set none
};

ORVEL_API GlobalState& state();

/// The resource root: the host's as it was given, else "Resources" under the directory that
/// ORVELSDK_PATH names, else under the current one. The environment is read at every call.
ORVEL_API std::string resource_path();

/// The path of the resource @p name in @p folder. A name with a dot is joined and not looked for.
/// Any other gets the first extension under which a file opens, or none when there is no such file.
ORVEL_API std::string resolve_resource(const std::string& folder, const std::string& name);

/// Opens what resolve_resource() names for binary reading; false when that fails. What is found is
/// opened once, not a second time by its path.
bool open_resource(File& file, const std::string& folder, const std::string& name);

}  // namespace orvel
