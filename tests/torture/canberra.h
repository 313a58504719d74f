// A libcanberra that plays nothing and fails as planned.
#pragma once

namespace orvel_test::torture {

// In place of dlopen, dlsym and dlclose; no other library is found.
void* load_library(const char* name, int mode);
void* find_in_library(void* library, const char* name);
int unload_library(void* library);

/// How often it is loaded. A library in use stays loaded to the end of the process.
int loaded_libraries();
/// Contexts that were made and not destroyed.
int open_connections();

}  // namespace orvel_test::torture
