#pragma once

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "support/FakeDesktop.h"
#include "support/FakeImaging.h"
#include "support/FakeJoystick.h"
#include "support/FakeRenderContext.h"
#include "support/ProgramInHand.h"
#include "support/RecordingSurface.h"
#include "support/RecordingWindow.h"
#include "support/ScriptedDialogs.h"

namespace velna::test {

/// The program without a window: every port is a recorder, the folders are the test's own.
class ShellFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Another program on the same ports and folders; the former one is gone as after a crash.
    void renewConnected();

    /// Brings the program up as `program.startup.initMain` does.
    void start();

    /// A file in the program's folder, and its whole content.
    std::string programFile(const std::string& title) const { return desktop.program + title; }
    static std::string contentOf(const std::string& file);
    static void writeFile(const std::string& file, const std::string& content);

    std::filesystem::path folder;
    RecordingSurface drawArea{900, 500};
    RecordingSurface sectionArea{150, 150};
    RecordingWindow window;
    ScriptedDialogs dialogs;
    FakeDesktop desktop;
    FakeRenderContext context;
    FakeImaging pictures;
    FakeJoystick stick;
};

}  // namespace velna::test
