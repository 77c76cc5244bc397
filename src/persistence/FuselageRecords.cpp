#include "persistence/FuselageRecords.h"

#include <utility>

#include "model/Fuselage.h"
#include "model/SectionArrays.h"
#include "persistence/RecordFields.h"

namespace velna {

namespace {

using Body = MeshSections;
using BodyField = RecordField<Body>;
using SectionArray = Array1<double> Body::*;

// The two counts come first in every version.
constexpr std::size_t countFields = 2;
constexpr std::array<BodyField, countFields> counts{&Body::nb_sections, &Body::nb_cross};
constexpr auto bodyV030 = joined(counts, std::array<BodyField, 2>{&Body::shift, &Body::pos_offset});
constexpr auto bodyV101 = joined(
    bodyV030,
    std::array<BodyField, 3>{&Body::elevation_offset, &Body::transparent, &Body::uniqueCurvature});
constexpr auto bodyV120 = joined(bodyV101, colorFields<Body>);
constexpr auto currentBody =
    joined(joined(bodyV101, std::array<BodyField, 1>{&Body::linkedCurvatures}), colorFields<Body>);
constexpr auto bodyV0212 = joined(counts, std::array<BodyField, 2>{&Body::shift, &Body::cut});
// The oldest body had one exponent, which has no field any more: it comes in through the scratch
// one.
constexpr auto bodyV026 =
    joined(counts, std::array<BodyField, 3>{&Body::curv, &Body::shift, &Body::cut});

constexpr std::span<const SectionArray> allArrays(sectionArrays);

/// What a version's record holds: the fixed lines, then for each section a line for each array.
struct BodyRecord {
    RecordFields<Body> fields;
    std::span<const SectionArray> arrays;
    bool alikeHalves = true;    ///< the two halves of a section had one exponent
    bool oneCurvature = false;  ///< all sections had one exponent
};

constexpr BodyRecord recordCurrent{currentBody, allArrays, false};
constexpr BodyRecord recordV120{bodyV120, allArrays.first(5)};
constexpr BodyRecord recordV101{bodyV101, allArrays.first(5)};
constexpr BodyRecord recordV030{bodyV030, allArrays.first(5)};
constexpr BodyRecord recordV0212{bodyV0212, allArrays.first(5)};
constexpr BodyRecord recordV026{bodyV026, allArrays.first(4), true, true};

constexpr const char* bodyHead = "Fuselage";

long long meshSize(const Body& body) {
    return static_cast<long long>(body.nb_sections) * body.nb_cross;
}

/// Sizes the arrays, and puts the sections in order: they stand in a file as the user sees them.
void fitArrays(Body& body) {
    body.initArrays();
    for (int i = 1; i <= body.nb_sections; ++i) body.sectionOrder(i) = static_cast<std::int16_t>(i);
}

/// The counts of `body`; on every way out its mesh is within `room`.
void readCounts(ValueReader& file, Body& body, RecordFields<Body> fields, long long room) {
    const auto sections = body.nb_sections;
    const auto cross = body.nb_cross;
    const auto withinRoom = [&] {
        if (meshSize(body) <= room) return true;
        body.nb_sections = sections;
        body.nb_cross = cross;
        return false;
    };
    try {
        readFields<Body>(file, body, fields.first(countFields));
    } catch (const ReadFailure&) {
        withinRoom();
        throw;
    }
    if (!withinRoom()) throw ReadFailure("a mesh too large");
}

/// The fixed lines. Where they are cut, the arrays fit the counts that were read.
void readFixedLines(ValueReader& file, Body& body, const BodyRecord& record, long long room) {
    try {
        file.line();
        readCounts(file, body, record.fields, room);
        readFields<Body>(file, body, record.fields.subspan(countFields));
    } catch (const ReadFailure&) {
        fitArrays(body);
        throw;
    }
    fitArrays(body);
}

void readBody(ValueReader& file, Body& body, const BodyRecord& record,
              long long room = Plane::largestMesh) {
    readFixedLines(file, body, record, room);
    const double formerCurvature = std::exchange(body.curv, 0);
    for (int i = 1; i <= body.nb_sections; ++i) {
        file.lookUp();
        for (const auto array : record.arrays) (body.*array)(i) = file.number();
        if (record.oneCurvature) body.curvature(i) = formerCurvature;
    }
    if (record.alikeHalves) body.fillCurvatureArrays();
}

/// The fuselages of a file share one allowance of mesh points, so that no count in it can ask for
/// more memory than there is.
void readBodies(ValueReader& file, Project& project, const BodyRecord& record) {
    project.nbFuselages = file.count(1);
    project.Fuselages.fill(project.nbFuselages, Body(project.units, project.defaultColor));
    long long room = Plane::largestMesh;
    for (int i = 1; i <= project.nbFuselages; ++i) {
        Body& body = project.Fuselages(i);
        readBody(file, body, record, room);
        room -= meshSize(body);
    }
}

/// The block of the formats that knew one fuselage and no count.
void readOnlyBody(ValueReader& file, Project& project, const BodyRecord& record) {
    project.nbFuselages = 1;
    Fuselage::resizeFuselages(project);
    readBody(file, project.Fuselages(1), record);
}

}  // namespace

namespace Fuselage {

namespace {

void saveBody(TextSink& file, const Body& body) {
    saveRecord<Body>(file, bodyHead, body, bodyFields());
    for (int i = 1; i <= body.nb_sections; ++i) {
        const int k = body.storageIndex(i);
        char lines[allArrays.size() * longestNumberLine];
        char* end = lines;
        for (const auto array : sectionArrays) end = putNumberLine(end, (body.*array)(k));
        file.buffer().append(lines, end);
        file.flushIfFull();
    }
}

}  // namespace

RecordFields<Body> bodyFields() {
    return currentBody;
}

void saveFuselages(TextSink& file, const Project& project) {
    saveInteger(file, project.nbFuselages);
    for (int i = 1; i <= project.nbFuselages; ++i) saveBody(file, project.Fuselages(i));
}

void readFuselages(ValueReader& file, Project& project) {
    readBodies(file, project, recordCurrent);
}

void readFuselagesV120(ValueReader& file, Project& project) {
    readBodies(file, project, recordV120);
}

void readFuselagesV101(ValueReader& file, Project& project) {
    readBodies(file, project, recordV101);
}

void readFuselagesV030(ValueReader& file, Project& project) {
    readBodies(file, project, recordV030);
}

void readFuselageV0212(ValueReader& file, Project& project) {
    readOnlyBody(file, project, recordV0212);
}

void readFuselageV026(ValueReader& file, Project& project) {
    readOnlyBody(file, project, recordV026);
}

}  // namespace Fuselage
}  // namespace velna
