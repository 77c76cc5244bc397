#include "preview/KeptLengths.h"

#include <algorithm>
#include <cstddef>

#include "model/Plane.h"

namespace velna {
namespace {

constexpr std::array panelFields{&SymWingSections::span,       &SymWingSections::length1,
                                 &SymWingSections::length2,    &SymWingSections::pos1,
                                 &SymWingSections::pos2,       &SymWingSections::elevation1,
                                 &SymWingSections::elevation2, &SymWingSections::shift};

constexpr std::array finFields{&VertWingSection::span,    &VertWingSection::length1,
                               &VertWingSection::length2, &VertWingSection::pos1,
                               &VertWingSection::pos2,    &VertWingSection::offset1,
                               &VertWingSection::offset2, &VertWingSection::shift};

constexpr std::array bodyFields{&MeshSections::shift, &MeshSections::pos_offset,
                                &MeshSections::elevation_offset};

constexpr std::array sectionFields{&MeshSections::height, &MeshSections::width, &MeshSections::pos,
                                   &MeshSections::elevation};

constexpr std::array boxFields{&ElectroBox::length, &ElectroBox::width,     &ElectroBox::height,
                               &ElectroBox::pos,    &ElectroBox::elevation, &ElectroBox::shift};

template <class Object, class Value, std::size_t size>
std::array<Value, size> kept(const Object& object,
                             const std::array<Value Object::*, size>& fields) {
    std::array<Value, size> values;
    for (std::size_t i = 0; i < size; ++i) values[i] = object.*fields[i];
    return values;
}

template <class Object, class Value, std::size_t size>
void putBack(Object& object, const std::array<Value Object::*, size>& fields,
             const std::array<Value, size>& values) {
    for (std::size_t i = 0; i < size; ++i) object.*fields[i] = values[i];
}

/// How many of a list's entries both its counter and `kept` reach.
template <class T, class Kept>
int common(int counter, const OwnedList<T>& list, const Kept& values) {
    return std::min({counter, list.size(), static_cast<int>(values.size())});
}

}  // namespace

KeptLengths::KeptLengths()
    : stabilizer_(kept(Stabilizer, panelFields)), rudder_(kept(Rudder, finFields)) {
    for (int i = 1; i <= std::min<int>(nbWings, Wings.size()); ++i)
        wings_.push_back(kept(Wings(i), panelFields));
    for (int i = 1; i <= std::min<int>(nbFuselages, Fuselages.size()); ++i)
        fuselages_.push_back({kept(Fuselages(i), bodyFields), kept(Fuselages(i), sectionFields)});
    for (int i = 1; i <= std::min<int>(nbEquipments, Equipments.size()); ++i)
        boxes_.push_back(kept(Equipments(i), boxFields));
}

void KeptLengths::restore() const {
    for (int i = 1; i <= common(nbWings, Wings, wings_); ++i)
        putBack(Wings(i), panelFields, wings_[static_cast<std::size_t>(i) - 1]);
    putBack(Stabilizer, panelFields, stabilizer_);
    putBack(Rudder, finFields, rudder_);
    for (int i = 1; i <= common(nbFuselages, Fuselages, fuselages_); ++i) {
        const BodyLengths& body = fuselages_[static_cast<std::size_t>(i) - 1];
        putBack(Fuselages(i), bodyFields, body.whole);
        putBack(Fuselages(i), sectionFields, body.sections);
    }
    for (int i = 1; i <= common(nbEquipments, Equipments, boxes_); ++i)
        putBack(Equipments(i), boxFields, boxes_[static_cast<std::size_t>(i) - 1]);
}

}  // namespace velna
