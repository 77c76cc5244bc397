#pragma once

#include <string_view>

#include "model/SymWingSections.h"
#include "model/VertWingSection.h"

namespace velna {

class ValueReader;

/// The last block of a file; every version has the blocks of the one before it, and some more.
enum class LastBlock { equipment, unit, list, airfoils, textures };

/// How the files of one range of versions are read.
struct ProjectFormat {
    void (*readWings)(ValueReader&);  ///< none where the version is not supported any more
    void (SymWingSections::*readStabilizer)(ValueReader&);
    void (*readFuselages)(ValueReader&);
    void (VertWingSection::*readRudder)(ValueReader&);
    LastBlock lastBlock;
    bool keepsElevationOffsets = false;
};

/// The format that a project's first line names; the current one where it names none.
const ProjectFormat& formatOf(std::string_view firstLine);

/// Reads a whole project from its bytes. Returns false, with nothing read, for a version that is
/// not supported any more. Throws ReadFailure where the file fails; what was read before stands in
/// the model.
bool readProjectBytes(std::string_view bytes);

/// Whether a project's first wing can be read from `bytes`; the model is not touched.
bool holdsFirstWing(std::string_view bytes);

}  // namespace velna
