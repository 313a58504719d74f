// What a program carries that is linked to the static kit.
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

#include "support/process.h"

namespace {

using namespace orvel_test;

/// The names of the faces' functions in the program.
std::set<std::string> faces_in(const std::string& program) {
    std::set<std::string> names;
    std::istringstream lines(run({"nm", program}).output);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t at = line.find(" T kit_");
        if (at == std::string::npos) continue;
        const std::string name = line.substr(at + 3);
        if (name.find_first_of("0123456789") != std::string::npos) names.insert(name);
    }
    return names;
}

TEST(StaticHostTest, CarriesTheFacesThatItNamesAndTheDefaultOne) {
    EXPECT_EQ(faces_in(ORVEL_STATIC_HOST), (std::set<std::string>{"kit_bold_14", "kit_sans_12"}));
    EXPECT_EQ(run({ORVEL_STATIC_HOST}).status, 0);
}

}  // namespace
