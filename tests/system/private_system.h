// A view of the file system that belongs to this process alone.
#pragma once

#include <string>

namespace orvel_test {

/// Gives this process and its children an empty /tmp of their own, the build and source folders
/// excepted. Call it before any thread starts. False where the system does not allow it; then
/// nothing has changed.
bool enter_private_system();

/// Shows @p folder in place of @p where, in a private system.
bool cover(const std::string& where, const std::string& folder);
void uncover(const std::string& where);

}  // namespace orvel_test
