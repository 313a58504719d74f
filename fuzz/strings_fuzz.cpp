// Any bytes wherever the library takes a text: no finding of the sanitizers, the pixels and
// messages that the text should give, and nothing that depends on it once the call is over.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

#include "any_widget.h"
#include "harness.h"
#include "input.h"
#include "models/shapes_model.h"
#include "models/text_model.h"

namespace {

using fuzz::require;

constexpr orvel_color kGround = {1, 2, 3, 4};

struct DestroyCanvas {
    void operator()(orvel_canvas* canvas) const { orvel_canvas_destroy(canvas); }
};
using Canvas = std::unique_ptr<orvel_canvas, DestroyCanvas>;

bool is_icon(const std::string& name) {
    int count = 0;
    const char** const names = orvel_icon_list(&count);
    return std::find(names, names + count, name) != names + count;
}

class Texts {
public:
    Texts(fuzz::Input input, const fuzz::Resources& resources)
        : input_(input),
          resources_(resources),
          width_(1 + input_.byte() % 32),
          height_(1 + input_.byte() % 16) {
        orvel_theme_default(&theme_);
    }

    void run() {
        for (int calls = 0; calls < 16 && !input_.empty(); ++calls) any_call();
    }

private:
    void any_call() {
        switch (input_.byte() % 8) {
        case 0: return message();
        case 1: return root();
        case 2: return theme_file();
        case 3: return icon();
        case 4:
        case 5: return text();
        case 6: return widget();
        default: return picture_file();
        }
    }

    Canvas new_canvas() const {
        Canvas canvas(orvel_canvas_create(width_, height_));
        orvel_canvas_clear(canvas.get(), kGround);
        return canvas;
    }

    void text() {
        const int x = input_.number(), y = input_.number();
        const orvel_color color = input_.color();
        const std::string text = input_.c_string();
        require(orvel_text_width(text.c_str()) == model::text_width(text), "another width");
        const Canvas canvas = new_canvas();
        orvel_text_draw(canvas.get(), text.c_str(), x, y, color);
        model::Canvas expected(width_, height_);
        model::clear(expected, kGround);
        model::text_draw(expected, text, x, y, color);
        require(fuzz::shows(canvas.get(), expected.pixels()), "another text than the model's");
    }

    /// A name that is no icon's draws a frame.
    void icon() {
        const int x = input_.number(), y = input_.number(), size = input_.number();
        const orvel_color color = input_.color();
        const std::string name = input_.c_string();
        const bool known = is_icon(name);
        require(orvel_icon_exists(name.c_str()) == (known ? 1 : 0), "another answer");
        const Canvas canvas = new_canvas(), expected = new_canvas();
        const int status = orvel_draw_icon(canvas.get(), name.c_str(), x, y, size, color);
        require(status == (known && size > 0 ? 0 : -1), "another status");
        if (known) return;
        orvel_canvas_rect(expected.get(), x, y, size, size, color);
        require(fuzz::shows(canvas.get(), expected->pixels.get()), "another frame");
    }

    /// The texts are copied: what becomes of the host's does not show.
    void widget() {
        const Canvas canvas = new_canvas(), expected = new_canvas();
        const int kind = fuzz::any_kind(input_);
        fuzz::AnyWidget any = fuzz::any_widget(input_, kind, "", "");
        any.text = input_.c_string();
        if (kind == ORVEL_WIDGET_LIST_ITEM) any.icon = input_.c_string();
        const auto widget = any.make(canvas.get(), &theme_);
        orvel_widget_draw(any.make(expected.get(), &theme_).get());
        for (std::string* text : {&any.text, &any.icon}) text->assign(text->size(), '#');
        orvel_widget_draw(widget.get());
        require(fuzz::shows(canvas.get(), expected->pixels.get()), "another widget");
    }

    /// There are neither sounds nor music.
    void message() {
        const bool music = input_.byte() % 2 == 1;
        check_message(music, resources_.root());
    }

    void check_message(bool music, const std::string& root) {
        const std::string name = input_.c_string();
        const std::string expected =
            music ? "[OrvelSDK] musica non trovata: " + root + "/Music/" + name + "\n"
                  : "[OrvelSDK] suono non trovato: " + root + "/Sounds/" + name + "\n";
        int status = 0;
        const std::string messages = fuzz::messages_of([&status, &name, music] {
            status = (music ? orvel_play_music : orvel_play_sound)(name.c_str());
        });
        require(status == -1, "a sound that nobody put there");
        require(messages == expected, "another message");
    }

    /// The root is what was set or else found in the environment.
    void root() {
        static std::string& variable = *new std::string;  // for good: the environment points to it
        std::string root = input_.c_string();
        std::string base = input_.c_string();
        variable = "ORVELSDK_PATH=" + base;
        putenv(variable.data());
        require(orvel_set_resource_path(root.c_str()) == 0, "a path that was not taken");
        if (root.empty()) {
            if (base.empty()) base = ".";
            if (base != "/" && base[base.size() - 1] == '/') base.erase(base.size() - 1);
            root = base + "/Resources";
        }
        check_message(false, root);
        orvel_set_resource_path(resources_.root().c_str());
    }

    /// The name of a resource, and that of the file which it stands for.
    struct Name {
        std::string name, file;
    };

    /// Of bytes that every file system takes; empty when it would be a folder's.
    Name any_name() {
        constexpr const char* kExtensions[] = {".wav", ".mp3",  ".bmp", ".json",
                                               ".m4a", ".aiff", ".png", ""};
        Name any;
        any.name = input_.c_string().substr(0, 200);
        for (char& byte : any.name) {
            if (byte == '/' || static_cast<unsigned char>(byte) > 127) byte = '_';
        }
        if (any.name.find_first_not_of('.') == std::string::npos) return {};
        any.file = any.name;
        if (any.name.find('.') == std::string::npos) any.file += kExtensions[input_.byte() % 8];
        return any;
    }

    /// A theme is saved over the file that loading would find, and loading finds it.
    void theme_file() {
        const Name any = any_name();
        if (any.name.empty()) return;
        const std::string file = "UI/" + any.file;
        resources_.put(file, "");
        orvel_theme theme;
        std::memset(&theme, 0, sizeof theme);
        require(orvel_theme_save(&theme_, any.name.c_str()) == 0, "not saved");
        require(resources_.get(file).size() == 264, "saved under another name");
        require(orvel_theme_load(&theme, any.name.c_str()) == 0, "not loaded");
        require(std::memcmp(&theme, &theme_, sizeof theme) == 0, "another theme");
        resources_.remove(file);
    }

    /// A picture is found under its name, whichever of the extensions its file has.
    void picture_file() {
        const Name any = any_name();
        if (any.name.empty()) return;
        const std::string file = "Icons/" + any.file;
        const Canvas picture = new_canvas(), canvas = new_canvas();
        orvel_text_draw(picture.get(), any.name.c_str(), 0, 0, {5, 6, 7, 8});
        require(orvel_icon_draw_bitmap(canvas.get(), any.name.c_str(), 0, 0) == -1, "no such file");
        const std::string path = resources_.path(file);
        require(orvel_canvas_save_bmp_rgba(picture.get(), path.c_str()) == 0, "not saved");
        require(orvel_icon_draw_bitmap(canvas.get(), any.name.c_str(), 0, 0) == 0, "not found");
        require(fuzz::shows(canvas.get(), picture->pixels.get()), "another picture");
        resources_.remove(file);
    }

    fuzz::Input input_;
    const fuzz::Resources& resources_;
    const int width_, height_;
    orvel_theme theme_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Resources resources;
    Texts(fuzz::Input(data, size), resources).run();
    return 0;
}
