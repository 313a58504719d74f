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
#include "replay.h"
#include "scene_options.h"

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
    std::string events, changes;
    int scale = 1;
    bool describe = false, watch = false, check = false;
    Outlet outlet;
};

void describe_options(CommandLine& program, Wishes& wishes) {
    orvel_tools::describe_scene_options(program, wishes.scene, wishes.size);
    program.option("--data", wishes.data, "FILE", "A JSON file of the values to show; - as above");
    program.option("-o,--output", wishes.output, "FILE",
                   "The picture: .png, .bmp, .ppm, .pbm or .raw; - is the standard output");
    program.option("--format", wishes.format, {"png", "bmp", "ppm", "pbm", "raw"},
                   "What to write, whatever the file is called");
    program.option("--scale", wishes.scale, 1, 16, "Make every pixel a square of this side");
    program.option("--panel", wishes.panel, {"mono", "gray4", "gray16", "rgb565", "red", "seven"},
                   "The panel that shows it");
    program.option("--dither", wishes.dither, {"none", "ordered", "diffused"},
                   "How to approximate colours that the panel lacks");
    program.option("--rotate", wishes.rotate, {"0", "90", "180", "270"}, "Degrees clockwise");
    program.option("--changed-from", wishes.previous, "FILE",
                   "Print X Y WIDTH HEIGHT of what differs from this earlier PNG or BMP");
    program.option("--events", wishes.events, "FILE",
                   "Play this session; {} in -o stands for the pictures that it marks");
    program.option("--changes", wishes.changes, "FILE",
                   "Write what controls changed on the way, a line of JSON for each");
    program.flag("--describe", wishes.describe, "Print what the screen shows, line by line");
    program.flag("--check", wishes.check, "Print what is cut, lost, faint or too small");
    program.flag("--watch", wishes.watch, "Draw again whenever a file of it changes");
}

/// Whether -o stands for the pictures that a session marks.
bool marks(const Wishes& wishes) {
    return !wishes.events.empty() && wishes.output.find("{}") != std::string::npos;
}

/// What is wrong with what is asked for; empty when nothing is.
std::string settle_results(const Wishes& wishes) {
    const bool played = !wishes.events.empty();
    if (wishes.output.empty() && !wishes.describe && !wishes.check && !played) {
        return "nothing to do without -o, --describe, --check or --events";
    }
    if (wishes.check && (!wishes.output.empty() || wishes.watch || played)) {
        return "--check draws nothing";
    }
    if (wishes.data.size() > 1 && !wishes.check) return "several --data go with --check only";
    if (!played && !wishes.changes.empty()) return "--changes goes with --events";
    if (marks(wishes) && !wishes.previous.empty()) {
        return "--changed-from goes with one picture";
    }
    const bool lines = wishes.describe || wishes.check || !wishes.previous.empty();
    if (wishes.output == "-" && (lines || wishes.changes == "-")) {
        return "the standard output cannot take a picture and lines of text";
    }
    if (wishes.output.empty() && !wishes.previous.empty()) {
        return "--changed-from goes with -o only";
    }
    return "";
}

/// The file of those read that the picture would be written over; empty when it is none of them.
std::string overwritten(const Wishes& wishes) {
    std::vector<std::string> read = wishes.data;
    read.insert(read.end(), {wishes.scene.scene, wishes.scene.theme, wishes.events});
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
    if (!known) return wishes.output + ": not .png, .bmp, .ppm, .pbm or .raw; --format says which";
    if (wishes.format == "pbm" && wishes.panel.empty()) wishes.panel = "mono";
    if (wishes.format == "pbm" && wishes.panel != "mono") return "a .pbm is for --panel mono only";
    if (wishes.format == "raw" && wishes.scale > 1) return "--scale is not for raw bytes";
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

/// What is wrong with the options together; empty when nothing is.
std::string settle(Wishes& wishes) {
    std::string mistake = settle_results(wishes);
    if (!mistake.empty()) return mistake;
    mistake = orvel_tools::settle_scene(wishes.scene, wishes.size, wishes.data, {wishes.events});
    if (!mistake.empty()) return mistake;
    std::vector<std::string> read = wishes.data;
    read.push_back(wishes.events);
    if (wishes.watch && orvel_tools::reads_standard_input(wishes.scene, read)) {
        return "--watch reads again, which the standard input cannot";
    }
    return settle_format(wishes);
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

bool write(const Wishes& wishes, const orvel_canvas* canvas, const std::string& output,
           std::string& error) {
    auto picture = orvel_tools::panel_picture(canvas, wishes.outlet);
    if (!picture) throw std::bad_alloc();
    constexpr std::size_t kMostPixels = std::size_t{64} << 20;
    const auto scale = static_cast<std::size_t>(wishes.scale);
    if (picture->pixels.size() > kMostPixels / (scale * scale)) {
        error = output + ": more than 64 million pixels";
        return false;
    }
    if (wishes.scale > 1) picture = orvel_tools::scaled(*picture, wishes.scale);
    if (!wishes.previous.empty() && !print_changes(wishes, *picture, error)) return false;
    const auto bytes = wishes.format == "raw"
                           ? orvel_tools::panel_bytes(canvas, wishes.outlet)
                           : orvel_tools::encoded(*picture, wishes.format, error);
    if (!bytes) {
        error = output + ": " + error;
        return false;
    }
    return orvel_tools::write_bytes(output, *bytes, error);
}

/// Plays the session, if there is one. False, and why, when that fails.
bool play(const Wishes& wishes, const Scene& scene, std::string& error) {
    if (wishes.events.empty()) return true;
    const auto take = [&wishes](const std::string& name, const orvel_canvas* canvas,
                                std::string& why) {
        if (!marks(wishes)) return true;
        std::string file = wishes.output;
        return write(wishes, canvas, file.replace(file.find("{}"), 2, name), why);
    };
    const orvel_tools::Replayed replayed = orvel_tools::replay(scene.open(), wishes.events, take);
    error = replayed.error;
    if (!error.empty() || wishes.changes.empty()) return error.empty();
    return orvel_tools::write_bytes(wishes.changes, replayed.changes, error);
}

/// One screen: played, described, drawn. Returns the status to end with.
int render(const CommandLine& program, const Wishes& wishes, const Scene& scene) {
    std::string error;
    if (!play(wishes, scene, error)) return program.fail(error);
    if (wishes.describe) {
        const char* const lines = kit_screen_describe(scene.open());
        if (!lines) throw std::bad_alloc();
        std::fputs(lines, stdout);
    }
    if (wishes.output.empty()) return 0;
    if (!marks(wishes)) {
        kit_screen_expose(scene.open(), nullptr);
        const CanvasPtr canvas = scene.draw(error);
        if (!canvas || !write(wishes, canvas.get(), wishes.output, error)) {
            return program.fail(error);
        }
    }
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

/// Everything that the picture is made of.
std::vector<std::string> files_of(const Wishes& wishes, const Scene& scene) {
    std::vector<std::string> files = orvel_tools::files_of(wishes.scene, scene);
    files.insert(files.end(), {wishes.scene.data, wishes.events});
    return files;
}

/// Draws again whenever one of the files changes. Ends with the process.
[[noreturn]] void watch(const CommandLine& program, const Wishes& wishes) {
    for (;;) {
        std::string error;
        // Looked at before it is drawn: what is written meanwhile is drawn next.
        const auto files = files_of(wishes, Scene(wishes.scene, error));
        const std::string before = orvel_tools::traces(files);
        const Scene scene(wishes.scene, error);
        if (scene.open()) {
            render(program, wishes, scene);
        } else {
            program.fail(error);
        }
        std::fflush(stdout);
        while (files_of(wishes, scene) == files && orvel_tools::traces(files) == before) {
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
