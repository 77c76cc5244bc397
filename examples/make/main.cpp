// Makes the example aircraft of examples/ from their numbers, saved by the program's own writer.
// Use: velna_examples FOLDER, where the pictures and airfoils already lie.

#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/Plane.h"
#include "persistence/AirfoilFiles.h"
#include "persistence/ProjectFile.h"
#include "preview/PictureCopies.h"

namespace {

using namespace velna;

/// A section, nose to tail: height, width, pos, elevation, upper and lower exponent, bias.
using Section = std::array<double, 7>;

void shapeFuselage(MeshSections& fuselage, const std::vector<Section>& sections,
                   short outlinePoints) {
    fuselage.nb_sections = static_cast<short>(sections.size());
    fuselage.nb_cross = outlinePoints;
    fuselage.uniqueCurvature = false;
    fuselage.linkedCurvatures = false;
    fuselage.initArrays();
    for (int i = 1; i <= fuselage.nb_sections; ++i) {
        const Section& section = sections[static_cast<std::size_t>(i - 1)];
        fuselage.sectionOrder(i) = static_cast<short>(i);
        fuselage.height(i) = section[0];
        fuselage.width(i) = section[1];
        fuselage.pos(i) = section[2];
        fuselage.elevation(i) = section[3];
        fuselage.curvature(i) = section[4];
        fuselage.curvature2(i) = section[5];
        fuselage.bias_curve(i) = section[6];
    }
}

/// A wing or tail panel without its airfoil: lengths in the project's unit.
struct Panel {
    double pos1, pos2, span, length1, length2, elevation1, elevation2, shift;
};

void shapePanel(SymWingSections& wing, const Panel& panel) {
    wing.pos1 = panel.pos1;
    wing.pos2 = panel.pos2;
    wing.span = panel.span;
    wing.length1 = panel.length1;
    wing.length2 = panel.length2;
    wing.elevation1 = panel.elevation1;
    wing.elevation2 = panel.elevation2;
    wing.shift = panel.shift;
}

/// The panels of a whole wing, each with the airfoil of `file` at `thickness`.
void shapeWings(Project& project, const std::vector<Panel>& panels, const std::string& file,
                double thickness, const Point3D& color) {
    for (std::size_t i = 0; i < panels.size(); ++i) {
        if (i > 0) {
            ++project.nbWings;
            MainWing::addWing(project);
        }
        project.currentWing = project.nbWings;
        Plane::loadAirfoil(project, file);
        SymWingSections& wing = project.Wings(project.nbWings);
        shapePanel(wing, panels[i]);
        wing.thickness1 = wing.thickness2 = thickness;
        wing.set_color(color);
    }
    project.currentWing = 1;
}

struct Box {
    int kind;
    int catalogueRow;
    double pos, elevation, shift;
    int orientation;
};

void placeBoxes(Project& project, const std::vector<Box>& boxes) {
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (i > 0) Equipment::resizeEquipments(project, ++project.nbEquipments);
        project.currentEquipment = project.nbEquipments;
        ElectroBox& box = Equipment::current(project);
        box.box = boxes[i].kind;
        Equipment::applyCatalogueRow(project, boxes[i].catalogueRow);
        box.pos = boxes[i].pos;
        box.elevation = boxes[i].elevation;
        box.shift = boxes[i].shift;
        box.orientation = boxes[i].orientation;
    }
    project.currentEquipment = 1;
}

template <class Object>
void givePicture(Object& object, const std::string& folder, const std::string& title) {
    object.texture_filename = folder + title;
    object.qualified_texture_filename = title;
}

void givePicture(SymWingSections& wing, const std::string& folder, const std::string& title) {
    wing.set_texture_filename(folder + title);
    wing.qualified_texture_filename = title;
}

Project start(int unit) {
    Project project;
    project.units = unit;
    Plane::setDefaultPlane(project);
    project.ObjectList.update(project.Fuselages, project.nbFuselages);
    return project;
}

/// A high-wing trainer of 1.5 m: a straight middle panel, a tapered one, and a tip with dihedral.
Project trainer(const std::string& folder) {
    Project project = start(millimetres);
    shapeWings(project,
               {{190, 0, 330, 240, 240, 112, 12, 0},
                {190, 6, 300, 240, 215, 124, 22, 330},
                {196, 22, 120, 215, 160, 146, 14, 630}},
               folder + "airfoils/naca2412.xy", 0.12, {245, 245, 240});
    shapePanel(project.Stabilizer, {770, 28, 260, 165, 125, 42, 0, 0});
    project.Stabilizer.thickness1 = project.Stabilizer.thickness2 = 0.08;
    project.Stabilizer.set_color({245, 245, 240});
    project.Rudder.pos1 = 765;
    project.Rudder.pos2 = 62;
    project.Rudder.span = 190;
    project.Rudder.length1 = 180;
    project.Rudder.length2 = 105;
    project.Rudder.shift = 46;
    project.Rudder.set_color({230, 60, 40});
    shapeFuselage(project.Fuselages(1),
                  {{44, 44, 0, 32, 1, 1, 0.5},
                   {78, 72, 35, 8, 0.7, 0.7, 0.5},
                   {104, 84, 150, -2, 0.45, 0.4, 0.5},
                   {122, 86, 210, -4, 0.45, 0.4, 0.55},
                   {118, 84, 400, -2, 0.45, 0.4, 0.55},
                   {74, 60, 620, 14, 0.5, 0.5, 0.5},
                   {28, 22, 940, 34, 0.6, 0.6, 0.5}},
                  24);
    project.Fuselages(1).set_color({230, 60, 40});
    placeBoxes(project, {{BoxKind::servo, 7, 330, 30, 18, 0},
                         {BoxKind::servo, 7, 330, 30, -18, 0},
                         {BoxKind::receiver, 6, 240, 20, 0, 0},
                         {BoxKind::accumulator, 1, 70, 16, 0, 0}});
    for (int i = 1; i <= project.nbWings; ++i)
        givePicture(project.Wings(i), folder, "trainer_wing.bmp");
    givePicture(project.Fuselages(1), folder, "trainer_body.bmp");
    givePicture(project.Rudder, folder, "trainer_fin.bmp");
    return project;
}

/// A glider of 2.6 m with a slim body and a T-tail's height.
Project glider(const std::string& folder) {
    Project project = start(millimetres);
    shapeWings(project,
               {{330, 4, 620, 215, 195, 46, 28, 0},
                {334, 14, 430, 195, 150, 74, 52, 620},
                {348, 42, 240, 150, 80, 126, 62, 1050}},
               folder + "airfoils/naca4412.xy", 0.09, {250, 250, 250});
    shapePanel(project.Stabilizer, {1120, 22, 270, 105, 72, 178, 0, 0});
    project.Stabilizer.thickness1 = project.Stabilizer.thickness2 = 0.08;
    project.Stabilizer.set_color({250, 250, 250});
    project.Rudder.pos1 = 1090;
    project.Rudder.pos2 = 30;
    project.Rudder.span = 168;
    project.Rudder.length1 = 155;
    project.Rudder.length2 = 105;
    project.Rudder.shift = 12;
    project.Rudder.set_color({250, 250, 250});
    shapeFuselage(project.Fuselages(1),
                  {{2, 2, 0, 14, 1, 1, 0.5},
                   {34, 32, 45, -2, 1, 1, 0.5},
                   {66, 56, 150, -18, 1, 1, 0.55},
                   {78, 62, 280, -22, 1, 1, 0.6},
                   {74, 58, 400, -18, 1, 1, 0.6},
                   {42, 34, 600, 0, 1, 1, 0.55},
                   {26, 22, 850, 8, 1, 1, 0.5},
                   {16, 14, 1240, 14, 1, 1, 0.5}},
                  32);
    project.Fuselages(1).set_color({40, 90, 200});
    placeBoxes(project, {{BoxKind::servo, 1, 250, -6, 12, 0},
                         {BoxKind::servo, 1, 250, -6, -12, 0},
                         {BoxKind::receiver, 4, 190, -8, 0, 1},
                         {BoxKind::accumulator, 0, 60, -2, 0, 0}});
    return project;
}

/// The cabin above the hulls.
void shapePod(MeshSections& pod) {
    shapeFuselage(pod,
                  {{10, 10, 0, 30, 1, 1, 0.5},
                   {64, 60, 60, 4, 1, 1, 0.5},
                   {72, 66, 170, 0, 1, 1, 0.5},
                   {16, 14, 330, 26, 1, 1, 0.5}},
                  16);
    pod.pos_offset = 230;
    pod.elevation_offset = 130;
    pod.transparent = true;
    pod.set_color({120, 170, 220});
}

/// A flying boat on two hulls: one fuselage to the side, whose twin stands mirrored, and twin fins.
Project twinHull(const std::string& folder) {
    Project project = start(millimetres);
    shapeWings(project,
               {{250, 0, 260, 230, 230, 120, 0, 0}, {250, 24, 480, 230, 140, 120, 46, 260}},
               folder + "airfoils/naca2412.xy", 0.13, {255, 200, 60});
    shapePanel(project.Stabilizer, {870, 0, 210, 130, 130, 150, 0, 0});
    project.Stabilizer.thickness1 = project.Stabilizer.thickness2 = 0.08;
    project.Stabilizer.set_color({255, 200, 60});
    project.Rudder.pos1 = 830;
    project.Rudder.pos2 = 45;
    project.Rudder.span = 150;
    project.Rudder.length1 = 170;
    project.Rudder.length2 = 110;
    project.Rudder.shift = 60;
    project.Rudder.offset1 = 200;
    project.Rudder.set_color({255, 255, 255});
    MeshSections& hull = project.Fuselages(1);
    shapeFuselage(hull,
                  {{10, 10, 0, 60, 1, 1.6, 0.4},
                   {66, 62, 70, 18, 0.8, 1.4, 0.4},
                   {104, 84, 220, 0, 0.6, 1.3, 0.4},
                   {118, 88, 400, -4, 0.6, 1.3, 0.4},
                   {96, 78, 420, 16, 0.6, 1.3, 0.4},
                   {60, 48, 700, 40, 0.8, 1.2, 0.45},
                   {22, 16, 990, 62, 1, 1, 0.5}},
                  20);
    hull.shift = 200;
    hull.set_color({255, 255, 255});
    ++project.nbFuselages;
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage();
    shapePod(project.Fuselages(2));
    ObjectList.update();
    placeBoxes(project, {{BoxKind::servo, 4, 420, 40, 200, 0},
                         {BoxKind::receiver, 1, 300, 40, 200, 0},
                         {BoxKind::accumulator, 1, 290, 150, 0, 0}});
    return project;
}

/// A sport model in inches with its electronics in place.
Project sportInches(const std::string& folder) {
    Project project = start(inches);
    shapeWings(project, {{8.5, 1.1, 23.5, 10.5, 7.25, 1.1, 0.9, 0}},
               folder + "airfoils/naca0012.xy", 0.15, {230, 230, 230});
    shapePanel(project.Stabilizer, {33, 1.4, 9.5, 5.75, 4, 2.4, 0, 0});
    project.Stabilizer.set_color({230, 230, 230});
    project.Rudder.pos1 = 32.5;
    project.Rudder.pos2 = 2.4;
    project.Rudder.span = 7.5;
    project.Rudder.length1 = 7;
    project.Rudder.length2 = 4;
    project.Rudder.shift = 2.75;
    project.Rudder.set_color({30, 140, 70});
    shapeFuselage(project.Fuselages(1),
                  {{2.6, 2.6, 0, 1.1, 1, 1, 0.5},
                   {3.9, 3.6, 2, 0.4, 0.7, 0.6, 0.5},
                   {4.6, 3.9, 8, 0, 0.6, 0.5, 0.5},
                   {6.4, 3.9, 13, 0, 0.9, 0.5, 0.65},
                   {5, 3.6, 19, 0.2, 0.8, 0.5, 0.6},
                   {2.9, 2.2, 30, 1.2, 0.8, 0.6, 0.5},
                   {1.2, 0.8, 39.5, 2.1, 0.9, 0.9, 0.5}},
                  24);
    project.Fuselages(1).set_color({30, 140, 70});
    placeBoxes(project, {{BoxKind::servo, 4, 14.5, 0.9, 0.9, 0},
                         {BoxKind::servo, 4, 14.5, 0.9, -0.9, 0},
                         {BoxKind::servo, 1, 4, 1.6, 0, 1},
                         {BoxKind::receiver, 3, 10.5, 0.7, 0, 0},
                         {BoxKind::accumulator, 2, 2.6, 1.2, 0, 0}});
    return project;
}

/// The pictures lie in the folder already: nothing is decoded here.
bool save(Project project, const std::string& file) {
    PictureStore pictures;
    const Outcome saved = Plane::saveProject(project, file, pictures);
    if (!saved.isDone()) std::fprintf(stderr, "%s: %s\n", file.c_str(), saved.reason().c_str());
    return saved.isDone();
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "use: velna_examples FOLDER\n");
        return 2;
    }
    std::string folder = arguments[1];
    if (!folder.ends_with('/')) folder += '/';
    struct Example {
        const char* title;
        Project (*shape)(const std::string& folder);
    };
    constexpr Example examples[] = {{"trainer.vln", trainer},
                                    {"glider.vln", glider},
                                    {"twin_hull.vln", twinHull},
                                    {"sport_inches.vln", sportInches}};
    bool saved = true;
    for (const Example& example : examples)
        saved = save(example.shape(folder), folder + example.title) && saved;

    return saved ? 0 : 1;
}
