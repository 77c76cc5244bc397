#pragma once

#include <array>
#include <string>
#include <vector>

namespace velna::test {

/// A body as a file holds it.
struct FileBody {
    std::string name;
    std::vector<std::array<double, 3>> points;
    std::vector<std::array<std::size_t, 3>> faces;
    std::string unit;  ///< where the file tells one
};

// The bodies of a file, read by its own words alone; what breaks the format fails the test.
std::vector<FileBody> readStl(const std::string& bytes);
std::vector<FileBody> readObj(const std::string& bytes);
std::vector<FileBody> readThreeMf(const std::string& bytes);
std::vector<FileBody> readGlb(const std::string& bytes);
/// The same for a file of any of the four, by its extension.
std::vector<FileBody> readSolids(const std::string& file);

/// The description in a binary glTF.
std::string jsonOfGlb(const std::string& bytes);

/// What is wrong with a body, points known by their coordinates: an edge that is not used once in
/// each direction (as often in both, where bodies without names lie together), a face with two
/// equal corners, a coordinate that is no number, a volume that is not positive. Empty for a closed
/// solid.
std::string flawOf(const FileBody& body);

double volumeOf(const FileBody& body);

}  // namespace velna::test
