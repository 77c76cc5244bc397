#include "shell/ExportKinds.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "common/ReplacedFile.h"
#include "model/Solids.h"
#include "output/CutFiles.h"
#include "output/Exports.h"
#include "output/PrinterSurface.h"
#include "persistence/ProjectFile.h"
#include "preview/Textures.h"
#include "shell/SvgSurface.h"
#include "shell/ViewDrawing.h"

namespace velna {

namespace {

Outcome writeProject(const ExportJob& job) {
    return Plane::saveProject(job.project, job.file, job.pictures, job.tools.watcher());
}

/// All fuselages are in it, the hidden ones too. Where a picture lies on a wing depends on its
/// size, which a window has learned when it showed the aircraft.
Outcome writeModel(const ExportJob& job) {
    Project& project = job.project;
    Solids solids;
    solids.createAll(project);
    Textures::convertPictures(project, solids, job.pictures.imaging);
    for (int i = 1; i <= project.nbFuselages; ++i) project.ObjectList.setShown(i, true);
    solids.createAll(project);
    return Plane::exportVRML(project, solids, job.file, job.pictures, job.tools.watcher(),
                             job.request.spelling);
}

Outcome writeCutPlan(const ExportJob& job, CutFormat format) {
    const ExportRequest& request = job.request;
    return saveCutPlan(job.project, *request.cut, format, request.plans.wishes, job.file, job.words,
                       job.tools.watcher());
}

Outcome writeDrawing(const ExportJob& job) {
    if (job.request.cut) return writeCutPlan(job, CutFormat::dxf);
    return exportViewDrawing(job.project, job.request.view, job.file, job.tools.watcher());
}

Outcome writePlans(const ExportJob& job) {
    const auto printer = job.tools.printer(job.file, job.request);
    return Plans::printPlans(job.project, job.request.plans,
                             {.printer = *printer,
                              .area = job.request.size,
                              .watcher = job.tools.watcher(),
                              .words = &job.words});
}

Outcome writeBytes(const std::string& file, const std::string& bytes) {
    ReplacedFile target(file);
    target.append(bytes);
    return target.commit() ? Outcome() : Outcome::failed(target.error());
}

Outcome writePicture(const ExportJob& job) {
    const auto picture = job.tools.picture(job.request.size);
    if (!picture) return Outcome::failed("The drawing needs more memory than there is.");
    drawView(job.project, job.request.view, picture->surface());
    std::string bytes;
    std::string reason;
    if (!picture->encode(bytes, reason)) return Outcome::failed(reason);
    return writeBytes(job.file, bytes);
}

Outcome writeVectorPicture(const ExportJob& job) {
    if (job.request.cut) return writeCutPlan(job, CutFormat::svg);
    SvgSurface surface(job.request.size);
    drawView(job.project, job.request.view, surface);
    return writeBytes(job.file, surface.text());
}

Outcome writeSolids(const ExportJob& job) {
    const auto format = solidFormatOf(std::string(".") + rowOf(job.request.kind).ending);
    return Plane::exportSolids(job.project, *format, job.request.solids, job.file, job.pictures,
                               job.tools.watcher());
}

constexpr ExportKindRow kindTable[] = {
    {ExportKind::Project, "vln", "the project as this version writes it", writeProject},
    {ExportKind::Model, "wrl", "the model in three dimensions, VRML 2.0", writeModel},
    {ExportKind::Drawing, "dxf", "a view in the model's unit, or a plan to be cut", writeDrawing},
    {ExportKind::Plans, "pdf", "printed plans, a file each: OUT-side.pdf", writePlans},
    {ExportKind::Picture, "png", "a view as the window shows it", writePicture},
    {ExportKind::VectorPicture, "svg", "the same as lines, or a plan to be cut",
     writeVectorPicture},
    {ExportKind::Stl, "stl", "closed solids in millimetres, to be printed", writeSolids},
    {ExportKind::ThreeMf, "3mf", "the same with names and colours", writeSolids},
    {ExportKind::Obj, "obj", "the same to be looked at, with pictures and electronics",
     writeSolids},
    {ExportKind::Glb, "glb", "the same as glTF, in one file", writeSolids},
};

bool sameIgnoringCase(char a, char b) {
    const auto small = [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    };
    return small(a) == small(b);
}

}  // namespace

std::span<const ExportKindRow> exportKinds() {
    return kindTable;
}

const ExportKindRow& rowOf(ExportKind kind) {
    return kindTable[static_cast<std::size_t>(kind)];
}

const ExportKindRow* kindOfEnding(std::string_view ending) {
    const auto* const row = std::ranges::find_if(kindTable, [&](const ExportKindRow& kind) {
        return std::ranges::equal(ending, std::string_view(kind.ending), sameIgnoringCase);
    });
    return row == std::end(kindTable) ? nullptr : row;
}

Outcome exportViewDrawing(const Project& project, int mode, const std::string& file,
                          Progress* watcher) {
    switch (mode) {
        case ViewMode::VTop:
            return Plane::exportDXFVTop(project, file, watcher);
        case ViewMode::Front:
            return Plane::exportDXFFront(project, file, watcher);
        case ViewMode::Side:
            return Plane::exportDXFSide(project, file, watcher);
        default:
            return Plane::exportDXFHTop(project, file, watcher);
    }
}

}  // namespace velna
