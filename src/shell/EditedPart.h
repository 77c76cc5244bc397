#pragma once

#include <optional>
#include <string>

#include "model/Solids.h"

namespace velna {

/// The part that the open tab edits, as far as colour and picture go: the current fuselage (tab 0),
/// the current wing (1), the stabiliser (2), the fin (3). The electronics tab has none.
struct EditedPart {
    Project& project;
    Solids& solids;
    int tab;

    /// Its colour, nothing on the electronics tab.
    std::optional<Point3D> color() const;
    /// Stores its colour; the electronics tab stores nothing.
    void setColor(const Point3D& color) const;
    /// Gives it a picture by full path and title; both empty take the picture away. It is converted
    /// at its next use, also where it is the one before. False where that changes nothing: no such
    /// part, or no picture to take away.
    bool setTexture(const std::string& file, const std::string& title) const;
};

}  // namespace velna
