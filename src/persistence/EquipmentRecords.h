#pragma once

#include "persistence/RecordFields.h"

namespace velna {

class ElectroBox;
class TextSink;
class ValueReader;
struct Project;

namespace Equipment {

/// The lines of a record, in every version, behind its head word.
RecordFields<ElectroBox> boxFields();

/// The count and the boxes; the record is the same in every version.
void saveEquipments(TextSink& file, const Project& project);
/// Throws ReadFailure where the file fails; what was read before stands.
void readEquipments(ValueReader& file, Project& project);

}  // namespace Equipment
}  // namespace velna
