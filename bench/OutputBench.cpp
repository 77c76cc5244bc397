// The exports of a large model beside bare loops over the same numbers, and beside other writers of
// the same content. 20 fuselages of 500 sections with 100 outline points each; everything goes to
// memory-backed files where the system has them, for the disk is not what is measured.

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include <Inventor/SoDB.h>
#include <Inventor/SoOutput.h>
#include <Inventor/VRMLnodes/SoVRMLCoordinate.h>
#include <Inventor/VRMLnodes/SoVRMLGroup.h>
#include <Inventor/VRMLnodes/SoVRMLIndexedFaceSet.h>
#include <Inventor/VRMLnodes/SoVRMLShape.h>
#include <Inventor/actions/SoWriteAction.h>
#include <benchmark/benchmark.h>
#include <dxflib/dl_dxf.h>
#include <fcntl.h>
#include <unistd.h>

#include "output/Exports.h"
#include "preview/PictureCopies.h"
#include "support/InHand.h"

namespace {

using namespace velna;

constexpr int fuselages = 20;
constexpr int sections = 500;
constexpr int outlinePoints = 100;

std::string target(const char* name) {
    static const std::string folder = std::filesystem::is_directory("/dev/shm")
                                          ? "/dev/shm/"
                                          : std::filesystem::temp_directory_path().string() + "/";
    return folder + "velna-bench-" + name;
}

void shape(MeshSections& fuselage, int n) {
    fuselage.nb_sections = sections;
    fuselage.nb_cross = outlinePoints;
    fuselage.initArrays();
    for (int i = 1; i <= sections; ++i) {
        fuselage.sectionOrder(i) = static_cast<std::int16_t>(i);
        fuselage.pos(i) = 1.7 * i;
        fuselage.width(i) = 40 + 0.037 * i + n;
        fuselage.height(i) = 50 + 0.041 * i;
        fuselage.elevation(i) = 10 + 0.013 * i;
        fuselage.curvature(i) = 0.9;
        fuselage.curvature2(i) = 0.8;
        fuselage.bias_curve(i) = 0.45;
    }
}

void buildModel() {
    Plane::setDefaultPlane(project);
    nbFuselages = fuselages;
    Fuselage::resizeFuselages(project);
    for (int n = 1; n <= fuselages; ++n) shape(Fuselages(n), n);
    ObjectList.update(Fuselages, nbFuselages);
    solids.createAll(project);
}

/// What /proc tells of this process in bytes: "VmRSS" now, "VmHWM" at its highest since the last
/// reset.
double memory(std::string_view name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(name)) return 1024.0 * std::atof(line.c_str() + name.size() + 1);
    return 0;
}

/// Exports and counts memory: what stood before, and the most that the export took on top, both in
/// MB.
void runExport(benchmark::State& state, Outcome (*write)(const std::string&),
               const std::string& file) {
    double before = 0;
    double above = 0;
    for (auto _ : state) {
        state.PauseTiming();
        std::ofstream("/proc/self/clear_refs") << "5";
        before = memory("VmRSS:");
        state.ResumeTiming();
        if (!write(file).isDone()) state.SkipWithError("the export failed");
        state.PauseTiming();
        above = std::max(above, memory("VmHWM:") - before);
        state.ResumeTiming();
    }
    state.counters["MB_before"] = before / 1048576;
    state.counters["MB_above"] = above / 1048576;
    state.counters["MB_file"] = static_cast<double>(std::filesystem::file_size(file)) / 1048576;
}

/// The numbers that an export formats.
struct Numbers {
    std::vector<double> coordinates;
    std::vector<int> indices;
};

/// Formats `numbers` into one buffer, each with a blank behind it, and writes that once.
void writeBare(const Numbers& numbers, const std::string& file) {
    std::vector<char> buffer(numbers.coordinates.size() * 25 + numbers.indices.size() * 12);
    char* at = buffer.data();
    char* const end = at + buffer.size();
    for (double value : numbers.coordinates) {
        at = std::to_chars(at, end, value, std::chars_format::general, 15).ptr;
        *at++ = ' ';
    }
    for (int value : numbers.indices) {
        at = std::to_chars(at, end, value).ptr;
        *at++ = ' ';
    }
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    for (const char* from = buffer.data(); from < at;) {
        const auto written = ::write(descriptor, from, static_cast<std::size_t>(at - from));
        if (written <= 0) break;
        from += written;
    }
    ::close(descriptor);
}

/// Points and face corners of all fuselages.
const Numbers& modelNumbers() {
    static const Numbers numbers = [] {
        Numbers result;
        for (int n = 1; n <= fuselages; ++n)
            for (int i = 1; i <= sections; ++i)
                for (int j = 1; j <= outlinePoints; ++j) {
                    const Point3D p = solids.fuselages(n).meshPoint(j, i, false);
                    for (double value : {p.x, p.y, p.z}) result.coordinates.push_back(value);
                    if (i == sections) continue;
                    const int corner = (i - 1) * outlinePoints + j - 1;
                    const int next = (i - 1) * outlinePoints + j % outlinePoints;
                    for (int value : {corner, next + outlinePoints, corner + outlinePoints, -1,
                                      corner, next, next + outlinePoints, -1})
                        result.indices.push_back(value);
                }
        return result;
    }();
    return numbers;
}

/// The six coordinates of each line of the front drawing, closed outline by closed outline.
const Numbers& drawingNumbers() {
    static const Numbers numbers = [] {
        Numbers result;
        for (int n = 1; n <= fuselages; ++n) {
            const auto front = Fuselages(n).computeFrontPoints({});
            for (int i = 1; i <= sections; ++i)
                for (int j = 1; j <= outlinePoints; ++j) {
                    const Point2D from = front(i, j);
                    const Point2D to = front(i, j % outlinePoints + 1);
                    for (double value : {from.x, -from.y, 0.0, to.x, -to.y, 0.0})
                        result.coordinates.push_back(value);
                }
        }
        return result;
    }();
    return numbers;
}

void vrmlExport(benchmark::State& state) {
    runExport(
        state,
        [](const std::string& file) {
            PictureStore pictures;
            return Plane::exportVRML(project, solids, file, pictures);
        },
        target("model.wrl"));
}

void vrmlBareLoop(benchmark::State& state) {
    const Numbers& numbers = modelNumbers();
    for (auto _ : state) writeBare(numbers, target("bare-model"));
}

/// The same face sets, built before the clock runs.
SoVRMLGroup* coinModel() {
    auto* root = new SoVRMLGroup;
    root->ref();
    const Numbers& numbers = modelNumbers();
    const std::size_t points = sections * outlinePoints;
    const std::size_t corners = numbers.indices.size() / fuselages;
    for (std::size_t n = 0; n < fuselages; ++n) {
        auto* coord = new SoVRMLCoordinate;
        coord->point.setNum(static_cast<int>(points));
        for (std::size_t p = 0; p < points; ++p) {
            const double* xyz = numbers.coordinates.data() + 3 * (n * points + p);
            coord->point.set1Value(static_cast<int>(p), static_cast<float>(xyz[0]),
                                   static_cast<float>(xyz[1]), static_cast<float>(xyz[2]));
        }
        auto* faces = new SoVRMLIndexedFaceSet;
        faces->coord = coord;
        faces->coordIndex.setValues(0, static_cast<int>(corners),
                                    numbers.indices.data() + n * corners);
        auto* shapeNode = new SoVRMLShape;
        shapeNode->geometry = faces;
        root->addChild(shapeNode);
    }
    return root;
}

void vrmlByCoin(benchmark::State& state) {
    static SoVRMLGroup* const root = coinModel();
    for (auto _ : state) {
        SoOutput output;
        if (!output.openFile(target("coin.wrl").c_str())) state.SkipWithError("no file");
        output.setHeaderString("#VRML V2.0 utf8");
        SoWriteAction(&output).apply(root);
        output.closeFile();
    }
}

void dxfFrontExport(benchmark::State& state) {
    runExport(
        state, [](const std::string& file) { return Plane::exportDXFFront(project, file); },
        target("front.dxf"));
}

void dxfBareLoop(benchmark::State& state) {
    const Numbers& numbers = drawingNumbers();
    for (auto _ : state) writeBare(numbers, target("bare-front"));
}

void dxfByDxflib(benchmark::State& state) {
    const std::vector<double>& at = drawingNumbers().coordinates;
    for (auto _ : state) {
        DL_Dxf library;
        DL_WriterA* writer = library.out(target("dxflib.dxf").c_str(), DL_Codes::AC1015);
        writer->sectionEntities();
        for (std::size_t n = 0; n + 6 <= at.size(); n += 6)
            library.writeLine(*writer,
                              {at[n], at[n + 1], at[n + 2], at[n + 3], at[n + 4], at[n + 5]},
                              {"Fuselage_1", 256, -1, "BYLAYER", 1.0});
        writer->sectionEnd();
        writer->dxfEOF();
        writer->close();
        delete writer;
    }
}

/// ezdxf writes a twentieth of the lines, which takes long enough; the time given is that of all.
void dxfByEzdxf(benchmark::State& state) {
    constexpr int share = 20;
    const std::string program =
        "import time, ezdxf\n"
        "n = " +
        std::to_string(fuselages * sections * outlinePoints / share) +
        "\n"
        "begin = time.perf_counter()\n"
        "drawing = ezdxf.new()\n"
        "space = drawing.modelspace()\n"
        "for i in range(n): space.add_line((i * .37, i * .41), (i * .43, i * .47), {'layer': "
        "'Fuselage_1'})\n"
        "drawing.saveas('" +
        target("ezdxf.dxf") +
        "')\n"
        "print(time.perf_counter() - begin)\n";
    for (auto _ : state) {
        std::ofstream(target("ezdxf.py")) << program;
        FILE* pipe = ::popen(("/usr/bin/python3 " + target("ezdxf.py")).c_str(), "r");
        double seconds = 0;
        if (!pipe || std::fscanf(pipe, "%lf", &seconds) != 1) state.SkipWithError("no ezdxf");
        if (pipe) ::pclose(pipe);
        state.SetIterationTime(seconds * share);
    }
}

BENCHMARK(vrmlBareLoop)->Unit(benchmark::kMillisecond);
BENCHMARK(vrmlExport)->Unit(benchmark::kMillisecond);
BENCHMARK(vrmlByCoin)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(dxfBareLoop)->Unit(benchmark::kMillisecond);
BENCHMARK(dxfFrontExport)->Unit(benchmark::kMillisecond);
BENCHMARK(dxfByDxflib)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(dxfByEzdxf)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

}  // namespace

int main(int count, char** arguments) {
    SoDB::init();
    buildModel();
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    for (const char* name : {"model.wrl", "bare-model", "coin.wrl", "front.dxf", "bare-front",
                             "dxflib.dxf", "ezdxf.dxf", "ezdxf.py"})
        std::filesystem::remove(target(name));
}
