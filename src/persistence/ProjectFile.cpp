#include <cstdio>
#include <string>

#include "common/ReplacedFile.h"
#include "common/ValueReader.h"
#include "common/Version.h"
#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/ObjectList.h"
#include "model/Plane.h"
#include "model/Prefs.h"
#include "persistence/PictureFiles.h"
#include "persistence/ProjectFormats.h"
#include "persistence/RecordFields.h"
#include "preview/PictureCopies.h"

namespace velna::Plane {

namespace {

constexpr const char* refusedVersion = "The vln file version 0.1.x is not any more supported";

/// A failed read is no matter for a message box; whoever runs the program from a terminal sees it.
void complain(const std::string& file, const char* reason) {
    std::fprintf(stderr, "velna: %s: %s\n", file.c_str(), reason);
}

}  // namespace

std::string saveProject(const std::string& file) {
    ReplacedFile target(file);
    if (!target.error().empty()) return target.error();
    target.line(std::string(projectHead) + " " + versionText);
    MainWing::saveWings(target);
    Stabilizer.save(target);
    Fuselage::saveFuselages(target);
    Rudder.save(target);
    Equipment::saveEquipments(target);
    saveFlag(target, Prefs.InchesOption);
    ObjectList.save(target);
    MainWing::saveWingAirfoils(target);
    PictureCopies copies(target, file, PictureFiles::namesIn);
    const auto titles = PictureFiles::saveTextureNames(target, copies);
    target.commit();
    if (!target.inPlace()) return target.error();
    copies.madeHere();
    PictureFiles::keepTitles(titles);
    if (!target.error().empty()) return target.error();
    // A picture that cannot be read is told of, but must not keep the aircraft from being saved.
    const std::string missing = copies.missing(" could not be put beside the project");
    return missing.empty() ? missing : missing + " All else has been saved.";
}

std::string whyNoProject(const std::string& file) {
    try {
        // Once a project, whatever has become of the rest.
        if (readFileStart(file, projectHead.size()) == projectHead) return {};
        if (holdsFirstWing(readWholeFile(file))) return {};
    } catch (const ReadFailure& failure) {
        return failure.what();
    }
    return file + ": no Velna project";
}

std::string readProject(const std::string& file) {
    projectDirectory = folderOf(file);
    try {
        if (!readProjectBytes(readWholeFile(file))) return refusedVersion;
    } catch (const ReadFailure& failure) {
        complain(file, failure.what());
    }
    return {};
}

}  // namespace velna::Plane
