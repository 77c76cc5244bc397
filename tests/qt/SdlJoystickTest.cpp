#include <SDL.h>
#include <gtest/gtest.h>

#include "shell/qt/SdlJoystick.h"

namespace velna {
namespace {

// A stick that exists in memory only: it stays attached while the subsystem runs.
class VirtualStick : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_JOYSTICK), 0);
        if (SDL_NumJoysticks() > 0) GTEST_SKIP() << "a real joystick is attached";
        index = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_FLIGHT_STICK, 2, 4, 0);
        ASSERT_GE(index, 0);
        joystick.open();
        device = SDL_JoystickFromInstanceID(SDL_JoystickGetDeviceInstanceID(index));
        ASSERT_NE(device, nullptr);
    }
    void TearDown() override {
        joystick.close();
        if (index >= 0) SDL_JoystickDetachVirtual(index);
        SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
    }

    int index = -1;
    SDL_Joystick* device = nullptr;
    SdlJoystick joystick;
    JoystickReading reading;
};

TEST_F(VirtualStick, AxesGoFromZeroTo65535) {
    SDL_JoystickSetVirtualAxis(device, 0, -32768);
    SDL_JoystickSetVirtualAxis(device, 1, 32767);
    ASSERT_TRUE(joystick.read(reading));
    EXPECT_EQ(reading.x, 0);
    EXPECT_EQ(reading.y, 65535);
    SDL_JoystickSetVirtualAxis(device, 0, 0);
    ASSERT_TRUE(joystick.read(reading));
    EXPECT_EQ(reading.x, 32768);
}

TEST_F(VirtualStick, ButtonsMakeAMask) {
    SDL_JoystickSetVirtualButton(device, 2, 1);
    ASSERT_TRUE(joystick.read(reading));
    EXPECT_EQ(reading.buttons, 4U);
}

TEST_F(VirtualStick, AStickPulledOutLeavesTheReadingAlone) {
    SDL_JoystickSetVirtualAxis(device, 0, 100);
    ASSERT_TRUE(joystick.read(reading));
    const std::int32_t before = reading.x;
    SDL_JoystickDetachVirtual(index);
    index = -1;
    EXPECT_FALSE(joystick.read(reading));
    EXPECT_EQ(reading.x, before);
}

TEST(SdlJoystick, WithoutAnOpenDeviceNothingIsRead) {
    SdlJoystick joystick;
    JoystickReading reading;
    reading.x = 7;
    EXPECT_FALSE(joystick.read(reading));
    EXPECT_EQ(reading.x, 7);
    joystick.close();
}

}  // namespace
}  // namespace velna
