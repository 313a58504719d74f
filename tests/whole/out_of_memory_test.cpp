// What happens when memory runs out.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <new>
#include <string>

#include "core/state.h"
#include "support/files.h"
#include "support/picture.h"
#include "system/allocations.h"

namespace {

using namespace orvel_test;

enum class Outcome { kReturned, kThrew };

/// Calls @p call while the allocation with the number @p failing, counted from 1, fails. Nothing of
/// the test framework runs meanwhile.
template <typename Call>
Outcome when_allocation_fails(long failing, Call call) {
    const FailingAllocation failure(failing);
    try {
        call();
    } catch (const std::bad_alloc&) {
        return Outcome::kThrew;
    }
    return Outcome::kReturned;
}

TEST(OutOfMemoryTest, TheLibraryAllocatesThroughThisProgramsOperatorNew) {
    const long live = allocations_live(), made = allocations_made();
    orvel_canvas* const canvas = orvel_canvas_create(10, 10);
    EXPECT_EQ(allocations_made() - made, 2);
    orvel_canvas_destroy(canvas);
    EXPECT_EQ(allocations_live(), live);
}

TEST(OutOfMemoryTest, ACanvasWhoseRecordCannotBeAllocatedIsNull) {
    const long live = allocations_live();
    orvel_canvas* canvas = reinterpret_cast<orvel_canvas*>(&canvas);
    EXPECT_EQ(when_allocation_fails(1, [&canvas] { canvas = orvel_canvas_create(10, 10); }),
              Outcome::kReturned);
    EXPECT_EQ(canvas, nullptr);
    EXPECT_EQ(allocations_live(), live);
}

TEST(OutOfMemoryTest, ACanvasWhosePixelsCannotBeAllocatedRaisesTheFailureAndLeaksNothing) {
    const long live = allocations_live(), made = allocations_made();
    EXPECT_EQ(when_allocation_fails(2, [] { orvel_canvas_create(10, 10); }), Outcome::kThrew);
    EXPECT_EQ(allocations_made() - made, 1);
    EXPECT_EQ(allocations_live(), live);
}

TEST(OutOfMemoryTest, ABadSizeAllocatesNothing) {
    const long made = allocations_made();
    EXPECT_EQ(orvel_canvas_create(0, 10), nullptr);
    EXPECT_EQ(orvel_canvas_create(10, -1), nullptr);
    EXPECT_EQ(allocations_made(), made);
}

TEST(OutOfMemoryTest, ARowBufferThatFailsLeavesTheFileOpenWithItsHeader) {
    const TempFolder folder;
    const auto canvas = make_canvas(2, 2);
    for (const auto save : {orvel_canvas_save_bmp, orvel_canvas_save_bmp_rgba}) {
        const std::string path = folder / "picture.bmp";
        const int descriptor = dup(STDIN_FILENO);  // the number that the file will get
        close(descriptor);
        const long live = allocations_live();
        EXPECT_EQ(when_allocation_fails(1, [&] { save(canvas.get(), path.c_str()); }),
                  Outcome::kThrew);
        EXPECT_EQ(allocations_live(), live);
        const int flags = fcntl(descriptor, F_GETFD);
        ASSERT_GE(flags, 0) << "the file was closed";
        EXPECT_TRUE(flags & FD_CLOEXEC) << "child processes would inherit the file";
        const std::string file = read_file(path);
        ASSERT_EQ(file.size(), 54u);
        EXPECT_EQ(file.substr(0, 2), "BM");
        EXPECT_EQ(file[2], 70);
    }
}

TEST(OutOfMemoryTest, SavingMakesOneAllocationOfTheLibrarys) {
    const TempFolder folder;
    const std::string path = folder / "picture.bmp";
    const auto canvas = make_canvas(20, 20);
    const long live = allocations_live(), made = allocations_made();
    orvel_canvas_save_bmp(canvas.get(), path.c_str());
    EXPECT_EQ(allocations_made() - made, 1);
    orvel_canvas_save_bmp_rgba(canvas.get(), path.c_str());
    EXPECT_EQ(allocations_made() - made, 2);
    EXPECT_EQ(allocations_live(), live);
}

TEST(OutOfMemoryTest, ARootThatCannotBeCopiedLeavesTheOldOneInForce) {
    const std::string before(100, 'a'), after(100, 'b');
    ASSERT_EQ(orvel_set_resource_path(before.c_str()), 0);
    const long live = allocations_live();
    EXPECT_EQ(when_allocation_fails(1, [&after] { orvel_set_resource_path(after.c_str()); }),
              Outcome::kThrew);
    EXPECT_EQ(orvel::state().custom_resource_path, before);
    EXPECT_EQ(allocations_live(), live);
    orvel_set_resource_path("");
}

TEST(OutOfMemoryTest, ResolvingRaisesTheFailureAndLeaksNothing) {
    const std::string root(100, 'r');
    orvel_set_resource_path(root.c_str());
    const std::string folder = "Sounds", name(100, 'n');
    const long live = allocations_live();
    EXPECT_EQ(when_allocation_fails(1, [] { orvel::resource_path(); }), Outcome::kThrew);
    long failing = 1;
    while (when_allocation_fails(failing, [&] { orvel::resolve_resource(folder, name); }) ==
           Outcome::kThrew) {
        EXPECT_EQ(allocations_live(), live) << failing;
        ASSERT_LT(++failing, 100);
    }
    EXPECT_GT(failing, 2);
    EXPECT_EQ(allocations_live(), live);
    orvel_set_resource_path("");
}

TEST(OutOfMemoryTest, NoOtherCallAllocates) {
    const auto canvas = make_canvas(40, 40);
    const long made = allocations_made();
    orvel_canvas* const c = canvas.get();
    orvel_canvas_width(c);
    orvel_canvas_height(c);
    orvel_canvas_clear(c, kBlack);
    orvel_canvas_pixel(c, 1, 1, kInk);
    orvel_canvas_pixel_get(c, 1, 1);
    orvel_canvas_line(c, -9, -3, 50, 60, kInk);
    orvel_canvas_rect(c, 2, 2, 90, 9, kInk);
    orvel_canvas_fill_rect(c, 3, 3, 9, 9, kInk);
    orvel_canvas_circle(c, 20, 20, 15, kInk);
    orvel_canvas_circle(c, 20, 20, 25, kInk);
    orvel_canvas_fill_circle(c, 20, 20, 30, kInk);
    orvel_canvas_fill_triangle(c, 0, 0, 60, 3, 9, 60, kInk);
    orvel_canvas_fill_triangle(c, 0, 0, 600000, 3, 9, 600000, kInk);
    orvel_text_width("Orvel");
    orvel_text_draw(c, "Orvel", 3, 3, kInk);
    orvel_version();
    EXPECT_EQ(allocations_made(), made);
}

}  // namespace
