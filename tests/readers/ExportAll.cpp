// Exports projects as the program does, without a window: the model, the drawings of the four
// views, and the solids to print; and in its folder "cut" the plans for machines that cut.
//   velna_export_all FOLDER PROJECT...

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "common/ReplacedFile.h"
#include "model/Plane.h"
#include "model/Solids.h"
#include "output/CutFiles.h"
#include "output/Exports.h"
#include "output/SolidExport.h"
#include "persistence/ProjectFile.h"
#include "preview/Bitmap.h"
#include "preview/PictureCopies.h"

namespace velna {
namespace {

/// Sizes of BMP pictures; a picture encoded is the old one, which no reader
/// decodes here: what is read is the model.
class BmpSizes : public Imaging {
public:
    bool load(const std::string& file, std::string& reason) override {
        std::ifstream stream(file, std::ios::binary);
        std::array<char, 26> head{};
        if (!stream.read(head.data(), head.size()) || head[0] != 'B' || head[1] != 'M') {
            reason = "no BMP picture";
            return false;
        }
        width_ = number(head, 18);
        height_ = number(head, 22);
        file_ = file;
        return true;
    }
    int width() const override { return width_; }
    int height() const override { return height_; }
    void rotateQuarter() override { std::swap(width_, height_); }
    void resize(int width, int height) override {
        width_ = width;
        height_ = height;
    }
    PictureBytes pixels() override { return {}; }
    bool encode(PictureFormat, std::string& bytes, std::string&) override {
        std::ifstream stream(file_, std::ios::binary);
        bytes = {std::istreambuf_iterator<char>(stream), {}};
        return true;
    }
    void showProgress(int) override {}
    void hideProgress() override {}
    void showError(const std::string& text) override { std::cerr << text << '\n'; }

private:
    static int number(const std::array<char, 26>& head, std::size_t at) {
        std::uint32_t value = 0;
        for (std::size_t n = 4; n-- > 0;)
            value = value << 8 | static_cast<unsigned char>(head[at + n]);
        return static_cast<int>(value);
    }

    std::string file_;
    int width_ = 0;
    int height_ = 0;
};

/// What the picture in three dimensions does once: it measures the pictures and so gives the bodies
/// their texture places. A wing's picture is turned.
void takeIn(Imaging& imaging, const SymWingSections& wing, PanelSolid& solid) {
    std::string reason;
    if (wing.texture_filename().empty() || !imaging.load(wing.texture_filename(), reason)) return;
    imaging.rotateQuarter();
    for (WingSection* half : {&solid.Left, &solid.Right}) {
        half->picture.xtex = Bitmap::roundedSize(imaging.width());
        half->picture.ytex = Bitmap::roundedSize(imaging.height());
        half->picture.texture_loaded = true;
        half->create_texcoords();
    }
}

void takeInPictures(Imaging& imaging, const Project& project, Solids& solids) {
    for (int i = 1; i <= project.nbWings; ++i) takeIn(imaging, project.Wings(i), solids.wings(i));
    takeIn(imaging, project.Stabilizer, solids.stabilizer);
    std::string reason;
    const std::string& fin = project.Rudder.texture_filename;
    if (fin.empty() || !imaging.load(fin, reason)) return;
    SolidPicture& picture = solids.rudder.picture;
    picture.xtex = Bitmap::roundedSize(imaging.width());
    picture.ytex = Bitmap::roundedSize(imaging.height());
    picture.texture_loaded = true;
}

/// The plans for machines that cut, both kinds of file of each, with skin and a slot.
std::string saveCutPlans(const Project& project, const std::string& stem) {
    RibWishes wishes;
    wishes.skin = 1.5;
    wishes.spars = {{30, 5, 3, SlotSide::top}};
    std::vector<std::string> words;
    for (const auto& [plan, name] : {std::pair{CutPlan::wing, ".wing"},
                                     {CutPlan::ribs, ".ribs"},
                                     {CutPlan::sections, ".sections"}})
        for (const auto& [format, ending] :
             {std::pair{CutFormat::dxf, ".dxf"}, {CutFormat::svg, ".svg"}}) {
            const Outcome outcome =
                saveCutPlan(project, plan, format, wishes, stem + name + ending, words);
            if (!outcome.isDone()) return outcome.reason();
        }
    return {};
}

/// The drawings come first: the model's export makes the last fuselage current.
bool exportProject(const std::string& file, const std::string& folder, PictureStore& pictures) {
    Project project;
    Solids solids;
    Plane::setDefaultPlane(project);
    const Outcome read = Plane::readProject(project, file);
    project.ObjectList.update(project.Fuselages, project.nbFuselages);
    for (int i = 1; i <= project.nbFuselages; ++i) project.ObjectList.setShown(i, true);
    solids.createAll(project);
    takeInPictures(*pictures.imaging, project, solids);
    const std::string title = titleOf(file);
    const std::string stem = folder + title.substr(0, title.rfind('.'));
    std::string failure = read.reason();
    if (failure.empty())
        failure = saveCutPlans(project, folder + "cut/" + title.substr(0, title.rfind('.')));
    for (const Outcome& outcome : {Plane::exportDXFVTop(project, stem + ".VTop.dxf"),
                                   Plane::exportDXFFront(project, stem + ".Front.dxf"),
                                   Plane::exportDXFSide(project, stem + ".Side.dxf"),
                                   Plane::exportDXFHTop(project, stem + ".HTop.dxf"),
                                   Plane::exportVRML(project, solids, stem + ".wrl", pictures)})
        if (failure.empty()) failure = outcome.reason();
    for (const char* kind : {".stl", ".3mf", ".obj", ".glb"}) {
        const Outcome outcome =
            Plane::exportSolids(project, *solidFormatOf(kind), {}, stem + kind, pictures);
        if (failure.empty()) failure = outcome.reason();
    }
    if (!failure.empty()) std::cerr << file << ": " << failure << '\n';
    return failure.empty();
}

}  // namespace
}  // namespace velna

int main(int count, char** arguments) {
    if (count < 3) return 2;
    velna::BmpSizes pictures;
    velna::PictureStore store{&pictures, {}};
    bool done = true;
    for (int i = 2; i < count; ++i)
        done = velna::exportProject(arguments[i], std::string(arguments[1]) + "/", store) && done;
    return done ? 0 : 1;
}
