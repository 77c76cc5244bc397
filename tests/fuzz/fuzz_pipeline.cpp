// A project with wild numbers: read, then what the program makes of an aircraft, then saved and
// read again. Most inputs stay well-formed projects, since they are changed by the records' fields.
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include "FuzzModel.h"
#include "ProjectMutator.h"
#include "support/WorkThrough.h"

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t most, unsigned seed) {
    return velna::fuzz::mutate(data, size, most, seed, 8);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* one, std::size_t size,
                                                 const std::uint8_t* other, std::size_t otherSize,
                                                 std::uint8_t* out, std::size_t most,
                                                 unsigned seed) {
    std::mt19937 random(seed);
    const std::string_view bytes(reinterpret_cast<const char*>(one), size);
    const std::string_view giver(reinterpret_cast<const char*>(other), otherSize);
    return velna::fuzz::put(velna::fuzz::crossedProjects(bytes, giver, random), out, most);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velna;
    const std::string bytes(data, data + size);
    fuzz::read(bytes);
    if (!fuzz::isSmall(project)) return 0;
    fuzz::workThrough(project, fuzz::Choice::byHash(bytes));
    fuzz::expectRoundTrip();
    fuzz::expectNoLeak();
    return 0;
}
