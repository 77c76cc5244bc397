#include "output/OutputTest.h"

#include <fstream>
#include <utility>

#include "common/ReplacedFile.h"
#include "preview/Bitmap.h"
#include "support/ModelJson.h"

namespace velna::test {

namespace {

const std::string dataFolder = std::string(VELNA_TEST_DATA) + "/";

/// The pictures' sizes in the textured aircraft.
std::pair<int, int> sizeOfPicture(const std::string& title) {
    if (title == "tex_wing2.bmp") return {32, 256};
    if (title == "tex_stab.BMP") return {64, 32};
    if (title == "tex_fus.bmp") return {100, 50};
    if (title == "tex_fin.bmp") return {64, 128};
    return {128, 64};
}

/// What the 3D picture does once for a wing's picture, which it turns.
void takeIn(const SymWingSections& wing, PanelSolid& solid) {
    if (wing.texture_filename().empty()) return;
    const auto [width, height] = sizeOfPicture(wing.qualified_texture_filename);
    for (WingSection* half : {&solid.Left, &solid.Right}) {
        half->picture.xtex = Bitmap::roundedSize(height);
        half->picture.ytex = Bitmap::roundedSize(width);
        half->picture.texture_loaded = true;
        half->create_texcoords();
    }
}

void replaceFolder(nlohmann::json& value) {
    if (value.is_structured())
        for (auto& entry : value) replaceFolder(entry);
    if (!value.is_string()) return;
    auto text = value.get<std::string>();
    const auto at = text.find("{DIR}");
    if (at != std::string::npos) value = text.replace(at, 5, dataFolder);
}

}  // namespace

bool NamedPictures::load(const std::string& file, std::string& reason) {
    loaded.push_back(file);
    title_ = titleOf(file);
    if (title_.starts_with("unreadable")) {
        reason = "no picture";
        return false;
    }
    std::tie(width_, height_) = sizeOfPicture(title_);
    turns_ = 0;
    return true;
}

void NamedPictures::rotateQuarter() {
    std::swap(width_, height_);
    ++turns_;
}

void NamedPictures::resize(int width, int height) {
    width_ = width;
    height_ = height;
}

bool NamedPictures::encode(PictureFormat format, std::string& bytes, std::string& reason) {
    reason = "no form for it";
    bytes = title_ + " " + std::to_string(width_) + " x " + std::to_string(height_) +
            (turns_ == 1 ? " turned" : "") + (format == PictureFormat::Jpeg ? " jpeg" : " bmp");
    return encodes;
}

bool ScriptedProgress::step(long long done, long long total) {
    lastDone = done;
    lastTotal = total;
    return ++questions != cancelAt;
}

OutputTest::OutputTest() {
    resetModel();
    solids.createAll(project);
}

void OutputTest::load(const std::string& name) {
    std::ifstream file(dataFolder + "solids/" + name + ".json");
    auto model = nlohmann::json::parse(file)["model"];
    replaceFolder(model);
    applyModel(model);
    solids.createAll(project);
    for (int i = 1; i <= nbWings; ++i) takeIn(Wings(i), solids.wings(i));
    takeIn(Stabilizer, solids.stabilizer);
    if (Rudder.texture_filename.empty()) return;
    SolidPicture& picture = solids.rudder.picture;
    std::tie(picture.xtex, picture.ytex) = sizeOfPicture(Rudder.qualified_texture_filename);
    picture.texture_loaded = true;
}

Outcome OutputTest::exportWhole(const std::string& file) {
    for (int i = 1; i <= nbFuselages; ++i) ObjectList.setShown(i, true);
    solids.createAll(project);
    return Plane::exportVRML(project, solids, file, store, progress);
}

Outcome OutputTest::printJob(PlanJob job, PrinterSurface& printer, SurfaceSize area) {
    PrintSelectRecord only;
    only.overlap = PrintSelect.overlap;
    only.Side = job == PlanJob::Side;
    only.htop = job == PlanJob::htop;
    only.frontSections = job == PlanJob::frontSections;
    only.vtop = job == PlanJob::vtop;
    only.front = job == PlanJob::front;
    only.wing = job == PlanJob::wing;
    only.ribs = job == PlanJob::ribs;
    only.wishes = PrintSelect.wishes;
    return Plans::printPlans(project, only, {printer, area, progress});
}

Outcome OutputTest::printPlans(PrinterSurface& printer) {
    return Plans::printPlans(project, PrintSelect, {printer, {}, progress});
}

std::string expectedExport(const std::string& name) {
    return bytesOf(dataFolder + "exports/" + name);
}

}  // namespace velna::test
