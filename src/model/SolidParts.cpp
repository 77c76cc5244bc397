#include "model/SolidParts.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "model/MeshSections.h"
#include "model/PartLofts.h"

namespace velna {
namespace {

/// What the two of a pair are called.
struct PairNames {
    const char* first;
    const char* second;
};
constexpr PairNames halves{" left", " right"};
constexpr PairNames twins{"", " mirrored"};

template <class Part>
PartSkin skinOf(const Part& part, const std::string& picture, const std::string& title, bool turned,
                bool repeat) {
    PartSkin skin{part.color(), picture, title, turned, repeat};
    if (!picture.empty())
        skin.places = [&part](int width, int height) { return placesOf(part, width, height); };
    return skin;
}

PartSkin skinOf(const SymWingSections& panel) {
    return skinOf(panel, panel.texture_filename(), panel.qualified_texture_filename, true, false);
}

PartSkin skinOf(const VertWingSection& fin) {
    return skinOf(fin, fin.texture_filename, fin.qualified_texture_filename, false, false);
}

PartSkin skinOf(const MeshSections& body) {
    return skinOf(body, body.texture_filename, body.qualified_texture_filename, false, true);
}

PartSkin skinOf(const ElectroBox& box) {
    return {box.kindColor()};
}

/// A panel that stands for itself.
struct Panel {
    int number;
    const SymWingSections& panel;
    Loft loft;
    ClosedSolid solid;
};

/// The aircraft's parts, one after the other.
class Parts {
public:
    Parts(const Project& project, const PartsOrder& order,
          const std::function<bool(const SolidPart&)>& visit, std::vector<RefusedPart>& refused)
        : project_(project),
          order_(order),
          visit_(visit),
          refused_(refused),
          unit_(project.units == inches ? Plane::millimetresPerInch : 1) {}

    bool run() {
        return wings() && single("stabilizer", project_.Stabilizer, &halves) && fin() &&
               fuselages() && (!order_.electronics || boxes());
    }

private:
    bool wings();
    bool fin();
    bool fuselages();
    bool boxes();
    bool continues(const Panel& inner, const Panel& outer) const;
    bool addGroup(std::vector<Panel>& group);
    bool addPanel(Panel& panel);
    bool addPair(SolidPart& part, const PairNames* pair);
    void refuse(const std::string& name, const std::string& why, const PairNames* pair);
    template <class Part>
    bool single(const std::string& name, const Part& part, const PairNames* pair);

    const Project& project_;
    const PartsOrder& order_;
    const std::function<bool(const SolidPart&)>& visit_;
    std::vector<RefusedPart>& refused_;
    double unit_;
    SolidPart single_;  ///< the last part of one loft
};

void Parts::refuse(const std::string& name, const std::string& why, const PairNames* pair) {
    refused_.push_back({pair ? name + pair->first : name, why});
    if (pair) refused_.push_back({name + pair->second, why});
}

/// The part, and its mirror image where it is one of a pair.
bool Parts::addPair(SolidPart& part, const PairNames* pair) {
    const std::string name = part.name;
    if (pair) part.name = name + pair->first;
    if (!visit_(part)) return false;
    if (!pair) return true;
    part.name = name + pair->second;
    part.solid.mirror();
    return visit_(part);
}

/// A part of one loft and one skin.
template <class Part>
bool Parts::single(const std::string& name, const Part& part, const PairNames* pair) {
    Loft loft;
    Outcome built = loftOf(part, unit_, loft);
    if (built.isDone()) built = buildSolid(loft, order_.solid, single_.solid);
    if (built.isCancelled()) return false;
    if (built.hasFailed()) {
        refuse(name, built.reason(), pair);
        return true;
    }
    loft = {};
    single_.name = name;
    single_.skins = {skinOf(part)};
    single_.skins.front().end = single_.solid.triangles.size();
    return addPair(single_, pair);
}

/// Whether the outer panel's root is the inner one's tip.
bool Parts::continues(const Panel& inner, const Panel& outer) const {
    constexpr double alike = 1e-6;  // millimetres
    const std::size_t n = inner.loft.sectionPoints;
    const bool onward = (inner.panel.span > 0) == (outer.panel.span > 0);
    if (order_.cut || !onward || outer.loft.sectionPoints != n) return false;
    return std::equal(inner.loft.points.begin() + static_cast<std::ptrdiff_t>(n),
                      inner.loft.points.end(), outer.loft.points.begin(),
                      [](const Point3D& a, const Point3D& b) {
                          return std::abs(a.x - b.x) < alike && std::abs(a.y - b.y) < alike &&
                                 std::abs(a.z - b.z) < alike;
                      });
}

bool Parts::addPanel(Panel& panel) {
    SolidPart part{
        "wing " + std::to_string(panel.number), std::move(panel.solid), {skinOf(panel.panel)}};
    part.skins.front().end = part.solid.triangles.size();
    return addPair(part, &halves);
}

/// Panels that continue each other as one part, without the faces between them.
bool Parts::addGroup(std::vector<Panel>& group) {
    if (group.empty()) return true;
    std::vector<Panel> panels = std::exchange(group, {});
    if (panels.size() == 1) return addPanel(panels.front());
    const std::size_t n = panels.front().loft.sectionPoints;
    SolidPart part{"wing " + std::to_string(panels.front().number) + "-" +
                       std::to_string(panels.back().number),
                   {},
                   {}};
    Loft loft = panels.front().loft;
    for (std::size_t i = 1; i < panels.size(); ++i) {
        loft.points.insert(loft.points.end(),
                           panels[i].loft.points.begin() + static_cast<std::ptrdiff_t>(n),
                           panels[i].loft.points.end());
    }
    const Outcome built = buildSolid(loft, order_.solid, part.solid);
    if (built.isCancelled()) return false;
    if (built.hasFailed())
        return std::ranges::all_of(panels, [this](Panel& panel) { return addPanel(panel); });
    for (std::size_t i = 0; i < panels.size(); ++i) {
        PartSkin skin = skinOf(panels[i].panel);
        skin.first = part.solid.bays[i];
        skin.end = part.solid.bays[i + 1];
        skin.firstSource = static_cast<std::uint32_t>(i * n);
        const bool same = !part.skins.empty() && skin.picture.empty() &&
                          part.skins.back().picture.empty() &&
                          part.skins.back().color == skin.color;
        same ? void(part.skins.back().end = skin.end) : part.skins.push_back(std::move(skin));
    }
    return addPair(part, &halves);
}

bool Parts::wings() {
    std::vector<Panel> group;
    for (int i = 1; i <= project_.nbWings; ++i) {
        Panel panel{i, project_.Wings(i), {}, {}};
        Outcome built = loftOf(panel.panel, unit_, panel.loft);
        if (built.isDone()) built = buildSolid(panel.loft, order_.solid, panel.solid);
        if (built.isCancelled()) return false;
        const bool alone = built.hasFailed() || group.empty() || !continues(group.back(), panel);
        if (alone && !addGroup(group)) return false;
        if (built.hasFailed()) {
            refuse("wing " + std::to_string(i), built.reason(), &halves);
        } else {
            group.push_back(std::move(panel));
        }
    }
    return addGroup(group);
}

bool Parts::fin() {
    return single("fin", project_.Rudder, project_.Rudder.mirrored() ? &twins : nullptr);
}

bool Parts::fuselages() {
    for (int i = 1; i <= project_.nbFuselages; ++i) {
        const MeshSections& body = project_.Fuselages(i);
        const PairNames* pair = body.shift != 0 ? &twins : nullptr;
        if (!single("fuselage " + std::to_string(i), body, pair)) return false;
    }
    return true;
}

bool Parts::boxes() {
    for (int i = 1; i <= project_.nbEquipments; ++i) {
        const ElectroBox& box = project_.Equipments(i);
        const char* kind = box.box == BoxKind::receiver      ? "receiver "
                           : box.box == BoxKind::accumulator ? "accumulator "
                                                             : "servo ";
        if (!single(kind + std::to_string(i), box, nullptr)) return false;
    }
    return true;
}

}  // namespace

Outcome forEachSolidPart(const Project& project, const PartsOrder& order,
                         const std::function<bool(const SolidPart&)>& visit,
                         std::vector<RefusedPart>& refused) {
    return Parts(project, order, visit, refused).run() ? Outcome() : Outcome::cancelled();
}

long long solidPoints(const Project& project) {
    long long points = 4LL * project.Stabilizer.pointCount();
    points += 2LL * std::max<int>(project.Rudder.nb, 0) * (project.Rudder.mirrored() ? 2 : 1);
    for (int i = 1; i <= project.nbWings; ++i) points += 4LL * project.Wings(i).pointCount();
    for (int i = 1; i <= project.nbFuselages; ++i) {
        const MeshSections& body = project.Fuselages(i);
        points += static_cast<long long>(body.sectionCount()) * std::max<int>(body.nb_cross, 0) *
                  (body.shift != 0 ? 2 : 1);
    }
    return points;
}

}  // namespace velna
