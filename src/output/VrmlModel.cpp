#include <cstdint>
#include <string>

#include "common/ReplacedFile.h"
#include "model/Plane.h"
#include "output/IO_VRMl.h"
#include "output/Progress.h"
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
    IO_VRMl::writeVrmlTranslation(target, zeroTranslation);
    writeGeometry();
    const std::string url = pictures.convertJPG(look.picture, look.title, look.unturned);
    IO_VRMl::writeVrmlAppearance(target, look.color, url, look.repeat);
    IO_VRMl::writeVrmlNodeEnd(target);
}

void writeWing(Target& target, PictureCopies& pictures, const SymWingSections& wing,
               const char* leftName, const char* rightName) {
    const Look look{wing.color(), wing.texture_filename(), wing.qualified_texture_filename, false,
                    false};
    writeNode(target, pictures, leftName, look,
              [&] { IO_VRMl::writeVrmlWing(target, *wing.Left, Side::left); });
    writeNode(target, pictures, rightName, look,
              [&] { IO_VRMl::writeVrmlWing(target, *wing.Right, Side::right); });
}

void writeFuselages(Target& target, PictureCopies& pictures) {
    for (int i = 1; i <= nbFuselages && !target.work.cancelled(); ++i) {
        currentFuselage = static_cast<std::int16_t>(i);
        const MeshSections& fuselage = Fuselages.alike(i);
        const Look look{fuselage.color(), fuselage.texture_filename,
                        fuselage.qualified_texture_filename, true, true};
        for (bool mirrored : {false, true}) {
            if (!mirrored || fuselage.shift != 0) {
                writeNode(target, pictures, "Fuselage", look,
                          [&] { IO_VRMl::writeVrmlFuselage(target, fuselage, mirrored); });
            }
        }
    }
}

void writeRudder(Target& target, PictureCopies& pictures) {
    const Look look{Rudder.color(), Rudder.texture_filename, Rudder.qualified_texture_filename,
                    true, false};
    for (bool mirrored : {false, true}) {
        if (!mirrored || Rudder.mirrored()) {
            writeNode(target, pictures, "Rudder", look,
                      [&] { IO_VRMl::writeVrmlRudder(target, Rudder, mirrored); });
        }
    }
}

void writeBoxes(Target& target) {
    for (int i = 1; i <= nbEquipments; ++i) {
        const ElectroBox& box = Equipments(i);
        IO_VRMl::writeVrmlNodeName(target, "Equipment");
        IO_VRMl::writeVrmlTranslation(target, box.centre());
        IO_VRMl::writeVrmlBox(target, box.solidSize());
        IO_VRMl::writeVrmlAppearance(target, box.kindColor(), "", false);
        IO_VRMl::writeVrmlNodeEnd(target);
    }
}

/// Points and faces of all bodies, about.
long long expectedLines() {
    long long total = 0;
    for (int i = 1; i <= nbFuselages; ++i) {
        const MeshSections& fuselage = Fuselages.alike(i);
        const long long points = static_cast<long long>(fuselage.nb_sections) * fuselage.nb_cross;
        total +=
            points * (fuselage.texture_filename.empty() ? 3 : 6) * (fuselage.shift != 0 ? 2 : 1);
    }
    for (int i = 1; i <= nbWings; ++i) total += 8LL * Wings.alike(i).pointCount();
    return total + 8LL * Stabilizer.pointCount() + 8LL * Rudder.pointCount();
}

}  // namespace

std::string exportVRML(const std::string& file) {
    ReplacedFile output(file);
    if (!output.error().empty()) return output.error();
    Work work(expectedLines());
    Target target{output, work};
    PictureCopies pictures(output, file, IO_VRMl::picturesIn);

    IO_VRMl::writeVrmlHeader(target);
    vrmlUnitScale = {1, 1, 1};
    for (int i = 1; i <= nbWings && !work.cancelled(); ++i)
        writeWing(target, pictures, Wings.alike(i), "WingLeft", "WingRight");
    writeWing(target, pictures, Stabilizer, "StabLeft", "StabRight");
    writeFuselages(target, pictures);
    if (!work.cancelled()) writeRudder(target, pictures);
    writeBoxes(target);
    IO_VRMl::writeVrmlFooter(target);

    if (work.cancelled()) return cancelledReason;
    output.commit();
    if (output.inPlace()) pictures.madeHere();
    if (!output.error().empty()) return output.error();
    const std::string missing = pictures.missing(" could not be put beside the model");
    return missing.empty() ? missing : missing + " All else has been exported.";
}

}  // namespace velna::Plane
