#include "support/ShellFixture.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "support/GlTape.h"

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
    desktop.state = (folder / "state").string() + "/";
    renewConnected();
}

void ShellFixture::renewConnected() {
    GlTape::clear();
    GlTape::hasContext = false;
    renewProgram();
    program.shell = {&desktop, &dialogs};
    program.rendering.context = &context;
    program.rendering.imaging = &pictures;
    program.pictures.imaging = &pictures;
    program.flying.joystick = &stick;
    Main.DrawArea = &drawArea;
    Main.DrawSectionArea = &sectionArea;
    Main.window = &window;
    Plane::setDefaultPlane(project);
}

void ShellFixture::TearDown() {
    std::error_code ignored;
    std::filesystem::permissions(desktop.program, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(folder, ignored);
    renewProgram();
}

void ShellFixture::start() {
    program.startup.initMain();
}

std::string ShellFixture::contentOf(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void ShellFixture::writeFile(const std::string& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
}

}  // namespace velna::test
