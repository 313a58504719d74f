#include "models/widget_model.h"

#include <climits>
#include <cmath>

namespace orvel_test {
namespace {

/// Collects the calls.
struct List {
    std::vector<Call> calls;

    void fill(int x, int y, int w, int h, orvel_color c) { add(Call::kFill, {x, y, w, h}, c); }
    void frame(int x, int y, int w, int h, orvel_color c) { add(Call::kFrame, {x, y, w, h}, c); }
    void line(int x0, int y0, int x1, int y1, orvel_color c) {
        add(Call::kLine, {x0, y0, x1, y1}, c);
    }
    void ring(int cx, int cy, int r, orvel_color c) { add(Call::kRing, {cx, cy, r}, c); }
    void disc(int cx, int cy, int r, orvel_color c) { add(Call::kDisc, {cx, cy, r}, c); }
    void tri(int x0, int y0, int x1, int y1, int x2, int y2, orvel_color c) {
        add(Call::kTriangle, {x0, y0, x1, y1, x2, y2}, c);
    }
    void write(const std::string& s, int x, int y, orvel_color c) {
        calls.push_back({Call::kWrite, {x, y}, s, c});
    }
    void icon(const std::string& name, int x, int y, int size, orvel_color c) {
        calls.push_back({Call::kIcon, {x, y, size}, name, c});
    }
    void bitmap(const std::string& name, int x, int y) {
        calls.push_back({Call::kBitmap, {x, y}, name, {}});
    }

private:
    void add(Call::Function function, std::vector<int> numbers, orvel_color c) {
        calls.push_back({function, std::move(numbers), "", c});
    }
};

constexpr orvel_color rgb(unsigned word) {
    return {static_cast<unsigned char>(word >> 16), static_cast<unsigned char>(word >> 8 & 255),
            static_cast<unsigned char>(word & 255), 255};
}

int width_of(const std::string& s) { return s.empty() ? 0 : 6 * static_cast<int>(s.size()) - 1; }

int to_int(double d) {
    if (std::isnan(d)) return 0;
    const double whole = std::trunc(d);
    if (whole > INT_MAX) return INT_MAX;
    if (whole < INT_MIN) return INT_MIN;
    return static_cast<int>(whole);
}

/// 0 to 5 stars; the product of 5 and a fraction, halves rounded up.
int stars(double value) {
    const double product = value * 5;
    if (std::isnan(product)) return 0;
    int whole = 0;
    while (whole + 1 <= product) ++whole;
    return product - whole >= 0.5 ? whole + 1 : whole;
}

std::vector<std::string> captions(const std::string& text) {
    std::vector<std::string> found;
    std::size_t from = 0;
    for (std::size_t bar; (bar = text.find('|', from)) != std::string::npos; from = bar + 1) {
        found.push_back(text.substr(from, bar - from));
    }
    found.push_back(text.substr(from));
    return found;
}

void frames(List& out, const WidgetState& k, const orvel_theme& t) {
    const int x = k.x, y = k.y, w = k.w, h = k.h;
    const int row = y + (h - 7) / 2;
    if (k.kind == ORVEL_WIDGET_WINDOW) {
        out.fill(x, y, w, h, t.surface);
        out.frame(x, y, w, h, t.border);
        out.fill(x, y, w, 12, t.accent);
        out.write(k.text, 4 + x, 3 + y, t.background);
    } else if (k.kind == ORVEL_WIDGET_PANEL) {
        out.fill(x, y, w, h, t.surface);
        out.frame(x, y, w, h, t.border);
    } else if (k.kind == ORVEL_WIDGET_CARD) {
        out.fill(x, y, w, h, t.surface);
        out.frame(x, y, w, h, t.border);
        out.fill(x, y, 3, h, t.accent);
    } else if (k.kind == ORVEL_WIDGET_SEPARATOR) {
        out.line(x, y, x + w, y, t.border);
    } else if (k.kind == ORVEL_WIDGET_TITLEBAR) {
        out.fill(x, y, w, h, t.surface);
        out.frame(x, y, w, h, t.border);
        out.write(k.text, x + 3, row, t.text);
        out.disc(x + w - 20, y + h / 2, 3, rgb(0xF38BA8));
        out.disc(x + w - 12, y + h / 2, 3, rgb(0xF9E2AF));
        out.disc(x + w - 4, y + h / 2, 3, rgb(0xA6E3A1));
    } else if (k.kind == ORVEL_WIDGET_STATUSBAR) {
        out.fill(x, y, w, h, t.surface);
        out.line(x, y, x + w, y, t.border);
        out.write(k.text, x + 4, row, t.text);
    } else if (k.kind == ORVEL_WIDGET_TOOLTIP) {
        const int middle = x + w / 2;
        out.fill(x, y, w, h - 2, t.surface);
        out.frame(x, y, w, h - 2, t.border);
        out.tri(middle - 3, y + h - 2, middle + 3, y + h - 2, middle, y + h, t.surface);
        out.write(k.text, x + 4, y + 2, t.text);
    }
}

void statics(List& out, const WidgetState& k, const orvel_theme& t) {
    const int x = k.x, y = k.y, w = k.w, h = k.h;
    const int row = y + (h - 7) / 2;
    if (k.kind == ORVEL_WIDGET_LABEL) {
        out.write(k.text, x, y, t.text);
    } else if (k.kind == ORVEL_WIDGET_BUTTON) {
        if (k.hover) out.fill(x, y, w, h, t.button_hover);
        if (!k.hover) out.fill(x, y, w, h, t.button);
        out.frame(x, y, w, h, t.border);
        out.write(k.text, x + (w - width_of(k.text)) / 2, row, t.button_text);
    } else if (k.kind == ORVEL_WIDGET_TEXTBOX) {
        out.fill(x, y, w, h, t.surface);
        if (k.hover) out.frame(x, y, w, h, t.accent);
        if (!k.hover) out.frame(x, y, w, h, t.border);
        out.write(k.text, x + 3, row, t.text);
    } else if (k.kind == ORVEL_WIDGET_SEARCH) {
        out.fill(x, y, w, h, t.surface);
        if (k.active) out.frame(x, y, w, h, t.accent);
        if (!k.active) out.frame(x, y, w, h, t.border);
        out.icon("search", x + 2, y + 2, h - 4, t.border);
        out.write(k.text, x + h + 2, row, t.text);
    } else if (k.kind == ORVEL_WIDGET_ICON) {
        if (w > 8) out.icon(k.text, x + 1, y + 1, w - 2, t.accent);
        if (w <= 8) out.icon(k.text, x, y, w, t.accent);
    } else if (k.kind == ORVEL_WIDGET_IMAGE) {
        out.bitmap(k.text, x, y);
    } else if (k.kind == ORVEL_WIDGET_AVATAR) {
        const int r = w / 2;
        out.disc(x + r, y + r, r, t.accent);
        out.ring(x + r, y + r, r, t.border);
        out.write(k.text, x + r - 2, y + r - 3, t.background);
    } else if (k.kind == ORVEL_WIDGET_BADGE) {
        const std::string number = std::to_string(k.amount);
        const int wide = width_of(number);
        out.disc(x + 5, y + h / 2, 5, t.accent);
        out.fill(x + 4, y + 1, wide, h - 2, t.accent);
        out.disc(x + wide + 3, y + h / 2, 5, t.accent);
        out.write(number, x + 4, row, t.background);
    }
}

void flags(List& out, const WidgetState& k, const orvel_theme& t) {
    const int x = k.x, y = k.y, w = k.w, h = k.h;
    if (k.kind == ORVEL_WIDGET_TOGGLE) {
        const int r = (h - 4) / 2;
        out.fill(x, y, w, h, k.active ? t.accent : t.border);
        out.frame(x, y, w, h, t.border);
        if (k.active) out.disc(x + w - h + 2 + r, y + h / 2, r, t.background);
        if (!k.active) out.disc(x + 2 + r, y + h / 2, r, t.background);
    } else if (k.kind == ORVEL_WIDGET_CHECKBOX) {
        out.frame(x, y, 9, 9, t.border);
        if (k.active) {
            out.line(x + 1, y + 5, x + 4, y + 8, t.accent);
            out.line(x + 4, y + 8, x + 8, y + 1, t.accent);
        }
        out.write(k.text, x + 13, y + 1, t.text);
    } else if (k.kind == ORVEL_WIDGET_RADIO) {
        out.ring(x + 4, y + 4, 4, t.border);
        out.disc(x + 4, y + 4, 2, k.active ? t.accent : t.surface);
        out.write(k.text, x + 13, y + 1, t.text);
    } else if (k.kind == ORVEL_WIDGET_DROPDOWN) {
        const int right = x + w, middle = y + h / 2;
        out.fill(x, y, w, h, t.surface);
        out.frame(x, y, w, h, k.active ? t.accent : t.border);
        out.write(k.text, x + 3, y + (h - 7) / 2, t.text);
        out.tri(right - 10, middle - 3, right - 4, middle - 3, right - 7, middle + 2, t.text);
    }
}

void fractions(List& out, const WidgetState& k, const orvel_theme& t) {
    const int x = k.x, y = k.y, w = k.w, h = k.h;
    const int done = to_int(k.value * w);
    if (k.kind == ORVEL_WIDGET_SLIDER) {
        const int middle = y + h / 2;
        out.fill(x, middle - 1, w, 3, t.border);
        if (done > 0) out.fill(x, middle - 1, done, 3, t.accent);
        const int knob = done < w ? done : w;
        out.disc(x + knob, middle, h / 2, k.hover ? t.button_hover : t.accent);
    } else if (k.kind == ORVEL_WIDGET_PROGRESS) {
        out.frame(x, y, w, h, t.border);
        if (done > 0) out.fill(x + 1, y + 1, done - 1, h - 2, t.accent);
    } else if (k.kind == ORVEL_WIDGET_SPINNER) {
        const int r = w / 2 - 2;
        const double angle = 6.283185307179586 * k.value;
        out.ring(x + w / 2, y + h / 2, r, t.border);
        out.disc(x + w / 2 + to_int(r * std::cos(angle)), y + h / 2 + to_int(r * std::sin(angle)),
                 r / 3 + 1, t.accent);
    } else if (k.kind == ORVEL_WIDGET_RATING) {
        for (int star = 0; star < 5; ++star) {
            const int left = x + star * 10;
            const orvel_color c = star < stars(k.value) ? t.accent : t.border;
            out.tri(left + 2, y, left + 4, y + 3, left, y + 3, c);
            out.fill(left, y + 3, 5, 2, c);
            out.fill(left + 1, y + 5, 3, 2, c);
        }
    }
}

void lists(List& out, const WidgetState& k, const orvel_theme& t) {
    const int x = k.x, y = k.y, w = k.w, h = k.h;
    const int row = y + (h - 7) / 2;
    const std::vector<std::string> parts = captions(k.text);
    const int each = w / static_cast<int>(parts.size());
    int left = x, index = 0;
    for (const std::string& part : parts) {
        const bool selected = index++ == k.amount;
        const int start = left + (each - width_of(part)) / 2;
        if (k.kind == ORVEL_WIDGET_TABS) {
            if (selected) out.fill(left, y, each, h, t.surface);
            if (selected) out.fill(left, y, each, 2, t.accent);
            out.frame(left, y, each, h, t.border);
            out.write(part, start, row, selected ? t.accent : t.text);
        } else {
            if (selected) out.fill(left, y, each, h, t.button_hover);
            if (selected) out.fill(left, y + h - 2, each, 2, t.accent);
            out.write(part, start, row, t.text);
        }
        left += each;
    }
}

void others(List& out, const WidgetState& k, const orvel_theme& t) {
    const int x = k.x, y = k.y, w = k.w, h = k.h;
    if (k.kind == ORVEL_WIDGET_STEPPER) {
        const std::string number = std::to_string(k.amount);
        const int half = h / 2, right = x + w - half;
        out.frame(x, y, h, h, t.border);
        out.frame(x + w - h, y, h, h, t.border);
        out.fill(x + half - 3, y + half - 1, 7, 2, t.text);
        out.fill(right - 3, y + half - 1, 7, 2, t.text);
        out.fill(right - 1, y + half - 3, 2, 7, t.text);
        const int room = w - (width_of(number) + 2 * h);
        out.write(number, x + h + room / 2, y + (h - 7) / 2, t.text);
    } else if (k.kind == ORVEL_WIDGET_LIST_ITEM) {
        const bool plain = k.icon_name.empty();
        const int right = x + w, top = y + (h - 6) / 2, bottom = y + (h + 4) / 2;
        out.fill(x, y, w, h, k.active ? t.button_hover : t.background);
        out.frame(x, y, w, h, k.active ? t.accent : t.border);
        if (!plain) out.icon(k.icon_name, x + 3, y + (h - 16) / 2, 16, t.accent);
        out.write(k.text, plain ? x + 4 : x + 22, y + (h - 7) / 2, t.text);
        out.tri(right - 10, top, right - 6, top, right - 8, bottom, t.border);
    } else if (k.kind == ORVEL_WIDGET_BARS && !k.data.empty()) {
        const int each = w / static_cast<int>(k.data.size());
        const int pitch = each < 3 ? 2 : each;
        int left = x;
        for (double v : k.data) {
            if (v > 1) v = 1;
            if (v < 0) v = 0;
            const int tall = to_int(v * (h - 2));
            const int shown = tall < 0 ? 0 : tall;
            out.fill(left, y + h - 2 - shown, pitch - 1, shown, t.accent);
            left += pitch;
        }
        out.frame(x, y, w, h, t.border);
    }
}

}  // namespace

std::vector<Call> widget_calls(const WidgetState& widget, const orvel_theme& theme) {
    List out;
    frames(out, widget, theme);
    statics(out, widget, theme);
    flags(out, widget, theme);
    fractions(out, widget, theme);
    if (widget.kind == ORVEL_WIDGET_TABS || widget.kind == ORVEL_WIDGET_MENU) {
        lists(out, widget, theme);
    }
    others(out, widget, theme);
    return out.calls;
}

void perform(const std::vector<Call>& calls, orvel_canvas* canvas) {
    for (const Call& call : calls) {
        const std::vector<int>& n = call.numbers;
        const char* text = call.text.c_str();
        const orvel_color c = call.color;
        switch (call.function) {
        case Call::kFill: orvel_canvas_fill_rect(canvas, n[0], n[1], n[2], n[3], c); break;
        case Call::kFrame: orvel_canvas_rect(canvas, n[0], n[1], n[2], n[3], c); break;
        case Call::kLine: orvel_canvas_line(canvas, n[0], n[1], n[2], n[3], c); break;
        case Call::kRing: orvel_canvas_circle(canvas, n[0], n[1], n[2], c); break;
        case Call::kDisc: orvel_canvas_fill_circle(canvas, n[0], n[1], n[2], c); break;
        case Call::kTriangle:
            orvel_canvas_fill_triangle(canvas, n[0], n[1], n[2], n[3], n[4], n[5], c);
            break;
        case Call::kWrite: orvel_text_draw(canvas, text, n[0], n[1], c); break;
        case Call::kIcon: orvel_draw_icon(canvas, text, n[0], n[1], n[2], c); break;
        case Call::kBitmap: orvel_icon_draw_bitmap(canvas, text, n[0], n[1]); break;
        }
    }
}

}  // namespace orvel_test
