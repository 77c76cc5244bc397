#include "persistence/WingRecords.h"

#include <utility>

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
void readTwoWings(ValueReader& file, Project& project, void (*read)(ValueReader&, Wing&)) {
    project.nbWings = file.count(1);
    if (project.nbWings == 2) {
        MainWing::addWing(project);
        read(file, project.Wings(1));
        read(file, project.Wings(2));
        return;
    }
    // No program wrote a count above 2; a file that has one gets default wings for the others.
    if (project.nbWings > 2) {
        Wing first = project.Wings(1);
        MainWing::allocateWings(project);
        project.Wings.put(1, std::move(first));
    }
    Wing scratch;
    read(file, project.Wings(1));
    read(file, scratch);
}

}  // namespace

RecordFields<Wing> wingFields() {
    return currentWingRecord;
}

void saveWing(TextSink& file, const Wing& wing) {
    saveRecord<Wing>(file, wingHead, wing, wingFields());
}

void readWing(ValueReader& file, Wing& wing) {
    readRecord<Wing>(file, wing, currentWingRecord);
}

void readWingV101(ValueReader& file, Wing& wing) {
    readRecord<Wing>(file, wing, plainWing);
}

void readWingV0212(ValueReader& file, Wing& wing) {
    readRecord<Wing>(file, wing, wingRecordV0212);
}

namespace MainWing {

namespace {

void saveAirfoil(TextSink& file, const Wing& wing) {
    // An old record may promise more points than there are; a point that is not there is not made
    // up.
    const int count = wing.pointCount();
    file.line(airfoilHead);
    saveInteger(file, count);
    for (int i = 1; i <= count; ++i) {
        saveNumber(file, wing.airfoilPoint(i).x);
        saveNumber(file, wing.airfoilPoint(i).z);
        file.flushIfFull();
    }
}

void readAirfoil(ValueReader& file, Wing& wing) {
    file.line();
    wing.nb = file.count(0);
    wing.allocate();
    for (int i = 1; i <= wing.nb; ++i) {
        file.lookUp();
        wing.airfoilPoint(i).x = file.number();
        wing.airfoilPoint(i).z = file.number();
    }
}

}  // namespace

void saveWings(TextSink& file, const Project& project) {
    saveInteger(file, project.nbWings);
    for (int i = 1; i <= project.nbWings; ++i) saveWing(file, project.Wings(i));
}

void readWings(ValueReader& file, Project& project) {
    project.nbWings = file.count(1);
    allocateWings(project);
    for (int i = 1; i <= project.nbWings; ++i) {
        file.lookUp();
        readWing(file, project.Wings(i));
    }
}

void readWingsV120(ValueReader& file, Project& project) {
    readTwoWings(file, project, readWing);
}

void readWingsV101(ValueReader& file, Project& project) {
    readTwoWings(file, project, readWingV101);
}

void readWingsV0212(ValueReader& file, Project& project) {
    readTwoWings(file, project, readWingV0212);
}

void saveWingAirfoils(TextSink& file, const Project& project) {
    for (int i = 1; i <= project.nbWings; ++i) saveAirfoil(file, project.Wings(i));
}

void readWingAirfoils(ValueReader& file, Project& project) {
    for (int i = 1; i <= project.nbWings; ++i) readAirfoil(file, project.Wings(i));
}

}  // namespace MainWing
}  // namespace velna
