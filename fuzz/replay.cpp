// Feeds every file of a folder to a fuzz target, so that any compiler can run what fuzzing found.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "support/files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", arguments[0]);
        return 2;
    }
    std::vector<std::string> inputs;
    std::error_code failure;
    for (const auto& entry : std::filesystem::directory_iterator(arguments[1], failure)) {
        inputs.push_back(entry.path().string());
    }
    if (inputs.empty()) {
        std::fprintf(stderr, "%s holds no inputs\n", arguments[1]);
        return 1;
    }
    std::sort(inputs.begin(), inputs.end());
    for (const std::string& input : inputs) {
        std::printf("%s\n", input.c_str());
        std::fflush(stdout);  // the last line names the input that ended the run
        const std::string bytes = orvel_test::read_file(input);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    std::printf("%zu inputs\n", inputs.size());
}
