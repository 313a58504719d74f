// The list of kinds, held to the header's enumeration.
#include "widgets/kinds.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "support/files.h"
#include "support/picture.h"
#include "widgets/widget.h"

namespace {

using namespace orvel_test;

/// The enumerators of orvel_widget_kind in order, as their constructors are called, with their
/// codes.
std::vector<std::pair<std::string, int>> enumerated() {
    std::vector<std::pair<std::string, int>> all;
    std::istringstream header(read_file(ORVEL_SOURCE_DIR "/include/orvel.h"));
    for (std::string line; std::getline(header, line);) {
        char name[64] = "";
        int code = -1;
        if (std::sscanf(line.c_str(), "    ORVEL_WIDGET_%63[A-Z_] = %d", name, &code) != 2)
            continue;
        for (char& c : name) c = static_cast<char>(std::tolower(c));
        all.emplace_back(std::string("orvel_widget_") + name, code);
    }
    return all;
}

TEST(WidgetKindsTest, EveryKindOfTheHeaderHasARowOfItsOwn) {
    const auto kinds = enumerated();
    ASSERT_FALSE(kinds.empty());
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const auto& [name, code] = kinds[i];
        EXPECT_EQ(code, static_cast<int>(i)) << name << ": the codes count up";
        ASSERT_LT(i, widget_kinds().size()) << name << " has no row in tests/widgets/kinds.cpp";
        EXPECT_EQ(widget_kinds()[i].constructor.name, name) << "the row of code " << code;
    }
    EXPECT_EQ(widget_kinds().size(), kinds.size());
}

TEST(WidgetKindsTest, EveryRowMakesItsKindAndHasEdges) {
    const auto canvas = make_canvas(8, 8);
    orvel_theme theme;
    orvel_theme_default(&theme);
    int code = 0;
    for (const WidgetKind& kind : widget_kinds()) {
        const WidgetPtr widget(
            make_widget(kind, {"", 0, 0, kind.constructor.usual}, canvas.get(), &theme));
        ASSERT_TRUE(widget) << kind.title;
        EXPECT_EQ(widget->kind, code++) << kind.title;
        EXPECT_FALSE(kind.edges.empty()) << kind.title << " has no state with a golden picture";
    }
}

}  // namespace
