#include "persistence/TailRecords.h"

#include "model/VertWingSection.h"
#include "persistence/RecordFields.h"

namespace velna {

namespace {

using Fin = VertWingSection;
using FinField = RecordField<Fin>;

constexpr std::array<FinField, 8> finShape{&Fin::nb,      &Fin::span,       &Fin::length1,
                                           &Fin::length2, &Fin::thickness1, &Fin::thickness2,
                                           &Fin::pos1,    &Fin::pos2};
constexpr auto plainFin =
    joined(finShape, std::array<FinField, 3>{&Fin::offset1, &Fin::offset2, &Fin::shift});
constexpr auto currentFin = joined(plainFin, colorFields<Fin>);
// Once the record began with another length, which the span replaces.
constexpr std::array<FinField, 1> formerLength{&Fin::span};
constexpr auto finV030 = joined(formerLength, plainFin);
// Two lines of an older meaning stand where the offsets came to stand; a twin fin was not known
// yet.
constexpr auto finV0212 =
    joined(joined(formerLength, finShape),
           std::array<FinField, 3>{DroppedNumber{}, DroppedNumber{}, &Fin::shift});

constexpr const char* finHead = "Rudder";

}  // namespace

RecordFields<Fin> finFields() {
    return currentFin;
}

void saveFin(TextSink& file, const Fin& fin) {
    saveRecord<Fin>(file, finHead, fin, finFields());
}

void readFin(ValueReader& file, Fin& fin) {
    readRecord<Fin>(file, fin, currentFin);
}

void readFinV101(ValueReader& file, Fin& fin) {
    readRecord<Fin>(file, fin, plainFin);
}

void readFinV030(ValueReader& file, Fin& fin) {
    readRecord<Fin>(file, fin, finV030);
}

void readFinV0212(ValueReader& file, Fin& fin) {
    readRecord<Fin>(file, fin, finV0212);
}

}  // namespace velna
