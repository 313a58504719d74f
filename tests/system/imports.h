// The functions that the shared library takes from elsewhere.
#pragma once

#include <set>
#include <string>

namespace orvel_test {

/// The names of all functions and variables that the loaded library imports.
std::set<std::string> imports_of_library();

/// Makes the library, and nobody else in this process, call @p function in place of @p name.
void replace_import(const std::string& name, void* function);

}  // namespace orvel_test
