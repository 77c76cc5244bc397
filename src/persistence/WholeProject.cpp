#include "persistence/WholeProject.h"

#include <filesystem>
#include <string_view>

#include "common/ReplacedFile.h"
#include "common/ValueReader.h"
#include "model/MeshSections.h"
#include "model/Plane.h"
#include "persistence/ProjectFile.h"
#include "persistence/ProjectFormats.h"
#include "persistence/RecordFields.h"

namespace velna::Plane {

namespace {

constexpr const char* notSupported = ": projects of version 0.1 are not supported any more";

/// Version 1.0.1 wrote its unit, the last thing in a file, only in its later builds.
bool mayLackUnit(std::string_view bytes) {
    return bytes.substr(0, bytes.find_first_of("\r\n")).find("1.0.1") != std::string_view::npos;
}

/// Where the pictures lie is told after the default aircraft, which has none.
bool readBytes(Project& project, const std::string& folder, const std::string& bytes) {
    project = {};
    setDefaultPlane(project);
    project.projectDirectory = folder;
    return readProjectBytes(project, bytes);
}

/// Throws ReadFailure where the file is not whole. False for a version that is not supported.
bool readWhole(Project& project, const std::string& folder, const std::string& bytes) {
    if (!mayLackUnit(bytes)) return readBytes(project, folder, bytes);
    try {
        return readBytes(project, folder, bytes);
    } catch (const ReadFailure&) {
        return readBytes(project, folder, bytes + "#FALSE#\r\n");
    }
}

std::string folderFromRoot(const std::string& file) {
    std::error_code failure;
    const std::filesystem::path path = std::filesystem::absolute(file, failure);
    return folderOf(failure ? file : path.lexically_normal().native());
}

}  // namespace

Outcome openWholeProject(Project& project, const std::string& file) {
    std::string bytes;
    try {
        bytes = readWholeFile(file);
    } catch (const ReadFailure& failure) {
        return Outcome::failed(failure.what());
    }
    const bool named = bytes.starts_with(projectHead);
    try {
        if (!readWhole(project, folderFromRoot(file), bytes))
            return Outcome::failed(file + notSupported);
    } catch (const ReadFailure&) {
        if (!named && !holdsFirstWing(bytes)) return Outcome::failed(file + ": no Velna project");
        return Outcome::failed(file + ": not a whole project");
    }
    project.ObjectList.update(project.Fuselages, project.nbFuselages);
    return {};
}

}  // namespace velna::Plane
