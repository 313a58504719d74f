#include "models/line_model.h"

#include <algorithm>

namespace model {
namespace {

bool is_mark(char32_t c) { return c == 0x301 || c == 0x200D || c == 0xFE0F || c == 0x1F3FD; }
bool is_flag(char32_t c) { return c == 0x1F1E9 || c == 0x1F1EA; }
bool is_picture(char32_t c) { return c == 0x1F469 || c == 0x1F680 || c == 0x1F3FD; }

/// 's' of signs and pictures, 'b' of blanks, 'w' of the rest.
char class_of(char32_t c) {
    if (c == ' ' || c == 0xA0) return 'b';
    return c == ',' || c == '.' || c == '\'' || is_flag(c) || is_picture(c) || c == 0xFFFD ? 's'
                                                                                           : 'w';
}

Characters part(const Characters& text, int begin, int end) {
    return {text.begin() + begin, text.begin() + end};
}

Characters joined(Characters first, const Characters& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// Of each letter where it begins, and the end of the text.
std::vector<int> places_of(const Characters& text) {
    std::vector<int> places;
    for (int i = 0; i <= static_cast<int>(text.size()); ++i) {
        if (Line::is_place(text, i)) places.push_back(i);
    }
    return places;
}

struct Run {
    int begin, end;
    char what;
};

std::vector<Run> runs_of(const Characters& text) {
    const std::vector<int> places = places_of(text);
    std::vector<Run> runs;
    for (std::size_t i = 0; i + 1 < places.size(); ++i) {
        const char32_t first = text[static_cast<std::size_t>(places[i])];
        char what = class_of(first);
        const bool follows = !runs.empty() && runs.back().what == 'w';
        if (first == '\'' && follows && i + 2 < places.size() &&
            class_of(text[static_cast<std::size_t>(places[i + 1])]) == 'w') {
            what = 'w';
        }
        if (runs.empty() || runs.back().what != what) runs.push_back({places[i], 0, what});
        runs.back().end = places[i + 1];
    }
    return runs;
}

}  // namespace

bool Line::is_place(const Characters& text, int i) {
    const int size = static_cast<int>(text.size());
    const auto at = [&](int k) { return k < 0 ? U' ' : text[static_cast<std::size_t>(k)]; };
    if (i == 0 || i == size) return true;
    if (is_mark(at(i))) return false;
    int flags = 0;
    while (is_flag(at(i - 1 - flags))) ++flags;
    if (is_flag(at(i))) return flags % 2 == 0;
    int base = i - 1;
    while (base > 0 && is_mark(at(base))) --base;
    return !(is_picture(at(i)) && at(i - 1) == 0x200D && is_picture(at(base)));
}

int Line::count_letters(const Characters& text) {
    return static_cast<int>(places_of(text).size()) - 1;
}

void Line::select(int anchor, int caret) {
    now.anchor = anchor;
    now.caret = caret;
    last_ = Kind::Other;
}

int Line::place_from(int at) const {
    while (!is_place(now.text, at)) ++at;
    return at;
}

void Line::set_text(const Characters& text, int caret, int anchor) {
    if (text == now.text) return;
    now.text = text;
    done_.clear();
    undone_.clear();
    select(place_from(std::min(anchor, size())), place_from(std::min(caret, size())));
}

void Line::place(int at, bool extend) {
    const int caret = place_from(std::clamp(at, 0, size()));
    select(extend ? now.anchor : caret, caret);
}

void Line::place_words(int from, int to) {
    if (secret) return select_all();
    const std::vector<Run> runs = runs_of(now.text);
    if (runs.empty()) return select(0, 0);
    const auto run_at = [&](int at) {
        for (const Run& run : runs) {
            if (at < run.end) return run;
        }
        return runs.back();
    };
    const Run first = run_at(from), last = run_at(to);
    if (last.begin < first.begin) return select(first.end, last.begin);
    select(first.begin, last.end);
}

int Line::target(Step step, bool forward) const {
    const int caret = now.caret;
    if (step == Step::Letter) {
        const int to = forward ? std::min(caret + 1, size()) : std::max(caret - 1, 0);
        if (forward) return place_from(to);
        int at = to;
        while (!is_place(now.text, at)) --at;
        return at;
    }
    int to = forward ? size() : 0;
    if (step == Step::Line || secret) return to;
    for (const Run& run : runs_of(now.text)) {
        if (run.what == 'b') continue;
        if (forward && run.end > caret) return run.end;
        if (!forward && run.begin < caret) to = run.begin;
    }
    return to;
}

void Line::move(Step step, bool forward, bool extend) {
    int caret = target(step, forward);
    if (step == Step::Letter && !extend && now.caret != now.anchor) {
        caret = forward ? std::max(now.caret, now.anchor) : std::min(now.caret, now.anchor);
    }
    select(extend ? now.anchor : caret, caret);
}

bool Line::joins(const Characters& text, Kind kind) const {
    if (done_.empty() || kind == Kind::Other || kind != last_) return false;
    if (now.caret != now.anchor || now.caret != edge_) return false;
    return kind != Kind::Typed || class_of(text.front()) != 'b';
}

void Line::replace(int begin, int end, const Characters& text, Kind kind) {
    const State before = now;
    const bool join = joins(text, kind);
    now.text = joined(joined(part(before.text, 0, begin), text), part(before.text, end, size()));
    edge_ = begin + static_cast<int>(text.size());
    select(0, 0);
    now.caret = now.anchor = place_from(edge_);
    if (now.text == before.text) return;
    undone_.clear();
    if (!join) done_.push_back({before, {}});
    done_.back().after = now;
    last_ = kind;
}

void Line::put(const Characters& text, Kind kind) {
    const int begin = std::min(now.caret, now.anchor), end = std::max(now.caret, now.anchor);
    const Characters before = part(now.text, 0, begin), behind = part(now.text, end, size());
    // The longest beginning that fits.
    for (int n = static_cast<int>(text.size()); n > 0; --n) {
        const Characters all = joined(before, text);
        const Characters typed = part(text, 0, n), line = joined(before, typed);
        if (!is_place(all, begin + n)) continue;
        if (limit > 0 && count_letters(line) + count_letters(behind) > limit) continue;
        return replace(begin, end, typed, kind);
    }
}

void Line::erase(Step step, bool forward) {
    int begin = std::min(now.caret, now.anchor), end = std::max(now.caret, now.anchor);
    Kind kind = Kind::Other;
    if (begin == end) {
        const int to = target(step, forward);
        begin = std::min(now.caret, to);
        end = std::max(now.caret, to);
        if (step == Step::Letter) kind = forward ? Kind::Delete : Kind::Backspace;
    }
    if (begin != end) replace(begin, end, {}, kind);
}

void Line::replace_all(const Characters& text) { replace(0, size(), text, Kind::Other); }

void Line::undo() {
    last_ = Kind::Other;
    if (done_.empty()) return;
    undone_.push_back(done_.back());
    done_.pop_back();
    now = undone_.back().before;
}

void Line::redo() {
    last_ = Kind::Other;
    if (undone_.empty()) return;
    done_.push_back(undone_.back());
    undone_.pop_back();
    now = done_.back().after;
}

Characters Line::copied() const {
    if (secret) return {};
    return part(now.text, std::min(now.caret, now.anchor), std::max(now.caret, now.anchor));
}

}  // namespace model
