#pragma once

#include <string_view>

namespace velna {

class SymWingSections;
class ValueReader;
class VertWingSection;
struct Project;

/// The last block of a file; every version has the blocks of the one before it, and some more.
enum class LastBlock { equipment, unit, list, airfoils, textures };

/// How the files of one range of versions are read.
struct ProjectFormat {
    /// None where the version is not supported any more.
    void (*readWings)(ValueReader&, Project&);
    void (*readStabilizer)(ValueReader&, SymWingSections&);
    void (*readFuselages)(ValueReader&, Project&);
    void (*readRudder)(ValueReader&, VertWingSection&);
    LastBlock lastBlock;
    bool keepsElevationOffsets = false;
};

/// The format that a project's first line names; the current one where it names none.
const ProjectFormat& formatOf(std::string_view firstLine);

/// Whether a project's first wing can be read from `bytes`.
bool holdsFirstWing(std::string_view bytes);

}  // namespace velna
