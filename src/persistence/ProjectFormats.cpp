#include "persistence/ProjectFormats.h"

#include <array>

#include "common/ValueReader.h"
#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/ObjectList.h"
#include "model/Prefs.h"
#include "persistence/PictureFiles.h"

namespace velna {

namespace {

using Wing = SymWingSections;
using Fin = VertWingSection;

constexpr ProjectFormat refused{nullptr, nullptr, nullptr, nullptr, LastBlock::equipment};
constexpr ProjectFormat formatV0212{MainWing::readWingsV0212, &Wing::readV0212,
                                    Fuselage::readFuselageV0212, &Fin::readV0212,
                                    LastBlock::equipment};
constexpr ProjectFormat formatV026{MainWing::readWingsV0212, &Wing::readV0212,
                                   Fuselage::readFuselageV026, &Fin::readV0212,
                                   LastBlock::equipment};
constexpr ProjectFormat formatV030{MainWing::readWingsV0212, &Wing::readV0212,
                                   Fuselage::readFuselagesV030, &Fin::readV030,
                                   LastBlock::equipment};
constexpr ProjectFormat formatV101{MainWing::readWingsV101, &Wing::readV101,
                                   Fuselage::readFuselagesV030, &Fin::readV101,
                                   LastBlock::equipment};
constexpr ProjectFormat formatV110{MainWing::readWingsV101, &Wing::readV101,
                                   Fuselage::readFuselagesV101, &Fin::readV101, LastBlock::unit};
constexpr ProjectFormat formatV120{MainWing::readWingsV120, &Wing::read,
                                   Fuselage::readFuselagesV120, &Fin::read, LastBlock::unit};
constexpr ProjectFormat formatV130{MainWing::readWingsV120, &Wing::read, Fuselage::readFuselages,
                                   &Fin::read, LastBlock::unit};
constexpr ProjectFormat formatV160{MainWing::readWingsV120, &Wing::read, Fuselage::readFuselages,
                                   &Fin::read, LastBlock::list};
constexpr ProjectFormat formatV170{MainWing::readWingsV120, &Wing::read, Fuselage::readFuselages,
                                   &Fin::read, LastBlock::airfoils};
constexpr ProjectFormat currentFormat{MainWing::readWings,     &Wing::read,
                                      Fuselage::readFuselages, &Fin::read,
                                      LastBlock::textures,     true};

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

/// The unit of the numbers, which stand as they were written.
void readUnit(ValueReader& file) {
    Prefs.units = file.boolean() ? inches : millimetres;
    Prefs.selectUnit(Prefs.units);
    // The reset before the read has filled them in the unit of the project before.
    Equipment::fillCatalogues();
}

/// All lines behind the first.
void readBlocks(ValueReader& file, const ProjectFormat& format) {
    format.readWings(file);
    (Stabilizer.*format.readStabilizer)(file);
    format.readFuselages(file);
    // Older programs wrote this offset without meaning it.
    if (!format.keepsElevationOffsets) Fuselage::zeroElevationOffsets();
    (Rudder.*format.readRudder)(file);
    Equipment::readEquipments(file);
    if (format.lastBlock >= LastBlock::unit) readUnit(file);
    if (format.lastBlock >= LastBlock::list) ObjectList.read(file);
    if (format.lastBlock >= LastBlock::airfoils) MainWing::readWingAirfoils(file);
    if (format.lastBlock >= LastBlock::textures) PictureFiles::readTextureNames(file);
}

}  // namespace

const ProjectFormat& formatOf(std::string_view firstLine) {
    const auto* pattern = patterns.data();
    while (!matches(firstLine, *pattern)) ++pattern;
    return pattern->format;
}

bool readProjectBytes(std::string_view bytes) {
    ValueReader file(bytes);
    const ProjectFormat& format = formatOf(file.line());
    if (!format.readWings) return false;
    readBlocks(file, format);
    return true;
}

bool holdsFirstWing(std::string_view bytes) {
    try {
        ValueReader file(bytes);
        const ProjectFormat& format = formatOf(file.line());
        if (!format.readWings) return false;
        file.count(1);
        // In every version the stabiliser's record is a wing's.
        Wing scratch;
        (scratch.*format.readStabilizer)(file);
        return true;
    } catch (const ReadFailure&) {
        return false;
    }
}

}  // namespace velna
