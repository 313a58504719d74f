// What tests of the whole interface share: a resource root, a canvas to draw on, and the comparison
// of any call with the models.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/files.h"
#include "whole/interface.h"
#include "widgets/distinct_theme.h"
#include "widgets/kinds.h"

namespace orvel_test {

/// The side of the canvas that all calls draw on.
constexpr int kSide = 24;

/// Works in a folder of its own that is also the resource root, with players that do not exist.
class InterfaceTest : public testing::Test {
protected:
    InterfaceTest();
    ~InterfaceTest() override;

    /// Makes the call, on a widget of that kind where it takes one, draws the widget that it made
    /// or changed, and compares the canvas with that of the models; what icons and widgets draw
    /// goes into a checksum instead. Empty when they are equal; else what is wrong, and the call in
    /// words.
    std::string difference(const HostFunction& function, const HostArguments& arguments,
                           int kind = ORVEL_WIDGET_BARS);

    /// The same for a widget of every kind, when the function takes one.
    std::string difference_of_any_kind(const HostFunction& function,
                                       const HostArguments& arguments);

    /// What the last of these calls returned and printed, and the texts that its widget held.
    int status = 0;
    orvel_color color = {};
    std::string messages, kept_text, kept_icon;

    std::vector<double> data = {0.2, 0.9, 0.5, 1.0};
    bool widgets_show_nothing = false;  // else what they show goes into the checksum

    /// Holds the checksum of all canvases so far for which there is no model to a section of
    /// extreme_checksums.txt; nothing when there were none.
    void expect_checksum(const std::string& section) const;

private:
    std::uint64_t sum_ = 0;

    WidgetPtr make(int kind, Stage& stage) const;

    const TempFolder folder_;
    const std::string old_folder_;
    orvel_theme theme_ = distinct_theme();
};

bool takes_a_widget(const HostFunction& function);

}  // namespace orvel_test
