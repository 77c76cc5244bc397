// A file of solids for a printer beside a bare loop that writes the same bytes. 20 fuselages with
// 100 outline points a section, 400,000 triangles.

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include "Measured.h"
#include "model/SolidParts.h"
#include "output/SolidExport.h"
#include "output/SolidPictures.h"
#include "output/SolidWriters.h"
#include "preview/PictureCopies.h"
#include "support/InHand.h"

namespace {

using namespace velna;

constexpr int fuselages = 20;
constexpr std::int16_t outlinePoints = 100;
constexpr std::int16_t sections = 100;

void buildModel() {
    Plane::setDefaultPlane(project);
    nbFuselages = fuselages;
    Fuselage::resizeFuselages(project);
    for (int n = 1; n <= fuselages; ++n) shapeBody(Fuselages(n), sections, outlinePoints, n);
}

std::string fileNamed(const char* name) {
    return (std::filesystem::temp_directory_path() / name).string();
}

/// The parts, as one run of the command makes them.
const std::vector<SolidPart>& builtParts() {
    static const std::vector<SolidPart> parts = [] {
        buildModel();
        std::vector<SolidPart> found;
        std::vector<RefusedPart> refused;
        (void)forEachSolidPart(
            project, {{CoordinateForm::Single}},
            [&](const SolidPart& part) {
                found.push_back(part);
                return true;
            },
            refused);
        return found;
    }();
    return parts;
}

float* put(float* at, double x, double y, double z) {
    *at++ = static_cast<float>(x);
    *at++ = static_cast<float>(y);
    *at++ = static_cast<float>(z);
    return at;
}

/// Normal and corners of each triangle into blocks, and these into a file: nothing else.
void stlBareLoop(benchmark::State& state) {
    constexpr std::size_t record = 50;
    constexpr std::size_t atOnce = 1310;
    const auto& parts = builtParts();
    std::vector<char> block(atOnce * record);
    for (auto _ : state) {
        const int file = ::open(fileNamed("bare.stl").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
        std::array<char, 84> head{};
        if (::write(file, head.data(), head.size()) < 0) state.SkipWithError("no file");
        for (const SolidPart& part : parts) {
            char* at = block.data();
            for (const Triangle& triangle : part.solid.triangles) {
                const Point3D& a = part.solid.points[triangle[0]];
                const Point3D& b = part.solid.points[triangle[1]];
                const Point3D& c = part.solid.points[triangle[2]];
                const Point3D u{b.x - a.x, b.y - a.y, b.z - a.z};
                const Point3D v{c.x - a.x, c.y - a.y, c.z - a.z};
                const Point3D n{u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z,
                                u.x * v.y - u.y * v.x};
                const double length = std::sqrt(n.x * n.x + n.y * n.y + n.z * n.z);
                float numbers[12];
                float* next = put(numbers, n.x / length, n.y / length, n.z / length);
                for (const Point3D* p : {&a, &b, &c}) next = put(next, p->x, p->y, p->z);
                std::memcpy(at, numbers, sizeof(numbers));
                std::memset(at + sizeof(numbers), 0, record - sizeof(numbers));
                at += record;
                if (at < block.data() + block.size()) continue;
                if (::write(file, block.data(), block.size()) < 0) state.SkipWithError("no file");
                at = block.data();
            }
            const auto left = static_cast<std::size_t>(at - block.data());
            if (::write(file, block.data(), left) < 0) state.SkipWithError("no file");
        }
        ::close(file);
    }
}

/// A file that is put in place whole.
class WholeFile : public ByteSink {
public:
    explicit WholeFile(const std::string& name) : file(name) {}
    void append(std::string_view bytes) override { file.append(bytes); }
    void overwrite(std::size_t at, std::string_view bytes) override { file.overwrite(at, bytes); }
    void fail(const std::string& reason) override { file.fail(reason); }

    ReplacedFile file;
};

/// The same parts by the program's writer.
void stlWrite(benchmark::State& state) {
    const auto& parts = builtParts();
    PictureStore store;
    for (auto _ : state) {
        WholeFile file(fileNamed("written.stl"));
        Work work(nullptr, 0);
        SolidPictures pictures(nullptr);
        ObjMaterials materials(file.file, fileNamed("written"), project, store);
        const auto writer = stlWriter({file, pictures, materials, work});
        for (const SolidPart& part : parts) writer->add(part);
        writer->end();
        if (!file.file.commit()) state.SkipWithError("not written");
    }
}

/// The whole command, from the project's numbers to the file.
void solidExport(benchmark::State& state, const char* name) {
    (void)builtParts();
    PictureStore store;
    const std::string file = fileNamed(name);
    for (auto _ : state) {
        if (!Plane::exportSolids(project, *solidFormatOf(file), {}, file, store).isDone())
            state.SkipWithError("the export failed");
    }
    state.counters["MB_file"] = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
}

BENCHMARK(stlBareLoop)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(stlWrite)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(solidExport, stl, "whole.stl")
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(solidExport, threeMf, "whole.3mf")
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(solidExport, obj, "whole.obj")
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(solidExport, glb, "whole.glb")
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

}  // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    for (const char* name : {"bare.stl", "written.stl", "whole.stl", "whole.3mf", "whole.obj",
                             "whole.mtl", "whole.glb"})
        std::filesystem::remove(fileNamed(name));
}
