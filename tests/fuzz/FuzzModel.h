#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include <unistd.h>

#include "common/ValueReader.h"
#include "persistence/ProjectFile.h"
#include "preview/PictureCopies.h"
#include "support/InHand.h"

namespace velna::fuzz {

/// Whether the model is small enough to be worked through in every run.
inline bool small() {
    if (nbWings > 20 || nbFuselages > 20 || nbEquipments > 20) return false;
    long long size = 0;
    for (int i = 1; i <= nbWings; ++i) size += Wings(i).nb;
    for (int i = 1; i <= nbFuselages; ++i)
        size += Fuselages(i).nb_sections * (1LL + Fuselages(i).nb_cross);
    return size < 2000;
}

/// A file in memory where the system has such a place: the runs should not wait for a disk.
inline const std::string& scratchFile() {
    static const std::string file = [] {
        const bool memory = std::filesystem::is_directory("/dev/shm");
        const auto folder =
            memory ? std::filesystem::path("/dev/shm") : std::filesystem::temp_directory_path();
        return (folder / ("velna-fuzz-" + std::to_string(::getpid()) + ".vln")).string();
    }();
    return file;
}

/// The bytes that saving the model gives.
inline std::string savedBytes() {
    // The pictures have no place in this: their titles are kept, and nothing is copied.
    for (int i = 1; i <= nbWings; ++i) Wings(i).set_texture_filename("");
    Stabilizer.set_texture_filename("");
    for (int i = 1; i <= nbFuselages; ++i) Fuselages(i).texture_filename.clear();
    Rudder.texture_filename.clear();
    PictureStore none;
    const Outcome saved = Plane::saveProject(project, scratchFile(), none);
    if (!saved.isDone()) {
        std::cerr << "not saved: " << saved.reason() << '\n';
        std::abort();
    }
    std::ifstream file(scratchFile(), std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    std::filesystem::remove(scratchFile());
    return bytes;
}

/// Reads `bytes` into a fresh model, as the Open command does; false where the read fails.
inline bool read(const std::string& bytes) {
    resetModel();
    bool complete = false;
    try {
        complete = Plane::readProjectBytes(project, bytes);
    } catch (const ReadFailure&) {
    }
    if (small()) ObjectList.update(Fuselages, nbFuselages);
    return complete;
}

/// Expects that what the model is saved as can be read, and is saved the same again.
inline void expectRoundTrip() {
    const std::string first = savedBytes();
    // The largest numbers of a double round up, with 15 digits, to more than a double can hold.
    if (first.find("E+308") != std::string::npos) return;
    if (!read(first)) {
        std::cerr << "a saved project cannot be read:\n" << first;
        std::abort();
    }
    // An old record may promise more airfoil points than there are; the first reading settles that.
    const std::string second = savedBytes();
    if (second == first) return;
    if (!read(second) || savedBytes() != second) {
        std::cerr << "a project changes from one saving to the next:\n" << second;
        std::abort();
    }
}

}  // namespace velna::fuzz
