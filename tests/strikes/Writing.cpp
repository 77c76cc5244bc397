#include "strikes/Writing.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "model/Plane.h"
#include "output/CutFiles.h"
#include "output/Exports.h"
#include "output/PrinterSurface.h"
#include "output/SolidExport.h"
#include "persistence/PictureFiles.h"
#include "persistence/ProjectFile.h"
#include "persistence/RecoveryFile.h"
#include "shell/Application.h"
#include "shell/ExportKinds.h"
#include "shell/ExportRequest.h"
#include "shell/ExportTools.h"
#include "shell/RecoveryWriter.h"
#include "support/FakeDesktop.h"
#include "support/StruckCalls.h"

namespace velna::test {

namespace {

/// What stands in the folder before: files to be replaced, pictures of theirs, and the user's own.
const std::map<std::string, std::string> oldFiles{
    {"p.vln", "# VELNA File Format V 2.2.1\r\n\"wing.bmp\"\r\n"},
    {"wing.bmp", "old wing"},
    {"fin.bmp", "the user's"},
    {"m.wrl", "            url \"wing.jpg\"\r\n"},
    {"wing.jpg", "old wing"},
    {"fin.jpg", "the user's"},
    {"m.stl", "old solid"},
    {"m-wing-1-left.stl", "old half"},
    {"m.obj", "old"},
    {"r.dxf", "old ribs"},
    {"settings.txt", "one=first\r\ntwo=second\r\n"},
    {"work", "old work"},
};

std::string save(Workbench& bench) {
    return Plane::saveProject(bench.project, bench.target("p.vln"), bench.store).reason();
}

template <VrmlSpelling spelling>
std::string model(Workbench& bench) {
    return Plane::exportVRML(bench.project, bench.solids, bench.target("m.wrl"), bench.store,
                             nullptr, spelling)
        .reason();
}

std::string drawing(Workbench& bench) {
    return Plane::exportDXFVTop(bench.project, bench.target("v.dxf")).reason();
}

template <SolidFormat format, bool each = false>
std::string solid(Workbench& bench) {
    constexpr const char* names[]{"m.stl", "m.3mf", "m.obj", "m.glb"};
    const std::string& file = bench.target(names[static_cast<int>(format)]);
    return Plane::exportSolids(bench.project, format, {.each = each, .cut = false}, file,
                               bench.store)
        .reason();
}

template <CutFormat format, bool each = false>
std::string ribs(Workbench& bench) {
    std::vector<std::string> words;
    RibWishes wishes{.stations = {.count = 2, .spacing = 0}, .skin = 0, .spars = {}, .each = each};
    return saveCutPlan(bench.project, CutPlan::ribs, format, wishes,
                       bench.target(format == CutFormat::dxf ? "r.dxf" : "r.svg"), words)
        .reason();
}

/// Tools for what needs none.
class NoTools : public ExportTools {
public:
    explicit NoTools(Imaging& pictures) : pictures_(pictures) {}
    Imaging& imaging() override { return pictures_; }
    std::unique_ptr<DrawnPicture> picture(SurfaceSize) override { return {}; }
    std::unique_ptr<PrinterSurface> printer(const std::string&, const ExportRequest&) override {
        return {};
    }
    Progress* watcher() override { return nullptr; }
    void next(std::size_t, std::size_t, const std::string&) override {}
    void clear() override {}

private:
    Imaging& pictures_;
};

std::string viewPicture(Workbench& bench) {
    NoTools tools(bench.pictures);
    ExportRequest request;
    request.size = {200, 100};
    std::vector<std::string> words;
    const std::string file = bench / "v.svg";
    const ExportJob job{bench.project, request, file, bench.store, tools, words};
    return rowOf(ExportKind::VectorPicture).write(job).reason();
}

std::string setting(Workbench& bench) {
    Settings settings;
    settings.load(bench.folder.path());
    return settings.store("one", {"other", std::to_string(bench.version)}).reason();
}

/// What an installed program remembers at its end, which only standard error hears about.
std::string preferences(Workbench& bench) {
    FakeDesktop desktop;
    desktop.program = "/usr/libexec/velna/";
    desktop.configuration = bench.folder.path();
    const auto program = std::make_unique<Application>();
    program->shell.desktop = &desktop;
    char* told = nullptr;
    std::size_t size = 0;
    std::FILE* const former = std::exchange(stderr, ::open_memstream(&told, &size));
    program->preferences.writeAll();
    std::fclose(std::exchange(stderr, former));
    std::string words(told, size);
    std::free(told);
    return words;
}

std::string unsavedFile(Workbench& bench) {
    return RecoveryFile::write({bench.project, "/models/glider.vln"}, bench / "work").reason();
}

std::string unsavedWork(Workbench& bench) {
    RecoveryWriter writer(bench.folder.path());
    writer.keep({bench.project, "/models/glider.vln"});
    writer.finish();
    return writer.failure().value_or("");
}

constexpr Writing table[] = {
    {"Save", save},
    {"Model", model<VrmlSpelling::Usual>},
    {"StrictModel", model<VrmlSpelling::Strict>},
    {"Drawing", drawing},
    {"Stl", solid<SolidFormat::Stl>},
    {"StlEach", solid<SolidFormat::Stl, true>},
    {"ThreeMf", solid<SolidFormat::ThreeMf>},
    {"Obj", solid<SolidFormat::Obj>},
    {"ObjEach", solid<SolidFormat::Obj, true>},
    {"Glb", solid<SolidFormat::Glb>},
    {"RibsDxf", ribs<CutFormat::dxf>},
    {"RibsDxfEach", ribs<CutFormat::dxf, true>},
    {"RibsSvg", ribs<CutFormat::svg>},
    {"RibsSvgEach", ribs<CutFormat::svg, true>},
    {"ViewPicture", viewPicture, false},
    {"Setting", setting, false},
    {"Preferences", preferences, false},
    {"UnsavedFile", unsavedFile, false},
    {"UnsavedWork", unsavedWork, false},
};

constexpr Refusal refusalTable[] = {{"Io", EIO, true},           {"NoSpace", ENOSPC, true},
                                    {"Quota", EDQUOT, true},     {"ReadOnly", EROFS, true},
                                    {"Denied", EACCES, true},    {"Interrupted", EINTR, false},
                                    {"Short", shortWrite, false}};

}  // namespace

Workbench::Workbench() {
    Plane::setDefaultPlane(aircraft_);
    aircraft_.ObjectList.update(aircraft_.Fuselages, aircraft_.nbFuselages);
    aircraft_.Wings(1).set_texture_filename("/pictures/wing.bmp");
    aircraft_.Wings(1).qualified_texture_filename = "sub/wing.bmp";
    aircraft_.Rudder.texture_filename = "/pictures/fin.bmp";
    aircraft_.Rudder.qualified_texture_filename = "fin.bmp";
    target_.reserve(folder.path().size() + 100);
    reset();
}

const std::string& Workbench::target(const char* name) {
    return target_.assign(folder.path()).append(name);
}

void Workbench::paintPictures() {
    for (const char* name : {"/pictures/wing.bmp", "/pictures/fin.bmp"}) {
        PictureBytes& picture = pictures.pictures[name] = plainPicture(4, 2);
        std::ranges::fill(picture.bytes, static_cast<unsigned char>(version));
    }
}

void Workbench::setVersion(int number) {
    version = number;
    project.Wings(1).span = 700 + number;
    solids.createAll(project);
    paintPictures();
}

void Workbench::reset() {
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        std::filesystem::remove(entry);
    for (const auto& [name, bytes] : oldFiles) writeBytes(folder / name, bytes);
    project = aircraft_;
    store = {&pictures, {}};
    version = 0;
    solids.createAll(project);
    paintPictures();
    pictures.saved.clear();
    pictures.loads.clear();
}

std::vector<std::string> Workbench::titles() const {
    std::vector<std::string> titles;
    for (const auto& picture : PictureFiles::picturesOf(project)) titles.push_back(picture.title);
    return titles;
}

std::map<std::string, std::string> Workbench::files() const {
    auto files = filesIn(folder.path());
    std::erase_if(files, [](const auto& file) { return file.first.ends_with(".lock"); });
    return files;
}

std::vector<std::string> Workbench::leftOver() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        std::string name = entry.path().filename().string();
        if (isUnplaced(name)) names.push_back(std::move(name));
    }
    return names;
}

std::span<const Writing> writings() {
    return table;
}

std::span<const Refusal> refusals() {
    return refusalTable;
}

}  // namespace velna::test
