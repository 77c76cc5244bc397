// Any bytes as an airfoil file on the current wing, as they are and as the Open command prepares
// them.
#include <cstddef>
#include <cstdint>

#include "FuzzModel.h"
#include "persistence/AirfoilFiles.h"

namespace {

void load(const std::string& bytes) {
    using namespace velna;
    resetModel();
    // The normalisation looks across the profile from every point: long files are slow, not wrong.
    if (countAirfoilPoints(bytes) > 500) return;
    try {
        loadAirfoilBytes(project, bytes);
    } catch (const ReadFailure&) {
    }
    ObjectList.update(Fuselages, nbFuselages);
    solids.createAll(project);
    fuzz::expectRoundTrip();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    load(bytes);
    const std::string prepared = velna::prepareAirfoilBytes(bytes);
    if (prepared != bytes) load(prepared);
    return 0;
}
