// Any bytes as a bitmap icon: no crash, no finding of the sanitizers, and the pixels of the model.
#include <unistd.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "models/bitmap_model.h"
#include "orvel.h"

namespace {

constexpr int kSide = 16;
constexpr struct { int x, y; } kPlaces[] = {{0, 0}, {-5, -3}, {12, 13}, {INT_MAX, INT_MIN}};

void require(bool held, const char* what) {
    if (held) return;
    std::fprintf(stderr, "bmp_fuzz: %s\n", what);
    std::abort();
}

/// A resource root with the one icon "input.bmp", in memory where the system has such a folder.
class Resources {
public:
    Resources() {
        const bool in_memory = access("/dev/shm", W_OK) == 0;
        const std::filesystem::path parent =
            in_memory ? "/dev/shm" : std::filesystem::temp_directory_path();
        root_ = parent / ("orvel-bmp-fuzz-" + std::to_string(getpid()));
        std::filesystem::create_directories(root_ / "Icons");
        orvel_set_resource_path(root_.c_str());
    }
    ~Resources() { std::filesystem::remove_all(root_); }
    Resources(const Resources&) = delete;
    Resources& operator=(const Resources&) = delete;

    void put(const std::string& bytes) const {
        std::ofstream file(root_ / "Icons" / "input.bmp", std::ios::binary);
        file << bytes;
        require(bool(file.flush()), "cannot write the input");
    }

private:
    std::filesystem::path root_;
};

/// Draws the input; whether a row of it had a negative number of bytes.
bool raised(orvel_canvas* canvas, int x, int y, bool accepted) {
    try {
        const int status = orvel_icon_draw_bitmap(canvas, "input", x, y);
        require(status == (accepted ? 0 : -1), "another status than the model's");
        return false;
    } catch (const std::length_error&) {
        return true;
    }
}

void check_at(const orvel_test::BitmapModel& model, int x, int y) {
    orvel_canvas* const actual = orvel_canvas_create(kSide, kSide);
    orvel_canvas* const expected = orvel_canvas_create(kSide, kSide);
    require(raised(actual, x, y, model.accepted()) == model.raises(), "another length error");
    model.draw(expected, x, y);
    for (int row = 0; row < kSide; ++row) {
        for (int column = 0; column < kSide; ++column) {
            const orvel_color a = orvel_canvas_pixel_get(actual, column, row);
            const orvel_color e = orvel_canvas_pixel_get(expected, column, row);
            require(a.r == e.r && a.g == e.g && a.b == e.b && a.a == e.a, "another pixel");
        }
    }
    orvel_canvas_destroy(actual);
    orvel_canvas_destroy(expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Resources resources;
    const std::string bytes(data, data + size);
    resources.put(bytes);
    const orvel_test::BitmapModel model(bytes);
    for (const auto& place : kPlaces) check_at(model, place.x, place.y);
    return 0;
}
