#include <cstdint>
#include <string>

#include "common/MemoryEnds.h"
#include "common/Progress.h"
#include "common/ReplacedFile.h"
#include "model/MeshSections.h"
#include "model/Solids.h"
#include "output/Exports.h"
#include "output/IO_VRMl.h"
#include "preview/PictureCopies.h"

namespace velna::Plane {

namespace {

using IO_VRMl::Side;
using IO_VRMl::Target;

/// How a body looks: its colour, its picture, and what becomes of the picture.
struct Look {
    Point3D color;
    const std::string& picture;
    const std::string& title;
    bool unturned;  ///< the wings' pictures are turned, so that their long side runs along the span
    bool repeat;
};

template <class Geometry>
void writeNode(Target& target, PictureCopies& pictures, const char* name, const Look& look,
               Geometry writeGeometry) {
    IO_VRMl::writeVrmlNodeName(target, name);
    IO_VRMl::writeVrmlTranslation(target, IO_VRMl::zeroTranslation);
    writeGeometry();
    const std::string url = pictures.convertJPG(look.picture, look.title, look.unturned);
    IO_VRMl::writeVrmlAppearance(target, look.color, url, look.repeat);
    IO_VRMl::writeVrmlNodeEnd(target);
}

/// The entries of a list with their solids. Of promised entries the first that has been built
/// stands for all.
template <class Object, class Solid>
class WithSolids {
public:
    template <class Wanted>
    WithSolids(const OwnedList<Object>& list, const NumberedList<Solid>& solids, int n,
               Wanted wanted)
        : list_(list), solids_(solids) {
        list.forEachDistinct(n, wanted, [&](int i, const Object&) {
            if (list.promised(i)) shared_ = i;
        });
    }
    const Object& entry(int i) const { return list_(i); }
    const Solid& solid(int i) const {
        return solids_(list_.promised(i) && shared_ > 0 ? shared_ : i);
    }

private:
    const OwnedList<Object>& list_;
    const NumberedList<Solid>& solids_;
    int shared_ = 0;
};

bool everyOne(int) {
    return true;
}

/// The two halves' node names.
struct HalfNames {
    const char* left;
    const char* right;
};

void writeWing(Target& target, PictureCopies& pictures, const SymWingSections& wing,
               const PanelSolid& solid, const HalfNames& names) {
    const Look look{wing.color(), wing.texture_filename(), wing.qualified_texture_filename, false,
                    false};
    writeNode(target, pictures, names.left, look,
              [&] { IO_VRMl::writeVrmlWing(target, solid.Left, Side::left); });
    writeNode(target, pictures, names.right, look,
              [&] { IO_VRMl::writeVrmlWing(target, solid.Right, Side::right); });
}

void writeWings(Target& target, PictureCopies& pictures, const Project& project,
                const Solids& solids) {
    const WithSolids wings(project.Wings, solids.wings, project.nbWings, everyOne);
    for (int i = 1; i <= project.nbWings && !target.work.cancelled(); ++i)
        writeWing(target, pictures, wings.entry(i), wings.solid(i), {"WingLeft", "WingRight"});
    writeWing(target, pictures, project.Stabilizer, solids.stabilizer, {"StabLeft", "StabRight"});
}

void writeFuselage(Target& target, PictureCopies& pictures, const MeshSections& fuselage,
                   const BodySolid& solid) {
    const Look look{fuselage.color(), fuselage.texture_filename,
                    fuselage.qualified_texture_filename, true, true};
    for (bool mirrored : {false, true}) {
        if (!mirrored || fuselage.shift != 0) {
            writeNode(target, pictures, "Fuselage", look,
                      [&] { IO_VRMl::writeVrmlFuselage(target, fuselage, solid, mirrored); });
        }
    }
}

/// Each fuselage that is written is the current one.
void writeFuselages(Target& target, PictureCopies& pictures, Project& project,
                    const Solids& solids) {
    const WithSolids fuselages(project.Fuselages, solids.fuselages, project.nbFuselages,
                               [&](int i) { return project.ObjectList.shown(i); });
    for (int i = 1; i <= project.nbFuselages && !target.work.cancelled(); ++i) {
        project.currentFuselage = static_cast<std::int16_t>(i);
        writeFuselage(target, pictures, fuselages.entry(i), fuselages.solid(i));
    }
}

void writeRudder(Target& target, PictureCopies& pictures, const VertWingSection& fin,
                 const FinSolid& solid) {
    const Look look{fin.color(), fin.texture_filename, fin.qualified_texture_filename, true, false};
    for (bool mirrored : {false, true}) {
        if (!mirrored || fin.mirrored()) {
            writeNode(target, pictures, "Rudder", look,
                      [&] { IO_VRMl::writeVrmlRudder(target, solid, mirrored); });
        }
    }
}

void writeBoxes(Target& target, const Project& project, const Solids& solids) {
    const WithSolids boxes(project.Equipments, solids.equipments, project.nbEquipments, everyOne);
    for (int i = 1; i <= project.nbEquipments; ++i) {
        IO_VRMl::writeVrmlNodeName(target, "Equipment");
        IO_VRMl::writeVrmlTranslation(target, boxes.solid(i).centre());
        IO_VRMl::writeVrmlBox(target, boxes.solid(i).solidSize());
        IO_VRMl::writeVrmlAppearance(target, boxes.entry(i).kindColor(), "", false);
        IO_VRMl::writeVrmlNodeEnd(target);
    }
}

/// How large the model is, about.
struct Expected {
    long long points = 0;
    long long lines = 0;
};

Expected expected(const Project& project, const Solids& solids) {
    Expected total;
    for (int i = 1; i <= project.nbFuselages; ++i) {
        const MeshSections& fuselage = project.Fuselages(i);
        const long long points = static_cast<long long>(fuselage.nb_sections) * fuselage.nb_cross *
                                 (fuselage.shift != 0 ? 2 : 1);
        total.points += points;
        total.lines += points * (fuselage.texture_filename.empty() ? 3 : 6);
    }
    const auto addFlat = [&](long long profile) {
        total.points += 4 * profile;
        total.lines += 8 * profile;
    };
    for (int i = 1; i <= project.nbWings; ++i) addFlat(project.Wings(i).pointCount());
    addFlat(project.Stabilizer.pointCount());
    addFlat(solids.rudder.pointCount());
    return total;
}

Outcome write(Project& project, const Solids& solids, const std::string& file, PictureStore& store,
              Progress* watcher, VrmlSpelling spelling) {
    ReplacedFile output(file);
    if (!output.error().empty()) return Outcome::failed(output.giveUp());
    const Expected size = expected(project, solids);
    Work work(watcher, size.lines);
    Rows rows(output, size.points);
    Target target{output, rows, work, spelling};
    PictureCopies pictures(output, file, IO_VRMl::picturesIn, project, store);

    IO_VRMl::writeVrmlHeader(target);
    writeWings(target, pictures, project, solids);
    writeFuselages(target, pictures, project, solids);
    if (!work.cancelled()) writeRudder(target, pictures, project.Rudder, solids.rudder);
    writeBoxes(target, project, solids);
    IO_VRMl::writeVrmlFooter(target);

    if (work.cancelled()) return Outcome::cancelled();
    output.commit();
    if (output.inPlace()) pictures.madeHere();
    if (!output.error().empty()) return Outcome::failed(output.error());
    const std::string missing = pictures.missing(" could not be put beside the model");
    return missing.empty() ? Outcome() : Outcome::failed(missing + " All else has been exported.");
}

}  // namespace

Outcome exportVRML(Project& project, const Solids& solids, const std::string& file,
                   PictureStore& store, Progress* watcher, VrmlSpelling spelling) {
    return failedIfMemoryEnds(
        [&] { return write(project, solids, file, store, watcher, spelling); });
}

}  // namespace velna::Plane
