#include "persistence/ProjectFormats.h"

#include <array>

#include "common/ValueReader.h"
#include "model/SymWingSections.h"
#include "persistence/FuselageRecords.h"
#include "persistence/TailRecords.h"
#include "persistence/WingRecords.h"

namespace velna {

namespace {

constexpr ProjectFormat refused{nullptr, nullptr, nullptr, nullptr, LastBlock::equipment};
constexpr ProjectFormat formatV0212{MainWing::readWingsV0212, readWingV0212,
                                    Fuselage::readFuselageV0212, readFinV0212,
                                    LastBlock::equipment};
constexpr ProjectFormat formatV026{MainWing::readWingsV0212, readWingV0212,
                                   Fuselage::readFuselageV026, readFinV0212, LastBlock::equipment};
constexpr ProjectFormat formatV030{MainWing::readWingsV0212, readWingV0212,
                                   Fuselage::readFuselagesV030, readFinV030, LastBlock::equipment};
constexpr ProjectFormat formatV101{MainWing::readWingsV101, readWingV101,
                                   Fuselage::readFuselagesV030, readFinV101, LastBlock::equipment};
constexpr ProjectFormat formatV110{MainWing::readWingsV101, readWingV101,
                                   Fuselage::readFuselagesV101, readFinV101, LastBlock::unit};
constexpr ProjectFormat formatV120{MainWing::readWingsV120, readWing, Fuselage::readFuselagesV120,
                                   readFin, LastBlock::unit};
constexpr ProjectFormat formatV130{MainWing::readWingsV120, readWing, Fuselage::readFuselages,
                                   readFin, LastBlock::unit};
constexpr ProjectFormat formatV160{MainWing::readWingsV120, readWing, Fuselage::readFuselages,
                                   readFin, LastBlock::list};
constexpr ProjectFormat formatV170{MainWing::readWingsV120, readWing, Fuselage::readFuselages,
                                   readFin, LastBlock::airfoils};
constexpr ProjectFormat currentFormat{
    MainWing::readWings, readWing, Fuselage::readFuselages, readFin, LastBlock::textures, true};

enum class Place { anywhere, atEnd };

/// A text that a first line is tested for. The point stands for itself.
struct VersionPattern {
    std::string_view text;
    Place place;
    const ProjectFormat& format;
};

/// In the order of the tests: the first that matches decides, so 0.2.12 stands before 0.2,
/// and 1.0.0 before 1.0. Three versions count only at the line's end: what follows them has another
/// format.
constexpr std::array<VersionPattern, 17> patterns{{
    {"V0.1", Place::anywhere, refused},
    {"0.2.12", Place::anywhere, formatV0212},
    {"V 0.2", Place::anywhere, formatV026},
    {"0.3.0", Place::anywhere, formatV030},
    {"0.3.1", Place::anywhere, formatV101},
    {"1.0.0", Place::anywhere, formatV101},
    {"1.0.", Place::anywhere, formatV110},
    {"1.1.", Place::anywhere, formatV110},
    {"1.2.", Place::anywhere, formatV120},
    {"1.3.", Place::anywhere, formatV130},
    {"1.4.", Place::anywhere, formatV130},
    {"1.5.", Place::anywhere, formatV130},
    {"1.6.0", Place::atEnd, formatV160},
    {"1.6.1", Place::atEnd, formatV160},
    {"1.6.2", Place::atEnd, formatV160},
    {"1.7.", Place::anywhere, formatV170},
    {"", Place::anywhere, currentFormat},
}};

bool matches(std::string_view line, const VersionPattern& pattern) {
    if (pattern.place == Place::atEnd) return line.ends_with(pattern.text);
    return line.find(pattern.text) != std::string_view::npos;
}

}  // namespace

const ProjectFormat& formatOf(std::string_view firstLine) {
    const auto* pattern = patterns.data();
    while (!matches(firstLine, *pattern)) ++pattern;
    return pattern->format;
}

bool holdsFirstWing(std::string_view bytes) {
    try {
        ValueReader file(bytes);
        const ProjectFormat& format = formatOf(file.line());
        if (!format.readWings) return false;
        file.count(1);
        // In every version the stabiliser's record is a wing's.
        SymWingSections scratch;
        format.readStabilizer(file, scratch);
        return true;
    } catch (const ReadFailure&) {
        return false;
    }
}

}  // namespace velna
