// orvel-render: draws a scene to a file, without a window.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <new>
#include <thread>

#include "command_line.h"
#include "panel.h"
#include "picture_file.h"
#include "scene.h"

namespace {

using orvel_tools::CanvasPtr;
using orvel_tools::CommandLine;
using orvel_tools::Outlet;
using orvel_tools::Picture;
using orvel_tools::Scene;
using orvel_tools::SceneWishes;

struct Wishes {
    SceneWishes scene;
    std::vector<std::string> data;
    std::string output, format, size, panel, dither = "none", rotate = "0", previous;
    int scale = 1;
    bool describe = false, watch = false, check = false;
    Outlet outlet;
};

void describe_options(CommandLine& program, Wishes& wishes) {
    program.argument("SCENE", wishes.scene.scene, "The scene file; - is the standard input");
    program.option("--data", wishes.data, "FILE", "A JSON file of the values to show; - as above");
    program.option("--set", wishes.scene.values, "NAME=VALUE", "Set one value");
    program.flag("--sample", wishes.scene.sample, "Show the scene's own sample values");
    program.option("-o,--output", wishes.output, "FILE",
                   "The picture: .png, .bmp, .ppm, .pbm or .raw; - is the standard output");
    program.option("--format", wishes.format, {"png", "bmp", "ppm", "pbm", "raw"},
                   "What to write, whatever the file is called");
    program.option("--size", wishes.size, "WIDTHxHEIGHT", "Another size than the scene's");
    program.option("--theme", wishes.scene.theme, "FILE", "dark, light or a theme file");
    program.option("--scale", wishes.scale, 1, 16, "Make every pixel a square of this side");
    program.option("--panel", wishes.panel, {"mono", "gray4", "gray16", "rgb565", "red", "seven"},
                   "The panel that shows it");
    program.option("--dither", wishes.dither, {"none", "ordered", "diffused"},
                   "How to approximate colours that the panel lacks");
    program.option("--rotate", wishes.rotate, {"0", "90", "180", "270"}, "Degrees clockwise");
    program.option("--changed-from", wishes.previous, "FILE",
                   "Print X Y WIDTH HEIGHT of what differs from this earlier PNG or BMP");
    program.flag("--describe", wishes.describe, "Print what the screen shows, line by line");
    program.flag("--check", wishes.check, "Print what is cut, lost, faint or too small");
    program.flag("--watch", wishes.watch, "Draw again whenever a file of it changes");
}

/// One to five digits; 0 for anything else.
int side_of(const std::string& text) {
    const bool digits = text.find_first_not_of("0123456789") == std::string::npos;
    return digits && !text.empty() && text.size() <= 5 ? std::stoi(text) : 0;
}

/// WIDTHxHEIGHT
bool read_size(const std::string& text, int& width, int& height) {
    const std::size_t by = std::min(text.find('x'), text.size());
    width = side_of(text.substr(0, by));
    height = side_of(text.substr(std::min(by + 1, text.size())));
    return width > 0 && height > 0;
}

/// The file of those read that the picture would be written over; empty when it is none of them.
std::string overwritten(const Wishes& wishes) {
    std::vector<std::string> read = wishes.data;
    read.insert(read.end(), {wishes.scene.scene, wishes.scene.theme});
    for (const std::string& file : read) {
        std::error_code none;
        const bool both_are_files = file != "-" && wishes.output != "-";
        if (both_are_files && std::filesystem::equivalent(file, wishes.output, none)) return file;
    }
    return "";
}

/// What is wrong with what is to be written; empty when nothing is.
std::string settle_format(Wishes& wishes) {
    const std::string extension = std::filesystem::path(wishes.output).extension().string();
    if (wishes.format.empty() && extension.size() > 1) wishes.format = extension.substr(1);
    if (wishes.format.empty()) wishes.format = "png";
    bool known = false;
    for (const char* format : {"png", "bmp", "ppm", "pbm", "raw"}) known |= wishes.format == format;
    if (!known) return wishes.output + ": not .png, .bmp, .ppm, .pbm or .raw; --format tells";
    if (wishes.format == "pbm" && wishes.panel.empty()) wishes.panel = "mono";
    if (wishes.format == "pbm" && wishes.panel != "mono") return "a .pbm is for --panel mono only";
    if (wishes.format == "raw" && wishes.scale > 1) return "--scale is not for raw bytes";
    return "";
}

/// What is wrong with the options together; empty when nothing is.
std::string settle(Wishes& wishes) {
    if (!wishes.size.empty() && !read_size(wishes.size, wishes.scene.width, wishes.scene.height)) {
        return "--size " + wishes.size + ": expected WIDTHxHEIGHT, 800x480 for instance";
    }
    if (wishes.output.empty() && !wishes.describe && !wishes.check) {
        return "nothing to do without -o, --describe or --check";
    }
    if (wishes.check && (!wishes.output.empty() || wishes.watch)) return "--check draws nothing";
    if (wishes.data.size() > 1 && !wishes.check) return "several --data go with --check only";
    if (!wishes.data.empty() && wishes.scene.sample)
        return "--data and --sample exclude each other";
    const auto dashes = std::count(wishes.data.begin(), wishes.data.end(), "-") +
                        (wishes.scene.scene == "-" ? 1 : 0);
    if (dashes > 1) return "the standard input can be read once only";
    if (dashes > 0 && wishes.watch) return "--watch reads again, which the standard input cannot";
    const std::string mistake = settle_format(wishes);
    if (!mistake.empty()) return mistake;
    if (wishes.output == "-" && (wishes.describe || wishes.check || !wishes.previous.empty())) {
        return "the standard output cannot take a picture and lines of text";
    }
    if (wishes.output.empty() && !wishes.previous.empty()) {
        return "--changed-from goes with -o only";
    }
    if (wishes.dither != "none" && wishes.panel.empty()) return "--dither goes with --panel only";
    const std::string lost = overwritten(wishes);
    if (!lost.empty()) return wishes.output + ": would be written over " + lost;
    wishes.outlet.panel = orvel_tools::panel_named(wishes.panel);
    wishes.outlet.dither = wishes.dither == "ordered"    ? KIT_DITHER_ORDERED
                           : wishes.dither == "diffused" ? KIT_DITHER_DIFFUSED
                                                         : KIT_DITHER_NONE;
    wishes.outlet.turns = std::stoi(wishes.rotate) / 90;
    return "";
}

/// Prints the box in which the picture differs from the earlier one: all of it when there is none.
bool print_changes(const Wishes& wishes, const Picture& now, std::string& error) {
    Picture before;
    if (std::filesystem::exists(wishes.previous)) {
        auto read = orvel_tools::read_picture(wishes.previous, error);
        if (!read) return false;
        before = std::move(*read);
    }
    const kit_box box = orvel_tools::changed(before, now, *wishes.outlet.panel);
    std::printf("%d %d %d %d\n", box.x, box.y, box.w, box.h);
    return true;
}

bool write(const Wishes& wishes, const orvel_canvas* canvas, std::string& error) {
    auto picture = orvel_tools::panel_picture(canvas, wishes.outlet);
    if (!picture) throw std::bad_alloc();
    constexpr std::size_t kMostPixels = std::size_t{64} << 20;
    const auto scale = static_cast<std::size_t>(wishes.scale);
    if (picture->pixels.size() > kMostPixels / (scale * scale)) {
        error = wishes.output + ": more than 64 million pixels";
        return false;
    }
    if (wishes.scale > 1) picture = orvel_tools::scaled(*picture, wishes.scale);
    if (!wishes.previous.empty() && !print_changes(wishes, *picture, error)) return false;
    const auto bytes = wishes.format == "raw"
                           ? orvel_tools::panel_bytes(canvas, wishes.outlet)
                           : orvel_tools::encoded(*picture, wishes.format, error);
    if (!bytes) {
        error = wishes.output + ": " + error;
        return false;
    }
    return orvel_tools::write_bytes(wishes.output, *bytes, error);
}

/// One screen: described, drawn. Returns the status to end with.
int render(const CommandLine& program, const Wishes& wishes, const Scene& scene) {
    if (wishes.describe) {
        const char* const lines = kit_screen_describe(scene.open());
        if (!lines) throw std::bad_alloc();
        std::fputs(lines, stdout);
    }
    if (wishes.output.empty()) return 0;
    std::string error;
    const CanvasPtr canvas = scene.draw(error);
    if (!canvas || !write(wishes, canvas.get(), error)) return program.fail(error);
    for (const std::string& line : scene.complaints()) program.fail(line);  // drawn without it
    return 0;
}

/// Prints what is wrong with the screen with each of the data; 1 when anything is.
int check(const CommandLine& program, const Wishes& wishes) {
    int status = 0;
    std::vector<std::string> all = wishes.data;
    if (all.empty()) all.emplace_back();
    for (const std::string& data : all) {
        SceneWishes one = wishes.scene;
        one.data = data;
        std::string error;
        const Scene scene(one, error);
        if (!scene.open()) return program.fail(error);
        const kit_format panel = orvel_tools::format_of(wishes.outlet);
        const char* const lines = kit_screen_report_on(scene.open(), &panel);
        if (!lines) throw std::bad_alloc();
        if (*lines == '\0') continue;
        if (all.size() > 1) std::printf("with %s:\n", data.c_str());
        std::fputs(lines, stdout);
        status = 1;
    }
    return status;
}

/// When the files were last written, and how large they are.
std::string traces(const std::vector<std::string>& files) {
    std::string traces;
    for (const std::string& file : files) {
        std::error_code none;
        const auto time = std::filesystem::last_write_time(file, none).time_since_epoch().count();
        traces += std::to_string(time) + ' ' +
                  std::to_string(std::filesystem::file_size(file, none)) + '\n';
    }
    return traces;
}

/// Everything that a scene is made of.
std::vector<std::string> files_of(const Wishes& wishes, const Scene& scene) {
    std::vector<std::string> files = scene.files();
    files.insert(files.end(), {wishes.scene.scene, wishes.scene.data, wishes.scene.theme});
    return files;
}

/// Draws again whenever one of the files changes. Ends with the process.
[[noreturn]] void watch(const CommandLine& program, const Wishes& wishes) {
    for (;;) {
        std::string error;
        // Looked at before it is drawn: what is written meanwhile is drawn next.
        const auto files = files_of(wishes, Scene(wishes.scene, error));
        const std::string before = traces(files);
        const Scene scene(wishes.scene, error);
        if (scene.open()) {
            render(program, wishes, scene);
        } else {
            program.fail(error);
        }
        std::fflush(stdout);
        while (files_of(wishes, scene) == files && traces(files) == before) {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
    }
}

int run(const CommandLine& program, Wishes& wishes) {
    const std::string mistake = settle(wishes);
    if (!mistake.empty()) return program.fail(mistake);
    if (wishes.check) return check(program, wishes);
    if (!wishes.data.empty()) wishes.scene.data = wishes.data.front();
    if (wishes.watch) watch(program, wishes);
    std::string error;
    const Scene scene(wishes.scene, error);
    return scene.open() ? render(program, wishes, scene) : program.fail(error);
}

}  // namespace

int main(int argc, char** argv) {
    CommandLine program("orvel-render",
                        "Draws a scene, a screen described in a JSON file, with the values given.",
                        "0 when all is well, 1 when --check found something, 2 on an error.");
    Wishes wishes;
    describe_options(program, wishes);
    if (const auto done = program.parse(argc, argv)) return *done;
    try {
        return program.end(run(program, wishes));
    } catch (const std::bad_alloc&) {
        return program.fail("the memory is too small");
    }
}
