// Any bytes as a project: read, work, save, read again, and compare.
#include <cstddef>
#include <cstdint>

#include "FuzzModel.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velna;
    fuzz::read(std::string(data, data + size));
    if (!fuzz::isSmall(project)) return 0;
    solids.createAll(project);
    fuzz::expectRoundTrip();
    return 0;
}
