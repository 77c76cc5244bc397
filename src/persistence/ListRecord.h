#pragma once

namespace velna {

class TextSink;
class ValueReader;
struct ObjectListRecord;
struct Project;

/// The rows of the Fuselage Manager: text and check mark.
void saveList(TextSink& file, const ObjectListRecord& list);
/// Reads the rows of the project's fuselages. Throws ReadFailure where the file fails or has more
/// rows than there are fuselages; a row that it ends in is unticked.
void readList(ValueReader& file, Project& project);

}  // namespace velna
