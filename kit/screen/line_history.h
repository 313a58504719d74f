// What can be taken back of the edits of a line.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace kit {

/// One edit: the part that was taken out at a place, and what was put in there.
struct LineEdit {
    std::size_t at = 0;
    std::string out, in;
    std::size_t caret = 0, anchor = 0;  // before it
};

/// Edits of one kind, each beside the one before, are one step.
enum class Joint { None, Typed, Backward, Forward };

/// The steps, of which the oldest go where memory is bounded.
class LineHistory {
public:
    static constexpr std::size_t kMost = std::size_t{1} << 17;  // bytes, with kOfStep for each step
    static constexpr std::size_t kOfStep = 64;

    /// Adds an edit, behind which nothing can be done again. Typed text is a new step at every
    /// blank.
    void add(const LineEdit& edit, Joint joint);

    /// What comes next is a new step.
    void end_step() { joint_ = Joint::None; }

    void clear();

    /// The edit to be taken back, null where there is none; it counts as taken back.
    const LineEdit* back();
    /// The edit to be done again, null where there is none; it counts as done.
    const LineEdit* again();

private:
    bool joins(const LineEdit& edit, Joint joint) const;

    std::vector<LineEdit> steps_;
    std::size_t done_ = 0;  // how many of them are not taken back
    Joint joint_ = Joint::None;
};

}  // namespace kit
