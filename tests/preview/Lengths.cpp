#include "Lengths.h"

#include <functional>
#include <map>

#include "support/InHand.h"

namespace velna::test {

namespace {

const std::map<std::string, double SymWingSections::*> panelLengths{
    {"span", &SymWingSections::span},
    {"length1", &SymWingSections::length1},
    {"length2", &SymWingSections::length2},
    {"pos1", &SymWingSections::pos1},
    {"pos2", &SymWingSections::pos2},
    {"elevation1", &SymWingSections::elevation1},
    {"elevation2", &SymWingSections::elevation2},
    {"shift", &SymWingSections::shift}};
const std::map<std::string, double VertWingSection::*> finLengths{
    {"span", &VertWingSection::span},       {"length1", &VertWingSection::length1},
    {"length2", &VertWingSection::length2}, {"pos1", &VertWingSection::pos1},
    {"pos2", &VertWingSection::pos2},       {"offset1", &VertWingSection::offset1},
    {"offset2", &VertWingSection::offset2}, {"shift", &VertWingSection::shift}};
const std::map<std::string, double MeshSections::*> bodyLengths{
    {"shift", &MeshSections::shift},
    {"pos_offset", &MeshSections::pos_offset},
    {"elevation_offset", &MeshSections::elevation_offset}};
const std::map<std::string, Array1<double> MeshSections::*> sectionLengths{
    {"height", &MeshSections::height},
    {"width", &MeshSections::width},
    {"pos", &MeshSections::pos},
    {"elevation", &MeshSections::elevation}};
const std::map<std::string, double ElectroBox::*> boxLengths{
    {"length", &ElectroBox::length},       {"width", &ElectroBox::width},
    {"height", &ElectroBox::height},       {"pos", &ElectroBox::pos},
    {"elevation", &ElectroBox::elevation}, {"shift", &ElectroBox::shift}};

}  // namespace

double lengthOf(const std::string& name) {
    static const std::map<std::string, std::function<double()>> lengths = [] {
        std::map<std::string, std::function<double()>> all;
        for (const auto& [field, member] : panelLengths) {
            all["Wings(1)." + field] = [member] { return Wings(1).*member; };
            all["Stabilizer." + field] = [member] { return Stabilizer.*member; };
        }
        for (const auto& [field, member] : finLengths)
            all["Rudder." + field] = [member] { return Rudder.*member; };
        for (const auto& [field, member] : bodyLengths)
            all["Fuselages(1)." + field] = [member] { return Fuselages(1).*member; };
        for (const auto& [field, member] : sectionLengths)
            for (int i = 1; i <= 3; ++i)
                all["Fuselages(1)." + field + "(" + std::to_string(i) + ")"] = [member, i] {
                    return (Fuselages(1).*member)(i);
                };
        for (const auto& [field, member] : boxLengths)
            all["Equipments(1)." + field] = [member] { return Equipments(1).*member; };
        return all;
    }();
    return lengths.at(name)();
}

}  // namespace velna::test
