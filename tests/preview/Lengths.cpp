#include "Lengths.h"

#include <functional>
#include <map>

#include "model/Plane.h"

namespace velna::test {

double lengthOf(const std::string& name) {
    static const std::map<std::string, std::function<double()>> lengths = [] {
        std::map<std::string, std::function<double()>> all;
        const std::map<std::string, double SymWingSections::*> panel{
            {"span", &SymWingSections::span},
            {"length1", &SymWingSections::length1},
            {"length2", &SymWingSections::length2},
            {"pos1", &SymWingSections::pos1},
            {"pos2", &SymWingSections::pos2},
            {"elevation1", &SymWingSections::elevation1},
            {"elevation2", &SymWingSections::elevation2},
            {"shift", &SymWingSections::shift}};
        for (const auto& [field, member] : panel) {
            all["Wings(1)." + field] = [member] { return Wings(1).*member; };
            all["Stabilizer." + field] = [member] { return Stabilizer.*member; };
        }
        const std::map<std::string, double VertWingSection::*> fin{
            {"span", &VertWingSection::span},       {"length1", &VertWingSection::length1},
            {"length2", &VertWingSection::length2}, {"pos1", &VertWingSection::pos1},
            {"pos2", &VertWingSection::pos2},       {"offset1", &VertWingSection::offset1},
            {"offset2", &VertWingSection::offset2}, {"shift", &VertWingSection::shift}};
        for (const auto& [field, member] : fin)
            all["Rudder." + field] = [member] { return Rudder.*member; };
        const std::map<std::string, double MeshSections::*> body{
            {"shift", &MeshSections::shift},
            {"pos_offset", &MeshSections::pos_offset},
            {"elevation_offset", &MeshSections::elevation_offset}};
        for (const auto& [field, member] : body)
            all["Fuselages(1)." + field] = [member] { return Fuselages(1).*member; };
        const std::map<std::string, Array1<double> MeshSections::*> sections{
            {"height", &MeshSections::height},
            {"width", &MeshSections::width},
            {"pos", &MeshSections::pos},
            {"elevation", &MeshSections::elevation}};
        for (const auto& [field, member] : sections)
            for (int i = 1; i <= 3; ++i)
                all["Fuselages(1)." + field + "(" + std::to_string(i) + ")"] = [member, i] {
                    return (Fuselages(1).*member)(i);
                };
        const std::map<std::string, double ElectroBox::*> box{
            {"length", &ElectroBox::length},       {"width", &ElectroBox::width},
            {"height", &ElectroBox::height},       {"pos", &ElectroBox::pos},
            {"elevation", &ElectroBox::elevation}, {"shift", &ElectroBox::shift}};
        for (const auto& [field, member] : box)
            all["Equipments(1)." + field] = [member] { return Equipments(1).*member; };
        return all;
    }();
    return lengths.at(name)();
}

std::vector<double> allLengths() {
    std::vector<double> values;
    const auto panel = [&](const SymWingSections& w) {
        for (const double v : {w.span, w.length1, w.length2, w.pos1, w.pos2, w.elevation1,
                               w.elevation2, w.shift, w.thickness1, w.thickness2})
            values.push_back(v);
    };
    for (int i = 1; i <= nbWings; ++i) panel(Wings(i));
    panel(Stabilizer);
    for (const double v : {Rudder.span, Rudder.length1, Rudder.length2, Rudder.pos1, Rudder.pos2,
                           Rudder.offset1, Rudder.offset2, Rudder.shift})
        values.push_back(v);
    for (int i = 1; i <= nbFuselages; ++i) {
        const MeshSections& f = Fuselages(i);
        for (const double v : {f.shift, f.pos_offset, f.elevation_offset}) values.push_back(v);
        for (const auto* array : {&f.height, &f.width, &f.pos, &f.elevation, &f.curvature,
                                  &f.curvature2, &f.bias_curve})
            for (int k = 1; k <= f.nb_sections; ++k) values.push_back((*array)(k));
    }
    for (int i = 1; i <= nbEquipments; ++i) {
        const ElectroBox& b = Equipments(i);
        for (const double v : {b.length, b.width, b.height, b.pos, b.elevation, b.shift, b.weight})
            values.push_back(v);
    }
    return values;
}

}  // namespace velna::test
