#include "persistence/PictureFiles.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "common/FolderTitles.h"
#include "common/TextSink.h"
#include "common/ValueReader.h"
#include "model/MeshSections.h"
#include "model/Project.h"
#include "persistence/RecordFields.h"
#include "preview/PictureCopies.h"

namespace velna::PictureFiles {

namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool equalIgnoringCase(std::string_view one, std::string_view other) {
    return std::ranges::equal(one, other, {}, lower, lower);
}

/// The entry of `folder` that is `title` in other letters, or `title` itself.
std::string titleAsItStands(const std::string& folder, const std::string& title) {
    namespace fs = std::filesystem;
    std::error_code failure;
    const fs::path place = folder.empty() ? fs::path(".") : fs::path(folder);
    if (fs::exists(place / title, failure)) return title;
    // Of several the first by name, so that it does not depend on the order in the folder.
    std::string found;
    forEachTitle(folder, [&](std::string_view name) {
        if (equalIgnoringCase(name, title) && (found.empty() || name < found)) found = name;
    });
    return found.empty() ? title : found;
}

const std::string& textureName(const SymWingSections& panel) {
    return panel.texture_filename();
}

template <class Object>
const std::string& textureName(const Object& object) {
    return object.texture_filename;
}

void setTextureName(SymWingSections& panel, const std::string& name) {
    panel.set_texture_filename(name);
}

template <class Object>
void setTextureName(Object& object, const std::string& name) {
    object.texture_filename = name;
}

/// Every object that can carry a picture, in the order of the names in a file.
template <class Aircraft, class Visit>
void forEachObject(Aircraft& project, Visit visit) {
    for (int i = 1; i <= project.nbWings; ++i) visit(project.Wings(i));
    visit(project.Stabilizer);
    for (int i = 1; i <= project.nbFuselages; ++i) visit(project.Fuselages(i));
    visit(project.Rudder);
}

}  // namespace

std::vector<std::string> saveTextureNames(TextSink& file, const Project& project,
                                          PictureCopies& copies) {
    std::vector<std::string> titles;
    forEachObject(project, [&](const auto& object) {
        titles.push_back(copies.saveTarget(textureName(object), object.qualified_texture_filename));
        saveText(file, titles.back());
    });
    return titles;
}

std::vector<PictureName> picturesOf(const Project& project) {
    std::vector<PictureName> pictures;
    forEachObject(project, [&](const auto& object) {
        pictures.push_back({textureName(object), object.qualified_texture_filename});
    });
    return pictures;
}

void setPictures(Project& project, const std::vector<PictureName>& pictures) {
    auto picture = pictures.begin();
    const auto set = [&](const auto& object, auto changed) {
        if (picture == pictures.end()) return;
        // A picture that stays leaves a promised entry promised.
        if (!(*picture == PictureName{textureName(object), object.qualified_texture_filename})) {
            setTextureName(changed(), picture->file);
            changed().qualified_texture_filename = picture->title;
        }
        ++picture;
    };
    const auto setAll = [&](auto& list, int count) {
        for (int i = 1; i <= count; ++i) {
            set(
                std::as_const(list)(i), [&]() -> auto& { return list(i); });
        }
    };
    setAll(project.Wings, project.nbWings);
    set(
        project.Stabilizer, [&]() -> auto& { return project.Stabilizer; });
    setAll(project.Fuselages, project.nbFuselages);
    set(
        project.Rudder, [&]() -> auto& { return project.Rudder; });
}

std::vector<std::string> titlesOf(const Project& project) {
    std::vector<std::string> titles;
    forEachObject(project,
                  [&](const auto& object) { titles.push_back(object.qualified_texture_filename); });
    return titles;
}

void keepTitles(Project& project, const std::vector<std::string>& titles) {
    std::vector<PictureName> pictures = picturesOf(project);
    for (std::size_t i = 0; i < pictures.size(); ++i) pictures[i].title = titles[i];
    setPictures(project, pictures);
}

// They are the last lines, and the only ones there that are texts.
std::set<std::string> namesIn(std::string_view bytes) {
    std::set<std::string> names;
    if (!bytes.starts_with(projectHead)) return names;
    ValueReader lines(bytes);
    while (!lines.atEnd()) {
        const std::string_view line = lines.line();
        const auto end = line.rfind('"');
        if (line.starts_with('"') && end > 0) {
            names.emplace(line.substr(1, end - 1));
        } else {
            names.clear();
        }
    }
    return names;
}

void readTextureNames(ValueReader& file, Project& project) {
    forEachObject(project, [&](auto& object) {
        const std::string title = file.text();
        setTextureName(object, qualifyTextureName(project.projectDirectory, title));
        object.qualified_texture_filename = title;
    });
}

std::string qualifyTextureName(const std::string& folder, const std::string& title) {
    if (title.empty()) return {};
    return folder + titleAsItStands(folder, title);
}

}  // namespace velna::PictureFiles
