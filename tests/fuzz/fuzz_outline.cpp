// Any bytes as an airfoil file in one of the usual orders; and, as far as they are one, as the
// number of a NACA section. What is taken has finite points in a panel's order, as many as a panel
// holds, and a saved project keeps it.
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "FuzzModel.h"
#include "model/NacaSection.h"
#include "persistence/OutlineFiles.h"

namespace {

using velna::AirfoilOutline::Points;

void expect(bool holds, const char* what) {
    if (!holds) velna::fuzz::broken(what);
}

void take(const Points& outline) {
    using namespace velna;
    double area = 0;
    Point2D before = outline.back();
    expect(outline.size() >= 3 && outline.size() <= 32767, "a number of points of no panel");
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point2D& point = outline[i];
        expect(std::isfinite(point.x) && std::isfinite(point.y), "a point that is not finite");
        expect(i == 0 || !(point == before), "a point that comes twice in a row");
        area += before.x * point.y - point.x * before.y;
        before = point;
    }
    expect(area < 0, "the upper side first");
    resetModel();
    try {
        AirfoilOutline::putOnWing(project, outline, true);
    } catch (const ReadFailure&) {
        return;  // a plate
    }
    const SymWingSections& wing = Wings(currentWing);
    expect(wing.thickness1 > 0 && wing.thickness1 <= 1.1, "a thickness of no wing");
    for (int i = 1; i <= wing.nb; ++i)
        expect(std::isfinite(wing.airfoilPoint(i).z), "a height that is not finite");
    ObjectList.update(Fuselages, nbFuselages);
    solids.createAll(project);
    fuzz::expectRoundTrip();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    try {
        take(velna::readOutlineBytes(bytes));
    } catch (const velna::ReadFailure&) {
    }
    try {
        const auto digits = velna::NacaSection::number(bytes);
        take(velna::NacaSection::outline(digits, 9 + static_cast<int>(bytes.back() % 60),
                                         bytes.front() % 2 == 0));
    } catch (const velna::ReadFailure&) {
    }
    return 0;
}
