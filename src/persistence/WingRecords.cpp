#include <memory>

#include "model/MainWing.h"
#include "persistence/RecordFields.h"

namespace velna {

namespace {

using Wing = SymWingSections;
using WingField = RecordField<Wing>;

constexpr std::array<WingField, 11> plainWing{
    &Wing::nb,         &Wing::span,       &Wing::length1, &Wing::length2,
    &Wing::thickness1, &Wing::thickness2, &Wing::pos1,    &Wing::pos2,
    &Wing::elevation1, &Wing::elevation2, &Wing::shift};
constexpr auto currentWingRecord = joined(plainWing, colorFields<Wing>);
// Once the record began with another length, which the span replaces.
constexpr auto wingRecordV0212 = joined(std::array<WingField, 1>{&Wing::span}, plainWing);

constexpr const char* wingHead = "Wing Type";
constexpr const char* airfoilHead = "Airfoil";

/// The block of the formats that knew one wing or two: always two records, whatever the count says.
void readTwoWings(ValueReader& file, void (Wing::*readWing)(ValueReader&)) {
    nbWings = file.count(1);
    if (nbWings == 2) {
        MainWing::addWing();
        (Wings(1).*readWing)(file);
        (Wings(2).*readWing)(file);
        return;
    }
    // No program wrote a count above 2; a file that has one gets default wings for the others.
    if (nbWings > 2) {
        auto first = std::make_unique<Wing>(std::move(Wings(1)));
        MainWing::allocateWings();
        Wings.put(1, std::move(first));
    }
    Wing scratch;
    scratch.init();
    (Wings(1).*readWing)(file);
    (scratch.*readWing)(file);
}

}  // namespace

void SymWingSections::save(ReplacedFile& file) const {
    saveRecord<Wing>(file, wingHead, *this, currentWingRecord);
}

void SymWingSections::read(ValueReader& file) {
    readRecord<Wing>(file, *this, currentWingRecord);
}

void SymWingSections::readV101(ValueReader& file) {
    readRecord<Wing>(file, *this, plainWing);
}

void SymWingSections::readV0212(ValueReader& file) {
    readRecord<Wing>(file, *this, wingRecordV0212);
}

void SymWingSections::save_airfoil(ReplacedFile& file) const {
    // An old record may promise more points than there are; a point that is not there is not made
    // up.
    const int count = pointCount();
    file.line(airfoilHead);
    saveInteger(file, count);
    for (int i = 1; i <= count; ++i) {
        saveNumber(file, airfoil(i).x);
        saveNumber(file, airfoil(i).z);
        file.flushIfFull();
    }
}

void SymWingSections::read_airfoil(ValueReader& file) {
    file.line();
    nb = file.count(0);
    allocate();
    for (int i = 1; i <= nb; ++i) {
        airfoil(i).x = file.number();
        airfoil(i).z = file.number();
    }
}

namespace MainWing {

void saveWings(ReplacedFile& file) {
    saveInteger(file, nbWings);
    for (int i = 1; i <= nbWings; ++i) Wings(i).save(file);
}

void readWings(ValueReader& file) {
    nbWings = file.count(1);
    allocateWings();
    for (int i = 1; i <= nbWings; ++i) Wings(i).read(file);
}

void readWingsV120(ValueReader& file) {
    readTwoWings(file, &Wing::read);
}

void readWingsV101(ValueReader& file) {
    readTwoWings(file, &Wing::readV101);
}

void readWingsV0212(ValueReader& file) {
    readTwoWings(file, &Wing::readV0212);
}

void saveWingAirfoils(ReplacedFile& file) {
    for (int i = 1; i <= nbWings; ++i) Wings(i).save_airfoil(file);
}

void readWingAirfoils(ValueReader& file) {
    for (int i = 1; i <= nbWings; ++i) Wings(i).read_airfoil(file);
}

}  // namespace MainWing
}  // namespace velna
