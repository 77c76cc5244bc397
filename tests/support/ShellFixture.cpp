#include "support/ShellFixture.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "model/ObjectList.h"
#include "model/Plane.h"
#include "model/Prefs.h"
#include "output/Progress.h"
#include "preview/Flying.h"
#include "preview/Imaging.h"
#include "preview/Rendering.h"
#include "shell/Helper.h"
#include "shell/Ports.h"
#include "shell/Preferences.h"
#include "shell/Startup.h"

namespace velna::test {

void ShellFixture::SetUp() {
    // Some tests start over: the folder of the former start goes.
    std::error_code ignored;
    if (!folder.empty()) std::filesystem::remove_all(folder, ignored);
    std::string name = std::filesystem::temp_directory_path() / "velna-shell-XXXXXX";
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    folder = name;
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
    progress = nullptr;
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
