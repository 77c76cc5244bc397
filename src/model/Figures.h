#pragma once

#include <optional>
#include <vector>

#include "model/Units.h"

namespace velna {

struct Project;

/// A figure of the aircraft. Nothing stands for one whose formula divides by 0, needs a figure that
/// is not there, or gives what no number can hold.
using Figure = std::optional<double>;

/// Areas in dm2, lengths in mm, volumes in cm3, masses in g and angles in degrees, whatever the
/// project's unit; x aft from the model's origin. Of the surfaces both halves count together.
struct SurfaceFigures {
    int panels = 0;
    Figure areaProjected;  ///< seen from above
    Figure areaDeveloped;  ///< as a builder covers it, one side
    Figure span;           ///< tip to tip
    Figure aspectRatio;
    Figure rootChord;
    Figure tipChord;
    Figure taper;       ///< tip chord by root chord
    Figure rootX;       ///< leading edge of the root
    Figure meanChord;   ///< the mean aerodynamic chord
    Figure meanChordX;  ///< its leading edge
    Figure meanChordY;  ///< its distance from the middle plane
    Figure quarterX;    ///< its quarter point, taken as the aerodynamic centre
    Figure dihedral;    ///< mean of the panels, by their areas
};

/// The areas are those of all fins, the rest is one fin's.
struct FinFigures {
    int count = 1;
    Figure areaProjected;  ///< seen from the side
    Figure areaDeveloped;
    Figure height;
    Figure meanChord;
    Figure meanChordX;
    Figure quarterX;
};

/// Arms from quarter point to quarter point; a tail ahead of the wing has them negative.
struct TailFigures {
    Figure horizontalArm;
    Figure horizontalVolume;
    Figure verticalArm;
    Figure verticalVolume;
};

/// One fuselage; of a twin one of the two.
struct HullFigures {
    int number = 0;
    int count = 1;  ///< 2 for a twin
    int sections = 0;
    int outlinePoints = 0;
    bool folded = false;  ///< it runs through itself, and has no volume
    Figure length;
    Figure wettedArea;  ///< without the two ends
    Figure frontArea;   ///< of the end with the smaller x
    Figure rearArea;
    Figure volume;  ///< with the two ends closed
};

/// Where the aircraft may balance. Percents are from the leading edge of the mean chord.
struct BalanceFigures {
    Figure liftSlopeWing;  ///< per radian
    Figure liftSlopeStabilizer;
    Figure downwashGradient;
    Figure neutralPointX;
    Figure neutralPointPercent;
    Figure margin15X;  ///< forward end of the range: a static margin of 15 %
    Figure margin15Percent;
    Figure margin5X;  ///< its rear end
    Figure margin5Percent;
};

/// What is known of a flight, each by itself: at least 0.
struct Flight {
    Figure mass;   ///< g
    Figure speed;  ///< km/h

    friend bool operator==(const Flight&, const Flight&) = default;
};

struct FlightFigures {
    Figure mass;
    Figure speed;
    Figure wingLoading;  ///< g/dm2
    Figure reynoldsRoot;
    Figure reynoldsTip;
    Figure reynoldsMeanChord;
};

struct Figures {
    int units = millimetres;  ///< the project's own
    SurfaceFigures wing;
    SurfaceFigures stabilizer;
    FinFigures fin;
    TailFigures tail;
    std::vector<HullFigures> fuselages;
    BalanceFigures balance;
    FlightFigures flight;
};

/// All figures of the aircraft as it stands, hidden fuselages too. Every project has them. The
/// formulas are those of A. H. Yates, "Notes on the Mean Aerodynamic Chord and the Mean Aerodynamic
/// Centre of a Wing", 1952, and D. P. Raymer, "Aircraft Design: A Conceptual Approach", chapters 4,
/// 6 and 7; those of the balance stand in BalanceFigures.cpp.
Figures figuresOf(const Project& project, const Flight& flight = {});

/// The same, `known` being the figures of `before`: a fuselage that has not changed since then is
/// not computed again.
Figures figuresSince(const Figures& known, const Project& before, const Project& project,
                     const Flight& flight);

/// What mass and speed give with the wing `wing`.
FlightFigures flightFigures(const SurfaceFigures& wing, const Flight& flight);

}  // namespace velna
