// Saving and reading a project of 20 MB beside bare loops over the same numbers, and how both grow.
// A row with a reference works both in turn and gives the ratio of their best times. The file lies
// in memory where the system has such a place, so that the disk, which a synced file waits for, is
// in neither.

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include "Measured.h"
#include "common/NumberText.h"
#include "common/ValueReader.h"
#include "persistence/ProjectFile.h"
#include "preview/PictureCopies.h"
#include "support/InHand.h"

namespace velna {
namespace {

constexpr std::int16_t bodies = 230;
constexpr std::int16_t sections = 1200;
constexpr std::int16_t cross = 12;

/// The time that this process has worked: others on the machine are not in it.
double seconds() {
    timespec now{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void save(const std::string& path) {
    PictureStore pictures;
    if (!Plane::saveProject(project, path, pictures).isDone()) std::abort();
}

void read(const std::string& path) {
    if (!Plane::readProject(project, path).isDone()) std::abort();
}

/// Fuselages as drags leave them: most numbers have all their digits, some few are round.
void makeModel(std::int16_t count, std::int16_t sectionsOfEach) {
    resetModel();
    nbFuselages = count;
    Fuselage::resizeFuselages(project);
    for (int b = 1; b <= count; ++b) {
        MeshSections& body = Fuselages(b);
        body.nb_sections = sectionsOfEach;
        body.nb_cross = cross;
        body.initArrays();
        for (std::int16_t i = 1; i <= sectionsOfEach; ++i) {
            body.sectionOrder(i) = i;
            body.height(i) = 100.0 + i / 7.0;
            body.width(i) = 80.25 + i / 13.0;
            body.pos(i) = 2.0 * i;
            body.elevation(i) = b / 3.0 - i * 0.125;
            body.curvature(i) = 1 + 1.0 / i;
            body.curvature2(i) = 1;
            body.bias_curve(i) = 0.5;
        }
    }
    ObjectList.update(Fuselages, nbFuselages);
}

void makeLargeModel() {
    makeModel(bodies, sections);
}

const std::string& largeFile() {
    static const std::string file = [] {
        std::string path = scratchFile("project");
        makeLargeModel();
        save(path);
        return path;
    }();
    return file;
}

std::vector<double> numbersOf(const std::string& bytes) {
    std::vector<double> numbers;
    ValueReader reader(bytes);
    while (!reader.atEnd()) {
        auto line = reader.line();
        if (const auto number = takeNumber(line)) numbers.push_back(*number);
    }
    return numbers;
}

/// The least that saving must do: every number put into a block by the program's own digits, and
/// the blocks written.
void bareSave(const std::vector<double>& numbers, const std::string& path) {
    constexpr std::size_t size = 1 << 16;
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    std::array<char, size> block{};
    char* end = block.data();
    const auto write = [&] {
        const auto count = static_cast<std::size_t>(end - block.data());
        if (::write(file, block.data(), count) < 0) std::abort();
        end = block.data();
    };
    for (const double number : numbers) {
        end = putNumber(end, number);
        *end++ = '\r';
        *end++ = '\n';
        if (end > block.data() + size - 2 * longestNumber) write();
    }
    write();
    ::close(file);
}

/// The least that reading must do: the file taken into memory, and every number parsed and kept.
void bareRead(const std::string& path, std::vector<double>& numbers) {
    const int file = ::open(path.c_str(), O_RDONLY);
    const auto size = std::filesystem::file_size(path);
    const auto bytes = std::make_unique_for_overwrite<char[]>(size);
    if (::read(file, bytes.get(), size) != static_cast<ssize_t>(size)) std::abort();
    ::close(file);
    const char* at = bytes.get();
    const char* const end = at + size;
    std::size_t count = 0;
    while (at < end) {
        double number = 0;
        at = std::from_chars(at, end, number).ptr;
        numbers[count++] = number;
        while (at < end && *at++ != '\n') {
        }
    }
    benchmark::DoNotOptimize(numbers.data());
}

/// The best times of the work and of its reference, worked in turn, and their ratio.
class Comparison {
public:
    template <class Work, class Reference>
    void round(Work work, Reference reference) {
        const double start = seconds();
        work();
        const double middle = seconds();
        reference();
        best_ = std::min(best_, middle - start);
        bestReference_ = std::min(bestReference_, seconds() - middle);
    }

    /// `scale` is what the reference has to be multiplied by to be of the same size.
    void report(benchmark::State& state, double scale = 1) const {
        state.counters["ms"] = best_ * 1000;
        state.counters["reference_ms"] = bestReference_ * scale * 1000;
        state.counters["ratio"] = best_ / (bestReference_ * scale);
    }

private:
    double best_ = std::numeric_limits<double>::infinity();
    double bestReference_ = std::numeric_limits<double>::infinity();
};

void save(benchmark::State& state) {
    const std::string path = scratchFile("saved");
    const std::string reference = scratchFile("bare");
    const auto numbers = numbersOf(readWholeFile(largeFile()));
    makeLargeModel();
    Comparison comparison;
    for (auto _ : state)
        comparison.round([&] { save(path); }, [&] { bareSave(numbers, reference); });
    comparison.report(state);
    state.counters["MB"] = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
    std::filesystem::remove(path);
    std::filesystem::remove(reference);
}
BENCHMARK(save)->Unit(benchmark::kMillisecond)->Iterations(7);

void read(benchmark::State& state) {
    const auto lines =
        static_cast<std::size_t>(std::ranges::count(readWholeFile(largeFile()), '\n'));
    std::vector<double> numbers(lines + 1);
    Comparison comparison;
    for (auto _ : state) {
        resetModel();
        comparison.round([] { read(largeFile()); }, [&] { bareRead(largeFile(), numbers); });
    }
    if (nbFuselages != bodies) state.SkipWithError("the project was not read");
    comparison.report(state);
}
BENCHMARK(read)->Unit(benchmark::kMillisecond)->Iterations(7);

/// Saving or reading `sections` sections, 100 in each fuselage below the largest size.
void growth(benchmark::State& state, void (*work)(const std::string&)) {
    const std::string path = scratchFile("growth");
    const auto count =
        static_cast<std::int16_t>(std::clamp<std::int64_t>(state.range(0) / 100, 1, bodies));
    makeModel(count, static_cast<std::int16_t>(state.range(0) / count));
    save(path);
    state.counters["MB_above"] = megabytesAbove([&] { work(path); });
    for (auto _ : state) work(path);
    state.counters["points"] = static_cast<double>(state.range(0));
    std::filesystem::remove(path);
}

void threeDecades(benchmark::internal::Benchmark* row) {
    row->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
    for (const std::int64_t size : {276, 2'760, 27'600, 276'000}) row->Arg(size);
}
BENCHMARK_CAPTURE(growth, save, save)->Apply(threeDecades);
BENCHMARK_CAPTURE(growth, read, read)->Apply(threeDecades);

double heapInUse() {
    const auto info = ::mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// What the loaded model holds, and the most that reading needs: the model and the file's bytes.
void readMemory(benchmark::State& state) {
    makeLargeModel();
    resetModel();
    ::malloc_trim(0);
    const double before = heapInUse();
    double after = 0;
    double most = 0;
    for (auto _ : state) {
        {
            const std::string bytes = readWholeFile(largeFile());
            Plane::readProjectBytes(project, bytes);
            most = heapInUse() - before;
        }
        after = heapInUse() - before;
    }
    state.counters["model_MB"] = after / 1e6;
    state.counters["most_MB"] = most / 1e6;
    state.counters["ratio"] = most / after;
}
BENCHMARK(readMemory)->Unit(benchmark::kMillisecond)->Iterations(1);

/// What a tiny file costs that promises as many wings or fuselages as a count can: the limit is
/// 150 MB more than the default aircraft. `fuselages` tells which of the two.
void promised(benchmark::State& state, bool fuselages) {
    makeLargeModel();
    resetModel();
    const std::string path = scratchFile("promised");
    save(path);
    std::string bytes = readWholeFile(path);
    std::filesystem::remove(path);
    bytes.resize(bytes.find(fuselages ? "Fuselage\r\n" : "Wing Type\r\n"));
    bytes.erase(bytes.rfind('\n', bytes.size() - 2) + 1);
    bytes += "32767\r\n";
    ::malloc_trim(0);
    const double before = heapInUse();
    for (auto _ : state) {
        try {
            Plane::readProjectBytes(project, bytes);
        } catch (const ReadFailure&) {
            // It ends where its lines end.
        }
        ObjectList.update(Fuselages, nbFuselages);
        solids.createAll(project);
    }
    if ((fuselages ? nbFuselages : nbWings) != 32767) state.SkipWithError("nothing promised");
    state.counters["points"] = 32767;
    state.counters["more_MB"] = (heapInUse() - before) / 1e6;
    state.counters["limit_MB"] = 150;
}
BENCHMARK_CAPTURE(promised, wings, false)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(promised, fuselages, true)->Unit(benchmark::kMillisecond)->Iterations(1);

/// A file of as many wings as a count can tell, each with its record.
void wingsWithRecords(benchmark::State& state) {
    constexpr std::int16_t most = 32767;
    resetModel();
    nbWings = most;
    MainWing::allocateWings(project);
    for (int i = 1; i <= most; ++i) Wings(i).span = 100 + i / 7.0;
    const std::string path = scratchFile("wings");
    save(path);
    const auto lines = std::ranges::count(readWholeFile(path), '\n');
    std::vector<double> numbers(static_cast<std::size_t>(lines) + 1);
    Comparison comparison;
    for (auto _ : state) {
        resetModel();
        comparison.round([&] { read(path); }, [&] { bareRead(path, numbers); });
    }
    if (nbWings != most) state.SkipWithError("the wings were not read");
    comparison.report(state);
    state.counters["MB"] = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
    std::filesystem::remove(path);
}
BENCHMARK(wingsWithRecords)->Unit(benchmark::kMillisecond)->Iterations(7);

/// The large model as version 1.2 wrote it: two wings, five numbers a section.
std::string legacyBytes() {
    makeLargeModel();
    std::string out = "# VELNA File Format V 1.2.0\r\n2\r\n";
    const auto numbers = [&out](std::initializer_list<double> values) {
        for (const double value : values) {
            appendNumber(out, value);
            out += "\r\n";
        }
    };
    const auto panel = [&] {
        out += "Wing Type\r\n";
        numbers({16, 700, 230, 150, 0.13, 0.13, 180, 10, 50, 0, 0, 200, 200, 200});
    };
    for (int i = 0; i < 3; ++i) panel();
    numbers({bodies});
    for (int b = 1; b <= bodies; ++b) {
        const MeshSections& body = Fuselages(b);
        out += "Fuselage\r\n";
        numbers({sections, cross, 0, 0, 0});
        out += "#FALSE#\r\n#TRUE#\r\n";
        numbers({200, 200, 200});
        for (int i = 1; i <= sections; ++i)
            numbers(
                {body.height(i), body.width(i), body.pos(i), body.elevation(i), body.curvature(i)});
    }
    out += "Rudder\r\n";
    numbers({16, 150, 150, 80, 0.1, 0.1, 650, 100, 0, 0, 30, 200, 200, 200});
    numbers({1});
    out += "ElectroBox\r\n";
    numbers({30, 15, 25, 0, 200, 50, 5, 0, 0});
    return out + "#FALSE#\r\n";
}

double lineCount(const std::string& bytes) {
    return static_cast<double>(std::ranges::count(bytes, '\n'));
}

/// The current file with the same numbers: the two that the old one lacks are the round ones, so
/// the sections carry the old five numbers and two more of the same kind.
std::string currentBytes() {
    makeLargeModel();
    for (int b = 1; b <= bodies; ++b) {
        MeshSections& body = Fuselages(b);
        body.curvature2 = body.curvature;
        body.bias_curve = body.height;
    }
    const std::string path = scratchFile("current");
    save(path);
    std::string bytes = readWholeFile(path);
    std::filesystem::remove(path);
    return bytes;
}

void readLegacy(benchmark::State& state) {
    const std::string legacy = legacyBytes();
    const std::string current = currentBytes();
    Comparison comparison;
    for (auto _ : state) {
        comparison.round(
            [&] {
                resetModel();
                if (!Plane::readProjectBytes(project, legacy)) state.SkipWithError("refused");
            },
            [&] {
                resetModel();
                Plane::readProjectBytes(project, current);
            });
    }
    comparison.report(state, lineCount(legacy) / lineCount(current));
}
BENCHMARK(readLegacy)->Unit(benchmark::kMillisecond)->Iterations(7);

}  // namespace
}  // namespace velna

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::filesystem::remove(velna::largeFile());
}
