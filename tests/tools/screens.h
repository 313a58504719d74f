// Two folders of pictures for orvel-compare: what is expected, and what is there.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "picture.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/process.h"
#include "tools/png.h"

namespace orvel_test {

class Screens : public testing::Test {
protected:
    TempFolder folder;
    const std::string expected = folder / "expected", actual = folder / "actual";

    Screens() {
        std::filesystem::create_directory(expected);
        std::filesystem::create_directory(actual);
    }

    /// A picture in which every pixel has a colour of its own.
    static CanvasPtr screen(int width = 20, int height = 12) {
        auto canvas = make_canvas(width, height);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const auto red = static_cast<unsigned char>(9 * x);
                const auto green = static_cast<unsigned char>(7 * y);
                orvel_canvas_pixel(canvas.get(), x, y, {red, green, 100, 255});
            }
        }
        return canvas;
    }

    static void save(const std::string& path, const CanvasPtr& canvas) {
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        std::string error;
        const bool bmp = path.size() > 4 && path.substr(path.size() - 4) == ".bmp";
        if (bmp) {
            ASSERT_EQ(orvel_canvas_save_bmp_rgba(canvas.get(), path.c_str()), 0);
        } else {
            const auto picture = orvel_tools::picture_of(canvas.get());
            ASSERT_TRUE(orvel_tools::write_png(picture, path, error)) << error;
        }
    }

    /// Saves @p canvas as PNG on the expected side and as BMP on the actual one.
    void save_both(const std::string& name, const CanvasPtr& canvas) {
        save(expected + "/" + name + ".png", canvas);
        save(actual + "/" + name + ".bmp", canvas);
    }

    Finished compare(const std::vector<std::string>& options = {}) const {
        std::vector<std::string> command = {ORVEL_BINARY_DIR "/orvel-compare", expected, actual};
        command.insert(command.end(), options.begin(), options.end());
        return run(command);
    }

    /// Expects one failing picture, which is told by @p line.
    void expect_found(const std::string& line) const {
        const Finished done = compare();
        EXPECT_EQ(done.status, 1);
        EXPECT_EQ(done.error, "");
        EXPECT_EQ(done.output.substr(0, done.output.find('\n')), line);
    }

    std::vector<std::string> files_in(const std::string& place) const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(place)) {
            if (entry.is_directory()) continue;
            names.push_back(std::filesystem::relative(entry.path(), place).string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
};

}  // namespace orvel_test
