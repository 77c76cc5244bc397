#include "model/Solids.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

#include "common/TwoThreads.h"
#include "model/MeshSections.h"

namespace velna {
namespace {

/// Calls `visit(solid, part)` for each part that has a solid.
template <class Visit>
void forEachSolid(Solids& solids, const Project& project, Visit visit) {
    project.Fuselages.forEachDistinct(
        project.nbFuselages, [&](int i) { return project.ObjectList.shown(i); },
        [&](int i, const MeshSections& body) { visit(solids.fuselages(i), body); });
    project.Wings.forEachDistinct(
        project.nbWings, [&](int i, const SymWingSections& wing) { visit(solids.wings(i), wing); });
    visit(solids.stabilizer, project.Stabilizer);
    visit(solids.rudder, project.Rudder);
    project.Equipments.forEachDistinct(project.nbEquipments, [&](int i, const ElectroBox& box) {
        visit(solids.equipments(i), box);
    });
}

/// A solid that is to be built, in parts that may be built at the same time.
struct Build {
    int parts;
    std::size_t points;  ///< of each part
    std::function<void(int first, int last)> build;
    std::function<void()> note;

    std::size_t size() const { return static_cast<std::size_t>(parts) * points; }
    /// How many parts begin within the first `reach` points.
    int partsWithin(std::size_t reach) const {
        return static_cast<int>((std::min(reach, size()) + points - 1) / points);
    }
};

int pointsOf(const SymWingSections& wing) {
    return 2 * wing.pointCount();
}

int pointsOf(const VertWingSection& fin) {
    return fin.nb;
}

int pointsOf(const ElectroBox& /*box*/) {
    return 1;
}

template <class Solid, class Part>
Build buildOf(Solid& solid, const Part& part) {
    return {1, static_cast<std::size_t>(std::max(pointsOf(part), 1)),
            [&solid, &part](int /*first*/, int /*last*/) { solid.create(part); },
            [&solid, &part] { solid.builtFrom.note(part); }};
}

Build buildOf(BodySolid& solid, const MeshSections& body) {
    const int sections = solid.prepare(body);
    return {sections, static_cast<std::size_t>(std::max<int>(body.nb_cross, 1)),
            [&solid, &body](int first, int last) { solid.buildSections(body, first, last); },
            [&solid, &body] { solid.builtFrom.note(body); }};
}

/// Builds what begins from point `from` up to point `to` of all, counted one solid after the other.
void buildBetween(const std::vector<Build>& builds, std::size_t from, std::size_t to) {
    std::size_t begin = 0;
    for (const Build& solid : builds) {
        const auto behind = [begin](std::size_t point) {
            return point < begin ? 0 : point - begin;
        };
        const int first = solid.partsWithin(behind(from)) + 1;
        const int last = solid.partsWithin(behind(to));
        if (first <= last) solid.build(first, last);
        begin += solid.size();
    }
}

/// Rebuilds the solids for which `wanted(solid, part)`.
template <class Wanted>
void rebuild(Solids& solids, const Project& project, Wanted wanted) {
    std::vector<Build> builds;
    std::size_t points = 0;
    forEachSolid(solids, project, [&](auto& solid, const auto& part) {
        if (!wanted(solid, part)) return;
        solid.builtFrom.forget();
        points += builds.emplace_back(buildOf(solid, part)).size();
    });
    const std::size_t half = points > workForTwoThreads ? points / 2 : points;
    inTwoThreads(
        points, [&] { buildBetween(builds, 0, half); },
        [&] { buildBetween(builds, half, points); });
    for (const Build& solid : builds) solid.note();
}

}  // namespace

void Solids::createAll(const Project& project) {
    rebuild(*this, project, [](const auto&, const auto&) { return true; });
}

void Solids::update(const Project& project) {
    rebuild(*this, project,
            [](const auto& solid, const auto& part) { return !solid.builtFrom.standsFor(part); });
}

}  // namespace velna
