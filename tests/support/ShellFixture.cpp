#include "support/ShellFixture.h"

#include <fstream>
#include <iterator>

#include "model/ObjectList.h"
#include "model/Plane.h"
#include "model/Prefs.h"
#include "preview/Flying.h"
#include "preview/Imaging.h"
#include "preview/Rendering.h"
#include "shell/Helper.h"
#include "shell/Ports.h"
#include "shell/Preferences.h"
#include "shell/Startup.h"

namespace velna::test {

void ShellFixture::SetUp() {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    folder = std::filesystem::temp_directory_path() /
             ("velna-shell-" + std::string(test->test_suite_name()) + "-" + test->name());
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder / "program");
    desktop.program = (folder / "program").string() + "/";
    desktop.configuration = (folder / "config").string() + "/";
    Shell = {&desktop, &dialogs};
    Main.DrawArea = &drawArea;
    Main.DrawSectionArea = &sectionArea;
    Main.window = &window;
    Main.reset();
    Prefs = {};
    Preferences::firstUseState.clear();
    Helper::reset();
    GlTape::clear();
    GlTape::hasContext = false;
    Rendering::context = &context;
    Rendering::reset();
    imaging = &pictures;
    Flying::joystick = &stick;
    Flying::flying = false;
    ObjectList.clear();
    Plane::setDefaultPlane();
}

void ShellFixture::TearDown() {
    std::error_code ignored;
    std::filesystem::permissions(desktop.program, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(folder, ignored);
    Main.DrawArea = Main.DrawSectionArea = nullptr;
    Main.window = nullptr;
    Shell = {};
    Rendering::context = nullptr;
    imaging = nullptr;
    Flying::joystick = nullptr;
}

void ShellFixture::start() {
    Startup::initMain();
}

std::string ShellFixture::contentOf(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void ShellFixture::writeFile(const std::string& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
}

}  // namespace velna::test
