// What the kernel's devices report, as examples/framebuffer.c takes it. A pipe stands for a device.
#include "framebuffer_input.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/input.h>
#include <unistd.h>

#include <string>

namespace {

constexpr char kScene[] = R"({"orvel": 1, "size": [100, 40], "root": {"row": [
    {"button": "A", "id": "a", "width": 50}, {"button": "B", "id": "b", "width": 50}]}})";

class FramebufferInput : public testing::Test {
protected:
    FramebufferInput()
        : screen(kit_screen_read(kScene, sizeof kScene - 1, "", nullptr, nullptr, nullptr, 0)) {
        EXPECT_EQ(pipe2(ends, O_NONBLOCK | O_CLOEXEC), 0);
        in.tty = -1;
        in.w = 100;
        in.h = 40;
        in.x = 10;
        in.y = 20;
        in.count = 1;
        in.devices[0].fd = ends[0];
    }
    ~FramebufferInput() override {
        input_close(&in);
        close(ends[1]);
        kit_screen_close(screen);
    }

    void report(int type, int code, int value) {
        input_event event = {};
        event.type = static_cast<decltype(event.type)>(type);
        event.code = static_cast<decltype(event.code)>(code);
        event.value = value;
        ASSERT_EQ(write(ends[1], &event, sizeof event), ssize_t{sizeof event});
    }
    void end() {
        report(EV_SYN, SYN_REPORT, 0);
        input_take(&in, screen, 0);
    }
    /// The ids of the buttons that were pressed.
    std::string pressed() {
        std::string ids;
        kit_change change = {};
        while (kit_screen_next(screen, &change) == 1) ids += change.id;
        return ids;
    }

    int ends[2] = {-1, -1};
    kit_screen* screen;
    input in = {};
};

TEST_F(FramebufferInput, AButtonIsPressedWhereItsReportEnds) {
    report(EV_KEY, BTN_LEFT, 1);
    report(EV_REL, REL_X, 60);
    end();
    report(EV_KEY, BTN_LEFT, 0);
    end();
    EXPECT_EQ(pressed(), "b");
}

TEST_F(FramebufferInput, TwoButtonsOfOneReportAreTwo) {
    report(EV_KEY, BTN_LEFT, 1);
    report(EV_KEY, BTN_RIGHT, 1);
    end();
    report(EV_KEY, BTN_LEFT, 0);
    report(EV_KEY, BTN_RIGHT, 0);
    end();
    EXPECT_EQ(pressed(), "a");
}

TEST_F(FramebufferInput, AFingerThatLetsGoPressesAndIsNowhere) {
    report(EV_KEY, BTN_TOUCH, 1);
    end();
    EXPECT_NE(std::string(kit_screen_describe(screen)).find("hover"), std::string::npos);
    report(EV_KEY, BTN_TOUCH, 0);
    end();
    EXPECT_EQ(pressed(), "a");
    EXPECT_EQ(std::string(kit_screen_describe(screen)).find("hover"), std::string::npos);
}

TEST_F(FramebufferInput, AMoveAlongBothAxesIsOne) {
    report(EV_REL, REL_X, 60);
    report(EV_REL, REL_Y, 10);
    end();
    EXPECT_NE(std::string(kit_screen_describe(screen)).find("button \"B\" hover"),
              std::string::npos);
}

}  // namespace
