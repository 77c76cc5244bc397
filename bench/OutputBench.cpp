// The exports of a large model beside bare loops that write the same lines, and beside other
// writers of the same content; and how they grow over three decades of size. 20 fuselages with 100
// outline points a section.

#include <cstdint>
#include <cstdio>
#include <cstring>
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

#include "Measured.h"
#include "common/NumberText.h"
#include "common/Progress.h"
#include "output/Exports.h"
#include "preview/PictureCopies.h"
#include "support/InHand.h"

namespace {

using namespace velna;

constexpr int fuselages = 20;
constexpr int outlinePoints = 100;
constexpr std::int64_t usualPoints = 1'000'000;
/// Three decades of size.
const std::vector<std::int64_t> sizes{4'000, 40'000, 400'000, 4'000'000};

int sections = 0;  // of each fuselage

/// Makes the model have so many points, unless it has them.
void buildModel(std::int64_t points) {
    if (sections == points / fuselages / outlinePoints) return;
    sections = static_cast<int>(points / fuselages / outlinePoints);
    Plane::setDefaultPlane(project);
    nbFuselages = fuselages;
    Fuselage::resizeFuselages(project);
    for (int n = 1; n <= fuselages; ++n)
        shapeBody(Fuselages(n), static_cast<std::int16_t>(sections), outlinePoints, n);
    ObjectList.update(Fuselages, nbFuselages);
    solids.createAll(project);
}

/// Exports, and counts the time a point, and in MB the most memory on top of the model.
void runExport(benchmark::State& state, Outcome (*write)(const std::string&),
               const std::string& file) {
    buildModel(state.range(0));
    const auto work = [&] {
        if (!write(file).isDone()) state.SkipWithError("the export failed");
    };
    const double above = megabytesAbove(work);
    for (auto _ : state) work();
    const auto points = static_cast<double>(state.range(0));
    state.counters["MB_above"] = above;
    state.counters["MB_file"] = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
    state.counters["points"] = points;
}

/// The file of a reference, which a block after the other is written into: nothing else is done.
class BareFile {
public:
    explicit BareFile(const std::string& file)
        : descriptor_(::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666)) {}
    ~BareFile() {
        write();
        ::close(descriptor_);
    }
    BareFile(const BareFile&) = delete;
    BareFile& operator=(const BareFile&) = delete;

    /// Where the next line goes; a line is shorter than the room behind.
    char* at = block_;
    void lineDone() {
        if (at > block_ + size - room) write();
    }

private:
    static constexpr std::ptrdiff_t size = 1 << 18;
    static constexpr std::ptrdiff_t room = 1024;

    void write() {
        for (const char* from = block_; from < at;) {
            const auto written = ::write(descriptor_, from, static_cast<std::size_t>(at - from));
            if (written <= 0) break;
            from += written;
        }
        at = block_;
    }

    int descriptor_;
    char block_[size];
};

/// The numbers that an export formats.
struct Numbers {
    std::vector<double> coordinates;
    std::vector<int> indices;
};

char* put(char* at, std::string_view text) {
    std::memcpy(at, text.data(), text.size());
    return at + text.size();
}

/// Points and face corners of all fuselages.
const Numbers& modelNumbers() {
    static const Numbers numbers = [] {
        buildModel(usualPoints);
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
        buildModel(usualPoints);
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
        scratchFile("model.wrl"));
}

/// The same lines of points and faces, straight from the numbers by the program's own digits.
void vrmlBareLoop(benchmark::State& state) {
    const Numbers& numbers = modelNumbers();
    for (auto _ : state) {
        BareFile file(scratchFile("bare-model"));
        for (std::size_t n = 0; n < numbers.coordinates.size(); n += 3, file.lineDone()) {
            file.at = put(putNumber(file.at, numbers.coordinates[n]), " ");
            file.at = put(putNumber(file.at, numbers.coordinates[n + 1]), " ");
            file.at = put(putNumber(file.at, numbers.coordinates[n + 2]), ",\r\n");
        }
        for (std::size_t n = 0; n < numbers.indices.size(); n += 4, file.lineDone()) {
            file.at = put(putInteger(put(file.at, " "), numbers.indices[n]), " , ");
            file.at = put(putInteger(put(file.at, " "), numbers.indices[n + 1]), " , ");
            file.at = put(putInteger(put(file.at, " "), numbers.indices[n + 2]), " , -1,\r\n");
        }
    }
}

/// The same face sets, built before the clock runs.
SoVRMLGroup* coinModel() {
    auto* root = new SoVRMLGroup;
    root->ref();
    const Numbers& numbers = modelNumbers();
    const auto points = static_cast<std::size_t>(sections) * outlinePoints;
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
        if (!output.openFile(scratchFile("coin.wrl").c_str())) state.SkipWithError("no file");
        output.setHeaderString("#VRML V2.0 utf8");
        SoWriteAction(&output).apply(root);
        output.closeFile();
    }
}

/// A watcher that lets the work run.
class Patient : public Progress {
public:
    bool step(long long, long long) override { return true; }
};

/// The export with somebody who watches it, beside the one without.
void vrmlWatched(benchmark::State& state) {
    runExport(
        state,
        [](const std::string& file) {
            PictureStore pictures;
            Patient watcher;
            return Plane::exportVRML(project, solids, file, pictures, &watcher);
        },
        scratchFile("model.wrl"));
}

void dxfFrontExport(benchmark::State& state) {
    runExport(
        state, [](const std::string& file) { return Plane::exportDXFFront(project, file); },
        scratchFile("front.dxf"));
}

/// The text of a point where a line starts and where it ends.
struct PointText {
    char start[128];
    char end[128];
    std::size_t size = 0;

    void take(double x, double y) {
        char* at = start;
        const auto coordinate = [&at](std::string_view code, double value) {
            at = put(at, code);
            if (value >= 0) *at++ = ' ';
            at = put(putNumber(at, value), " \r\n");
        };
        coordinate(" 10 \r\n", x);
        const auto second = at - start;
        coordinate(" 20 \r\n", y);
        const auto third = at - start;
        coordinate(" 30 \r\n", 0);
        size = static_cast<std::size_t>(at - start);
        std::memcpy(end, start, size);
        for (const auto code : {std::ptrdiff_t{0}, second, third}) end[code + 2] = '1';
    }
};

/// The same lines, each point formatted once.
void dxfBareLoop(benchmark::State& state) {
    const std::vector<double>& at = drawingNumbers().coordinates;
    for (auto _ : state) {
        BareFile file(scratchFile("bare-front"));
        PointText points[2];
        for (std::size_t n = 0; n < at.size(); n += 6, file.lineDone()) {
            PointText& from = points[n / 6 % 2];
            PointText& to = points[(n / 6 + 1) % 2];
            if (n / 6 % outlinePoints == 0) from.take(at[n], at[n + 1]);
            to.take(at[n + 3], at[n + 4]);
            file.at = put(file.at, " 0 \r\nLINE\r\n 8 \r\nFuselage_1\r\n");
            file.at = put(file.at, {from.start, from.size});
            file.at = put(file.at, {to.end, to.size});
        }
    }
}

void dxfByDxflib(benchmark::State& state) {
    const std::vector<double>& at = drawingNumbers().coordinates;
    for (auto _ : state) {
        DL_Dxf library;
        DL_WriterA* writer = library.out(scratchFile("dxflib.dxf").c_str(), DL_Codes::AC1015);
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
        std::to_string(usualPoints / share) +
        "\n"
        "begin = time.perf_counter()\n"
        "drawing = ezdxf.new()\n"
        "space = drawing.modelspace()\n"
        "for i in range(n): space.add_line((i * .37, i * .41), (i * .43, i * .47), {'layer': "
        "'Fuselage_1'})\n"
        "drawing.saveas('" +
        scratchFile("ezdxf.dxf") +
        "')\n"
        "print(time.perf_counter() - begin)\n";
    for (auto _ : state) {
        std::ofstream(scratchFile("ezdxf.py")) << program;
        FILE* pipe = ::popen(("/usr/bin/python3 " + scratchFile("ezdxf.py")).c_str(), "r");
        double seconds = 0;
        if (!pipe || std::fscanf(pipe, "%lf", &seconds) != 1) state.SkipWithError("no ezdxf");
        if (pipe) ::pclose(pipe);
        state.SetIterationTime(seconds * share);
    }
}

/// An export at each size, the usual one among them.
void everySize(benchmark::internal::Benchmark* row) {
    row->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->Arg(usualPoints);
    for (const std::int64_t points : sizes) row->Arg(points);
}

BENCHMARK(vrmlBareLoop)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(vrmlExport)->Apply(everySize);
BENCHMARK(vrmlWatched)->Arg(400000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(vrmlByCoin)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(dxfBareLoop)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(dxfFrontExport)->Apply(everySize);
BENCHMARK(dxfByDxflib)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(dxfByEzdxf)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

}  // namespace

int main(int count, char** arguments) {
    SoDB::init();
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    for (const char* name : {"model.wrl", "bare-model", "coin.wrl", "front.dxf", "bare-front",
                             "dxflib.dxf", "ezdxf.dxf", "ezdxf.py"})
        std::filesystem::remove(scratchFile(name));
}
