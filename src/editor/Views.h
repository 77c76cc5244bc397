#pragma once

#include "editor/Main.h"
#include "model/Fits.h"

namespace velna {

/// Fits the aircraft to a surface. What cannot be fitted stays as in `before`.
using Fit = Transform (*)(const Project& project, SurfaceSize size, Transform before);

/// What the two views with a bar at each section of the fuselage do, each in its own outlines.
struct SectionView {
    Fit focus;  ///< to the selected section
    void (AircraftViews::*draw)(const Canvas& canvas, int lit, FuselageLook look);
    void (FuselageView::*erase)(const Canvas& canvas, const MeshSections& body) const;
    std::int32_t (FuselageView::*test)(MeshSections& body, const Pointer& pointer) const;
    void (FuselageView::*remember)(MeshSections& body, bool shiftkey);
    void (EquipmentView::*drawBox)(const Canvas& canvas, const ElectroBox& box, bool lit);
    void (AircraftViews::*testBoxes)(const Pointer& pointer);
    bool widths;  ///< its edges are the widths, not the top and the bottom
};

/// One of the four views: how it is reached and fitted, what it draws, and what the pointer does in
/// it.
struct ViewRow {
    std::int32_t mode;
    Control key;                  ///< of the toolbar
    const SectionView* sections;  ///< null where no section can be edited
    Fit fit;
    Fit fitTail;  ///< with the rudder tab open; null where that makes no difference
    /// The menus of the view, and its parts on a surface just cleared.
    void (*enter)(MainForm& form, const Canvas& canvas);
    /// True where the press has removed the section that it hit, or could have.
    bool (*press)(MainForm& form, std::int16_t button, const Pointer& pointer);
    void (*move)(MainForm& form, const Canvas& canvas, const Pointer& pointer);
    void (*release)(MainForm& form, const Canvas& canvas);
};

/// The row of a view by its `mode`.
const ViewRow& viewOf(std::int32_t mode);

// SectionViews.cpp: what both section views do
void enterSections(MainForm& form, const SectionView& sections);
/// As `ViewRow::press`. With the electronics tab open the boxes are asked alone.
bool pressSections(MainForm& form, std::int16_t button, const Pointer& pointer,
                   const SectionView& sections);
/// The boxes are let go, or the section's picture follows what was dragged.
void releaseSections(MainForm& form);

}  // namespace velna
