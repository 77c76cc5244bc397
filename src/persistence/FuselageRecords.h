#pragma once

#include "persistence/RecordFields.h"

namespace velna {

class MeshSections;
class TextSink;
class ValueReader;
struct Project;

/// The fuselages' block. A read throws ReadFailure where the file fails, with arrays that fit the
/// counts; all fuselages together never get more than `Plane::largestMesh` points.
namespace Fuselage {

/// The lines of a fuselage's record as this version writes it, behind its head word; for each
/// section a line for each of its arrays follows them.
RecordFields<MeshSections> bodyFields();

/// The count and the fuselages, the sections in their order, nose to tail.
void saveFuselages(TextSink& file, const Project& project);
void readFuselages(ValueReader& file, Project& project);
void readFuselagesV120(ValueReader& file, Project& project);
void readFuselagesV101(ValueReader& file, Project& project);
void readFuselagesV030(ValueReader& file, Project& project);
/// The block of the formats that knew one fuselage and no count.
void readFuselageV0212(ValueReader& file, Project& project);
void readFuselageV026(ValueReader& file, Project& project);

}  // namespace Fuselage
}  // namespace velna
