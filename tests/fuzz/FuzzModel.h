#pragma once

#include <string>

#include "common/ValueReader.h"
#include "persistence/ProjectFile.h"
#include "preview/PictureCopies.h"
#include "support/Holds.h"
#include "support/InHand.h"
#include "support/SmallModel.h"

namespace velna::fuzz {

inline constexpr const char* savedName = "saved.vln";

/// The bytes that saving the model gives.
inline std::string savedBytes() {
    // The pictures have no place in this: their titles are kept, and nothing is copied.
    for (int i = 1; i <= nbWings; ++i) Wings(i).set_texture_filename("");
    Stabilizer.set_texture_filename("");
    for (int i = 1; i <= nbFuselages; ++i) Fuselages(i).texture_filename.clear();
    Rudder.texture_filename.clear();
    PictureStore none;
    const Outcome saved = Plane::saveProject(project, scratchFolder() + savedName, none);
    if (!saved.isDone()) broken("not saved: " + saved.reason());
    auto files = takeScratchFiles();
    if (files.size() != 1) broken("a save leaves more than the project");
    return files[savedName];
}

/// Reads `bytes` into a fresh model, as the Open command does; false where the read fails.
inline bool read(const std::string& bytes) {
    resetModel();
    bool complete = false;
    try {
        complete = Plane::readProjectBytes(project, bytes);
    } catch (const ReadFailure&) {
    }
    if (isSmall(project)) ObjectList.update(Fuselages, nbFuselages);
    return complete;
}

/// Expects that what the model is saved as can be read, and is saved the same again.
inline void expectRoundTrip() {
    const auto save = [] {
        std::string bytes = savedBytes();
        expectFinite(savedName, bytes);
        return bytes;
    };
    expectFixedPoint(save, read);
}

}  // namespace velna::fuzz
