#include "screen/line_editor.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "screen/data.h"

namespace kit {
namespace {

int to_int(std::size_t offset) { return static_cast<int>(offset); }  // texts are short

std::size_t clamped(int at, std::size_t size) {
    return at < 0 ? 0 : std::min(static_cast<std::size_t>(at), size);
}

}  // namespace

LineEditor::Part LineEditor::selection() const {
    return {std::min(caret_, anchor_), std::max(caret_, anchor_)};
}

std::size_t LineEditor::place_of(int at) const {
    return place_from(text_, clamped(at, text_.size()));
}

void LineEditor::leave_step() {
    composed_.clear();
    history_.end_step();
}

void LineEditor::set_text(std::string_view text) {
    std::string known = well_formed(text);
    if (known == text_) return;
    text_ = std::move(known);
    composed_.clear();
    history_.clear();
    caret_ = place_from(text_, caret_);
    anchor_ = place_from(text_, anchor_);
}

void LineEditor::place(int at, bool extend) {
    leave_step();
    caret_ = place_of(at);
    if (!extend) anchor_ = caret_;
}

void LineEditor::place_words(int from, int to) {
    if (secret_) return select_all();
    leave_step();
    const Run first = run_at(text_, clamped(from, text_.size()));
    const Run last = run_at(text_, clamped(to, text_.size()));
    const bool back = last.begin < first.begin;
    anchor_ = back ? first.end : first.begin;
    caret_ = back ? last.begin : last.end;
}

void LineEditor::select_all() {
    leave_step();
    anchor_ = 0;
    caret_ = text_.size();
}

std::size_t LineEditor::target(By by, bool forward) const {
    if (by == By::Letter) {
        return forward ? letter_end(text_, caret_) : place_before(text_, caret_);
    }
    if (by == By::Word && !secret_) {
        return forward ? word_end(text_, caret_) : word_begin(text_, caret_);
    }
    return forward ? text_.size() : 0;
}

void LineEditor::move(By by, bool forward, bool extend) {
    leave_step();
    const Part part = selection();
    if (by == By::Letter && !extend && part.begin != part.end) {
        caret_ = forward ? part.end : part.begin;
    } else {
        caret_ = target(by, forward);
    }
    if (!extend) anchor_ = caret_;
}

/// How many bytes of @p typed may stand in place of a part: whole letters.
std::size_t LineEditor::room_for(const std::string& typed, Part part) const {
    const std::string line = text_.substr(0, part.begin) + typed;
    const std::string_view behind = std::string_view(text_).substr(part.end);
    std::size_t letters = std::numeric_limits<std::size_t>::max();
    if (limit_ > 0) letters = limit_ - std::min(limit_, count_letters(behind));
    std::size_t end = 0;
    for (; letters > 0 && end < line.size(); --letters) {
        const std::size_t next = letter_end(line, end);
        if (next + behind.size() > kMostText) break;
        end = next;
    }
    return end > part.begin ? end - part.begin : 0;
}

bool LineEditor::put(std::string_view text, Joint joint) {
    composed_.clear();
    std::string typed = one_line(text);
    typed.resize(room_for(typed, selection()));
    if (typed.empty()) return false;
    return replace(selection(), typed, joint);
}

bool LineEditor::erase(By by, bool forward) {
    composed_.clear();
    Part part = selection();
    Joint joint = Joint::None;
    if (part.begin == part.end) {
        const std::size_t to = target(by, forward);
        part = {std::min(caret_, to), std::max(caret_, to)};
        if (by == By::Letter) joint = forward ? Joint::Forward : Joint::Backward;
    }
    if (part.begin == part.end) return false;
    return replace(part, "", joint);
}

bool LineEditor::replace_all(std::string_view text) {
    composed_.clear();
    return replace({0, text_.size()}, well_formed(text), Joint::None);
}

/// Puts @p other where so many bytes are, and the caret behind it.
void LineEditor::swap_parts(std::size_t at, std::size_t bytes, const std::string& other) {
    text_.replace(at, bytes, other);
    caret_ = anchor_ = place_from(text_, at + other.size());
}

bool LineEditor::replace(Part part, const std::string& text, Joint joint) {
    LineEdit edit;
    edit.at = part.begin;
    edit.out = text_.substr(part.begin, part.end - part.begin);
    edit.in = text;
    edit.caret = caret_;
    edit.anchor = anchor_;
    const bool same = edit.out == edit.in;
    swap_parts(edit.at, edit.out.size(), edit.in);
    if (same) {
        history_.end_step();
    } else {
        history_.add(edit, joint);
    }
    return !same;
}

bool LineEditor::undo() {
    composed_.clear();
    const LineEdit* const edit = history_.back();
    if (!edit) return false;
    swap_parts(edit->at, edit->in.size(), edit->out);
    caret_ = edit->caret;
    anchor_ = edit->anchor;
    return true;
}

bool LineEditor::redo() {
    composed_.clear();
    const LineEdit* const edit = history_.again();
    if (!edit) return false;
    swap_parts(edit->at, edit->out.size(), edit->in);
    return true;
}

std::string LineEditor::copied() const {
    const Part part = selection();
    if (secret_) return {};
    return text_.substr(part.begin, part.end - part.begin);
}

void LineEditor::compose(std::string_view text, int caret) {
    history_.end_step();
    composed_ = one_line(text);
    composed_caret_ = place_from(composed_, clamped(caret, composed_.size()));
}

LineEditor::Shown LineEditor::shown(std::string_view dot) const {
    // What is composed stands in place of the selection.
    Part part = {0, 0};
    if (is_composing()) part = selection();
    const std::string_view text = text_, before = text.substr(0, part.begin);
    const std::string_view behind = text.substr(part.end);
    const auto written = [&](std::string_view what) {
        if (!secret_) return std::string(what);
        std::string dots;
        for (std::size_t i = count_letters(what); i > 0; --i) dots += dot;
        return dots;
    };
    const auto length = [&](std::string_view what) { return to_int(written(what).size()); };
    Shown shown = {written(before) + written(composed_) + written(behind), 0, 0, 0, 0};
    shown.composed = length(before);
    shown.composed_end = shown.composed + length(composed_);
    if (is_composing()) {
        const std::string_view composed = composed_;
        shown.caret = shown.composed + length(composed.substr(0, composed_caret_));
        shown.anchor = shown.caret;
    } else {
        shown.caret = length(text.substr(0, caret_));
        shown.anchor = length(text.substr(0, anchor_));
    }
    return shown;
}

int LineEditor::behind_shown(int at, std::string_view dot) const {
    const Shown now = shown(dot);
    at = std::clamp(at, 0, to_int(now.text.size()));
    const bool behind = is_composing() && at >= now.composed_end;
    at -= std::clamp(at - now.composed, 0, now.composed_end - now.composed);
    std::size_t place = static_cast<std::size_t>(at);
    if (secret_) {
        place = 0;
        for (std::size_t left = static_cast<std::size_t>(at) / dot.size(); left > 0; --left) {
            place = letter_end(text_, place);
        }
    }
    const Part part = selection();
    if (behind) place += part.end - part.begin;
    return to_int(place_from(text_, place));
}

}  // namespace kit
