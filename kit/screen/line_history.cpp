#include "screen/line_history.h"

#include "screen/characters.h"

namespace kit {
namespace {

bool begins_with_blank(const std::string& text) {
    return class_of(character_at(text, 0).code) == Class::Blank;
}

}  // namespace

bool LineHistory::joins(const LineEdit& edit, Joint joint) const {
    if (joint == Joint::None || joint != joint_) return false;
    const LineEdit& last = steps_.back();
    if (joint == Joint::Backward) return edit.at + edit.out.size() == last.at;
    if (joint == Joint::Forward) return edit.at == last.at;
    return edit.at == last.at + last.in.size() && !begins_with_blank(edit.in);
}

void LineHistory::add(const LineEdit& edit, Joint joint) {
    steps_.resize(done_);
    if (joins(edit, joint)) {
        LineEdit& last = steps_.back();
        last.in += edit.in;
        last.out = joint == Joint::Backward ? edit.out + last.out : last.out + edit.out;
        last.at = edit.at < last.at ? edit.at : last.at;
    } else {
        steps_.push_back(edit);
    }
    joint_ = joint;
    std::size_t kept = steps_.size();
    for (std::size_t bytes = 0; kept > 0; --kept) {
        const LineEdit& step = steps_[kept - 1];
        bytes += step.out.size() + step.in.size() + kOfStep;
        if (bytes > kMost) break;
    }
    steps_.erase(steps_.begin(), steps_.begin() + static_cast<std::ptrdiff_t>(kept));
    if (steps_.empty()) end_step();
    done_ = steps_.size();
}

void LineHistory::clear() {
    steps_.clear();
    done_ = 0;
    end_step();
}

const LineEdit* LineHistory::back() {
    end_step();
    return done_ > 0 ? &steps_[--done_] : nullptr;
}

const LineEdit* LineHistory::again() {
    end_step();
    return done_ < steps_.size() ? &steps_[done_++] : nullptr;
}

}  // namespace kit
