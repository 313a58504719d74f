// A view of the file system that belongs to this process and its children alone, from before the
// first test on: an empty /tmp, but for the build and source folders. Where the system does not
// allow that, nothing is changed.
#pragma once

#include <string>

namespace orvel_test {

/// Shows @p folder in place of @p where; false where there is no private system.
bool cover(const std::string& where, const std::string& folder);
void uncover(const std::string& where);

}  // namespace orvel_test
