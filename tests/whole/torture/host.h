// A host that uses the library while calls of it fail, and tells what it sees.
#pragma once

#include <new>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "orvel.h"
#include "support/host_function.h"
#include "support/picture.h"
#include "system/ledger.h"

namespace orvel_test::torture {

/// What a scenario saw when nothing failed; what a failure leaves is compared with it.
struct Memory {
    std::vector<std::string> seen;
    bool complete = false;
};

/// Whether any host has called that function of the library.
bool is_reached(const void* function);

/// The pixels of a canvas, four bytes each.
std::string pixels_of(const orvel_canvas* canvas);

std::string bytes_of(const orvel_theme& theme);

class Host {
public:
    /// The resource folders are below @p root.
    Host(const std::string& root, Memory& memory);

    /// Calls a function of the library, during which calls of its own may fail, and tells its
    /// result: the number or text, "made" or "null" for an object, or the exception that it raised.
    template <typename Result, typename... Parameters, typename... Arguments>
    Result call(Result (*function)(Parameters...), const Arguments&... arguments) {
        reach(reinterpret_cast<void*>(function));
        if constexpr (std::is_void_v<Result>) {
            guarded([&] { function(arguments...); });
        } else {
            Result result{};
            if (guarded([&] { result = function(arguments...); })) tell(in_words(result));
            return result;
        }
    }
    template <typename Result>
    Result& call_for_reference(Result& (*function)()) {
        reach(reinterpret_cast<void*>(function));
        const Armed armed;
        return function();
    }

    /// A widget's life: it is made, drawn on the host's canvas, once more when nothing fails any
    /// longer, and destroyed.
    void live(const HostFunction& constructor, const HostArguments& arguments);
    void draw_and_destroy(orvel_widget* widget);

    /// Sees to it that the file @p name below the root holds these bytes.
    void provide(const std::string& name, const std::string& bytes) const;

    void tell(const std::string& words);
    /// Tells @p words unless @p now is what was seen in this place when nothing failed.
    void tell_unless_as_ever(const std::string& now, const char* words);
    /// "untouched", "drawn" as when nothing fails, or "partly drawn".
    void tell_canvas();
    /// "kept" when it still is @p before, "loaded" as when nothing fails, or "partly loaded".
    void tell_theme(const orvel_theme& theme, const orvel_theme& before);
    /// "no file", "old" for a file that says so, "whole" as when nothing fails, or its size.
    void tell_file(const std::string& path);
    /// The lines written to the standard error stream, without "[OrvelSDK] " and the root;
    /// "silent", or "a cut line". They are told once.
    void tell_log();
    /// What became of the player processes.
    void tell_players();
    /// One of three words: @p now is what was @p before, as when nothing fails, or between them.
    void tell_change(const std::string& now, const std::string& before, const char* unchanged,
                     const char* changed, const char* between);

    const std::string& told() const { return told_; }
    std::string path(const std::string& name) const { return root_ + "/" + name; }
    orvel_canvas* canvas() const { return canvas_.get(); }
    const orvel_theme& theme() const { return theme_; }

private:
    static void reach(void* function);

    template <typename Call>
    bool guarded(Call call) {
        const char* raised = "bad_alloc";
        try {
            const Armed armed;
            call();
            return true;
        } catch (const std::bad_alloc&) {
        } catch (const std::length_error&) {
            raised = "length_error";
        }
        tell(raised);
        return false;
    }

    static std::string in_words(int number) { return std::to_string(number); }
    static std::string in_words(const char* text) { return text; }
    static std::string in_words(const void* object) { return object ? "made" : "null"; }
    static std::string in_words(orvel_color color);
    std::string in_words(std::string path) const;

    /// Whether that was seen in this place when nothing failed.
    bool is_as_ever(const std::string& now);

    const std::string root_;
    Memory& memory_;
    std::size_t compared_ = 0;
    orvel_theme theme_;
    CanvasPtr canvas_;
    std::string told_;
};

}  // namespace orvel_test::torture
