#include "persistence/ProjectFile.h"

#include <optional>
#include <string>
#include <utility>

#include "common/Complaint.h"
#include "common/MemoryEnds.h"
#include "common/Progress.h"
#include "common/ReplacedFile.h"
#include "common/ValueReader.h"
#include "common/Version.h"
#include "model/Fuselage.h"
#include "persistence/EquipmentRecords.h"
#include "persistence/FuselageRecords.h"
#include "persistence/ListRecord.h"
#include "persistence/PictureFiles.h"
#include "persistence/ProjectFormats.h"
#include "persistence/RecordFields.h"
#include "persistence/TailRecords.h"
#include "persistence/WingRecords.h"
#include "preview/PictureCopies.h"

namespace velna::Plane {

namespace {

constexpr const char* refusedVersion = "The vln file version 0.1.x is not any more supported";

/// All lines behind the first. The numbers stand as they were written, in the file's unit.
void readBlocks(ValueReader& file, Project& project, const ProjectFormat& format) {
    format.readWings(file, project);
    format.readStabilizer(file, project.Stabilizer);
    format.readFuselages(file, project);
    // Older programs wrote this offset without meaning it.
    if (!format.keepsElevationOffsets) Fuselage::zeroElevationOffsets(project);
    format.readRudder(file, project.Rudder);
    Equipment::readEquipments(file, project);
    if (format.lastBlock >= LastBlock::unit) project.units = file.boolean() ? inches : millimetres;
    if (format.lastBlock >= LastBlock::list) readList(file, project);
    if (format.lastBlock >= LastBlock::airfoils) MainWing::readWingAirfoils(file, project);
    if (format.lastBlock >= LastBlock::textures) PictureFiles::readTextureNames(file, project);
}

/// An estimate: the numbers of all sections and airfoils, with twelve characters each.
long long expectedBytes(const Project& project) {
    constexpr long long number = 12;
    long long numbers = 0;
    for (int i = 1; i <= project.nbWings; ++i) numbers += 2LL * project.Wings(i).pointCount();
    for (int i = 1; i <= project.nbFuselages; ++i)
        numbers += 7LL * project.Fuselages(i).nb_sections;
    return number * numbers;
}

/// The new file of a save, which asks the watcher at each block that it has written.
class WatchedFile : public ReplacedFile {
public:
    WatchedFile(const std::string& file, const Project& project, Progress* watcher)
        : ReplacedFile(file), work_(watcher, expectedBytes(project)) {}

private:
    void flush() override {
        const auto size = static_cast<long long>(buffer().size());
        ReplacedFile::flush();
        if (!work_.did(size)) throw WorkCancelled();
    }

    Work work_;
};

Outcome save(Project& project, const std::string& file, PictureStore& pictures, Progress* watcher) {
    WatchedFile target(file, project, watcher);
    if (!target.error().empty()) return Outcome::failed(target.giveUp());
    saveBlocks(target, project);
    PictureCopies copies(target, file, PictureFiles::namesIn, project, pictures);
    const auto titles = PictureFiles::saveTextureNames(target, project, copies);
    // What needs memory comes before the file takes its place.
    std::optional<Project> renamed;
    if (titles != PictureFiles::titlesOf(project))
        PictureFiles::keepTitles(renamed.emplace(project), titles);
    target.commit();
    if (!target.inPlace()) return Outcome::failed(target.error());
    if (renamed) project = std::move(*renamed);
    copies.madeHere();
    if (!target.error().empty()) return Outcome::failed(target.error());
    // A picture that cannot be read is told of, but must not keep the aircraft from being saved.
    const std::string missing = copies.missing(" could not be put beside the project");
    return missing.empty() ? Outcome() : Outcome::failed(missing + " All else has been saved.");
}

}  // namespace

void saveBlocks(TextSink& target, const Project& project) {
    target.line(std::string(projectHead) + " " + versionText);
    MainWing::saveWings(target, project);
    saveWing(target, project.Stabilizer);
    Fuselage::saveFuselages(target, project);
    saveFin(target, project.Rudder);
    Equipment::saveEquipments(target, project);
    saveFlag(target, project.units == inches);
    saveList(target, project.ObjectList);
    MainWing::saveWingAirfoils(target, project);
}

Outcome saveProject(Project& project, const std::string& file, PictureStore& pictures,
                    Progress* watcher) {
    try {
        return failedIfMemoryEnds([&] { return save(project, file, pictures, watcher); });
    } catch (const WorkCancelled&) {
        return Outcome::cancelled();
    }
}

Outcome checkProject(const std::string& file) {
    try {
        // Once a project, whatever has become of the rest.
        if (readFileStart(file, projectHead.size()) == projectHead) return {};
        if (holdsFirstWing(readWholeFile(file))) return {};
    } catch (const ReadFailure& failure) {
        return Outcome::failed(failure.what());
    }
    return Outcome::failed(file + ": no Velna project");
}

bool readProjectBytes(Project& project, std::string_view bytes, Progress* watcher) {
    ValueReader file(bytes, watcher);
    const ProjectFormat& format = formatOf(file.line());
    if (!format.readWings) return false;
    readBlocks(file, project, format);
    return true;
}

Outcome readProject(Project& project, const std::string& file, bool* whole, Progress* watcher) {
    project.projectDirectory = folderOf(file);
    if (whole) *whole = false;
    try {
        if (!readProjectBytes(project, readWholeFile(file), watcher))
            return Outcome::failed(refusedVersion);
        if (whole) *whole = true;
    } catch (const ReadFailure& failure) {
        // No matter for a message box: what was read so far stands.
        complain(file, failure.what());
    } catch (const WorkCancelled&) {
        return Outcome::cancelled();
    }
    return {};
}

}  // namespace velna::Plane
