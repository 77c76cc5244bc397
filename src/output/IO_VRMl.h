#pragma once

#include <set>
#include <string>
#include <string_view>

#include "common/Point.h"
#include "common/Progress.h"
#include "common/ReplacedFile.h"
#include "output/Exports.h"
#include "output/Rows.h"

namespace velna {

class BodySolid;
class FinSolid;
class MeshSections;
class WingSection;

/// The writers of a VRML 2.0 file's pieces. Points stand in model coordinates; a mirrored geometry
/// is the twin on the other side of the aircraft. Every line ends in CR LF.
namespace IO_VRMl {

/// The units of the model are the file's.
inline constexpr Point3D vrmlUnitScale{1, 1, 1};
/// Bodies lie where their points are.
inline constexpr Point3D zeroTranslation{};

/// The file being written, its tables, and the count of its lines; a piece ends early once the user
/// has cancelled.
struct Target {
    ReplacedFile& file;
    Rows& rows;
    Work& work;
    VrmlSpelling spelling = VrmlSpelling::Usual;
};

/// The sides of a wing, whose texture coordinates have opposite signs.
enum class Side { left, right };

void writeVrmlHeader(Target& target);
/// Comment and opening of a Transform.
void writeVrmlNodeName(Target& target, std::string_view name);
/// Translation, and opening of the Shape.
void writeVrmlTranslation(Target& target, const Point3D& t);
/// The band between root and tip; its ends stay open.
void writeVrmlWing(Target& target, const WingSection& wing, Side side);
void writeVrmlRudder(Target& target, const FinSolid& rudder, bool mirrored);
/// The mesh `solid` as the last rebuild left it.
void writeVrmlFuselage(Target& target, const MeshSections& fuselage, const BodySolid& solid,
                       bool mirrored);
void writeVrmlBox(Target& target, const Point3D& size);
/// `colour` is 0 to 255; `url` the bare name of a picture beside the file, empty for none.
void writeVrmlAppearance(Target& target, const Point3D& colour, std::string_view url, bool repeat);
/// The pictures that a file of these `bytes` names.
std::set<std::string> picturesIn(std::string_view bytes);
/// Closes Shape and Transform.
void writeVrmlNodeEnd(Target& target);
void writeVrmlFooter(Target& target);

}  // namespace IO_VRMl
}  // namespace velna
