#include "compare/report.h"

#include <algorithm>
#include <cstdio>
#include <new>

#include "names.h"
#include "orvel_kit.h"
#include "png_file.h"
#include "report_page.h"

namespace orvel_tools {
namespace {

/// So much of pictures is in one page at the most: browsers and memory have to hold it.
constexpr std::size_t kMostOfPictures = std::size_t(48) << 20;

std::string base64(const Bytes& bytes) {
    static const char* const letters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t left = std::min<std::size_t>(3, bytes.size() - at);
        unsigned group = 0;
        for (std::size_t i = 0; i < 3; ++i) group = group << 8 | (i < left ? bytes[at + i] : 0u);
        for (std::size_t i = 0; i < 4; ++i) {
            text += i <= left ? letters[group >> (18 - 6 * i) & 63] : '=';
        }
    }
    return text;
}

std::string px(int value) { return std::to_string(value); }

std::string percent(int part, int whole) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4f%%", 100.0 * part / whole);
    return text;
}

/// The frame around what differs, for pixels that one would not find.
std::string frame(const Box& box, const Picture& on) {
    if (box.width == 0) return "";
    return "<span class=\"box\" style=\"left:" + percent(box.left, on.width) +
           ";top:" + percent(box.top, on.height) + ";width:" + percent(box.width, on.width) +
           ";height:" + percent(box.height, on.height) + "\"></span>";
}

/// One page being written.
class Page {
public:
    explicit Page(const Comparison& comparison) : comparison_(comparison) {}

    std::string written() {
        start();
        for (const Result& result : comparison_.results) {
            if (result.outcome != Outcome::equal) add_failing(result);
        }
        add_others();
        text_ +=
            "</main>\n<script>\n" + std::string(kReportScript) + "</script>\n</body>\n</html>\n";
        return std::move(text_);
    }

private:
    void start() {
        const std::size_t all = comparison_.results.size();
        const auto equal = static_cast<std::size_t>(comparison_.count(Outcome::equal));
        const std::string of_all = std::to_string(all) + (all == 1 ? " picture" : " pictures");
        const bool well = equal == all && comparison_.trouble.empty();
        const std::string title =
            well ? "All of " + of_all + " as expected"
                 : std::to_string(all - equal) + " of " + of_all + " not as expected";
        text_ +=
            "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
            "img-src data:; style-src 'unsafe-inline'; script-src 'unsafe-inline'\">\n"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
            "<title>" +
            title + "</title>\n<style>\n" + kReportStyle +
            "</style>\n</head>\n<body>\n<header>\n<h1>" + title + "</h1>\n<p>" +
            escaped_markup(summary(comparison_)) +
            "</p>\n<p class=\"quiet\">Expected: " + shown(comparison_.expected) +
            ". Actual: " + shown(comparison_.actual) + ". By orvel-compare " KIT_VERSION ".</p>\n";
        for (const std::string& line : comparison_.trouble) {
            text_ += "<p><span class=\"state\">! trouble</span>" + escaped_markup(line) + "</p>\n";
        }
        text_ += std::string(kReportKeys) + "</header>\n<main>\n";
    }

    static std::string shown(const std::string& name) { return escaped_markup(shown_name(name)); }

    void add_failing(const Result& result) {
        const std::string id = "picture-" + std::to_string(++failing_);
        const Box& box = result.difference.box;
        text_ += "<section class=\"picture\" id=\"" + id + "\" tabindex=\"-1\" data-box=\"" +
                 px(box.left) + " " + px(box.top) + " " + px(box.width) + " " + px(box.height) +
                 "\">\n<h2>" + shown(result.pair.name) + "</h2>\n<p><span class=\"state\">" +
                 sign(result.outcome) + word_for(result.outcome) + "</span> " + told(result) +
                 "</p>\n";
        for (const Mask& mask : result.masks) {
            text_ += "<p class=\"quiet\">Masked: " + px(mask.box.width) + " × " +
                     px(mask.box.height) + " at (" + px(mask.box.left) + ", " + px(mask.box.top) +
                     "), " + shown(mask.reason) + "</p>\n";
        }
        text_ += "<div class=\"tools\"></div>\n<div class=\"views\">\n";
        add_pictures(result);
        text_ += "</div>\n</section>\n";
    }

    /// The sentence without the outcome's word, which stands before it.
    static std::string told(const Result& result) {
        const std::string text = sentence(result);
        const std::string word = std::string(word_for(result.outcome)) + ": ";
        return escaped_markup(text.compare(0, word.size(), word) == 0 ? text.substr(word.size())
                                                                      : text);
    }

    static const char* sign(Outcome outcome) {
        switch (outcome) {
        case Outcome::equal: return "= ";
        case Outcome::different: return "≠ ";
        case Outcome::missing: return "− ";
        case Outcome::unexpected: return "+ ";
        case Outcome::unreadable: return "! ";
        }
        return "";
    }

    void add_pictures(const Result& result) {
        if (of_pictures_ >= kMostOfPictures) {
            text_ += "<p>Not shown: the pictures before it fill the page.</p>\n";
            return;
        }
        const auto expected = read(result.pair.expected), actual = read(result.pair.actual);
        if (expected) add_figure("expected", "Expected", result, *expected, "");
        if (actual) add_figure("actual", "Actual", result, *actual, "");
        if (!expected || !actual) return;
        const Picture drawn = drawn_difference(*expected, *actual, result.masks);
        add_figure("difference", "Difference", result, drawn, frame(result.difference.box, drawn));
    }

    static std::optional<Picture> read(const std::string& path) {
        std::string unreadable;
        return path.empty() ? std::nullopt : read_picture(path, unreadable);
    }

    void add_figure(const char* kind, const char* title, const Result& result,
                    const Picture& picture, const std::string& over) {
        Bytes bytes;
        const std::string reason = encode_png(picture, bytes);
        const std::string size = px(picture.width) + " × " + px(picture.height);
        text_ += std::string("<figure class=\"") + kind + "\"><figcaption>" + title +
                 " <span class"
                 "=\"quiet\">" +
                 size + "</span></figcaption>";
        if (reason.empty() && of_pictures_ + bytes.size() <= kMostOfPictures) {
            text_ += "<div class=\"pane\" tabindex=\"0\" role=\"group\" aria-label=\"" +
                     std::string(title) + "\"><div class=\"sheet\"><img width=\"" +
                     px(picture.width) + "\" height=\"" + px(picture.height) + "\" alt=\"" + kind +
                     ": " + shown(result.pair.name) + "\" src=\"data:image/png;base64," +
                     base64(bytes) + "\">" + over + "</div></div>";
            of_pictures_ += bytes.size();
        } else {
            text_ +=
                "<p>Not shown: " + (reason.empty() ? "too large for the page" : reason) + "</p>";
        }
        text_ += "</figure>\n";
    }

    void add_others() {
        const int equal = comparison_.count(Outcome::equal);
        if (equal == 0) return;
        text_ += "<section>\n<h2>As expected: " + std::to_string(equal) +
                 "</h2>\n<ul class=\"others\">\n";
        for (const Result& result : comparison_.results) {
            if (result.outcome != Outcome::equal) continue;
            text_ += "<li>" + shown(result.pair.name) + " <span class=\"quiet\">" +
                     escaped_markup(sentence(result)) + "</span></li>\n";
        }
        text_ += "</ul>\n</section>\n";
    }

    const Comparison& comparison_;
    std::string text_;
    std::size_t of_pictures_ = 0;
    int failing_ = 0;
};

}  // namespace

bool write_report(const Comparison& comparison, const std::string& path, std::string& error) {
    return write_bytes(path, Page(comparison).written(), error);
}

}  // namespace orvel_tools
