#pragma once

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include "model/MeshSections.h"

namespace velna {

/// A place for a file that lies in memory where the system has such a folder: the disk is not what
/// is measured.
inline std::string scratchFile(const std::string& name) {
    static const std::string folder = std::filesystem::is_directory("/dev/shm")
                                          ? "/dev/shm/"
                                          : std::filesystem::temp_directory_path().string() + "/";
    return folder + "velna-bench-" + std::to_string(::getpid()) + "-" + name;
}

/// What /proc tells of this process in bytes: "VmRSS:" now, "VmHWM:" at its highest since the last
/// reset.
inline double memoryOf(std::string_view name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(name)) return 1024.0 * std::atof(line.c_str() + name.size());
    return 0;
}

/// The megabytes that a piece of work takes on top of what stood before it, at most. It is worked
/// once for them, outside of what is timed: to have the highest mark set back costs a walk over
/// all pages.
template <class Work>
double megabytesAbove(Work work) {
    ::malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << "5";
    const double before = memoryOf("VmRSS:");
    work();
    return (memoryOf("VmHWM:") - before) / 1e6;
}

/// A fuselage of this size as drags leave one: most numbers have all their digits.
inline void shapeBody(MeshSections& body, std::int16_t sections, std::int16_t cross, double more) {
    body.nb_sections = sections;
    body.nb_cross = cross;
    body.initArrays();
    for (std::int16_t i = 1; i <= sections; ++i) {
        body.sectionOrder(i) = i;
        body.pos(i) = 1.7 * i / (sections / 500.0);
        body.width(i) = 40 + 0.037 * i / (sections / 500.0) + more;
        body.height(i) = 50 + 0.041 * i / (sections / 500.0);
        body.elevation(i) = 10 + 0.013 * i / (sections / 500.0);
        body.curvature(i) = 0.9;
        body.curvature2(i) = 0.8;
        body.bias_curve(i) = 0.45;
    }
}

}  // namespace velna
