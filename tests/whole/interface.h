// Every function of the interface, so that tests can call all of them with any arguments.
#pragma once

#include <string>
#include <vector>

#include "support/host_function.h"

namespace orvel_test {

const std::vector<HostFunction>& host_functions();

/// The function of this name, which must be in the table.
const HostFunction& host_function(const std::string& name);

}  // namespace orvel_test
