// A sound service that takes or refuses what the test says.
#pragma once

#include <string>
#include <vector>

namespace orvel_test {

struct FakeSystemSound {
    std::vector<std::string> played;
    int result = 0;
};

FakeSystemSound& fake_system_sound();

}  // namespace orvel_test
