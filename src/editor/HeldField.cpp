// What a drag under way changes: each value that a handle writes, and the box that shows it.
#include <algorithm>
#include <array>
#include <cstddef>

#include "editor/FieldNames.h"
#include "editor/Main.h"
#include "editor/PanelTable.h"
#include "model/ElectroBox.h"
#include "model/MeshSections.h"
#include "model/Project.h"

namespace velna {
namespace {

using W = SymWingSections;
using V = VertWingSection;
using M = MeshSections;
using E = ElectroBox;

/// A value that a handle writes, and the box of the panel that shows it.
template <class Value>
struct BoxRow {
    Value value;
    Control box;
};

/// Panel and stabiliser are one class with a tab each.
struct WingRow {
    double W::*value;
    Control wing;
    Control stabilizer;
};

constexpr WingRow wingBoxes[] = {
    {&W::length1, Control::LengthBText, Control::LengthBStabText},
    {&W::length2, Control::LengthEText, Control::LengthEStabText},
    {&W::pos1, Control::PosBText, Control::PosBStabText},
    {&W::pos2, Control::PosEText, Control::PosEStabText},
    {&W::elevation1, Control::ElevationBText, Control::ElevationBStabText},
    {&W::elevation2, Control::ElevationEText, Control::ElevationEStabText},
    {&W::shift, Control::ShiftText, Control::ShiftStabText},
    {&W::span, Control::SpanText, Control::SpanStabText},
};

constexpr BoxRow<double V::*> finBoxes[] = {
    {&V::length1, Control::LengthBRudderText}, {&V::length2, Control::LengthERudderText},
    {&V::pos1, Control::PosBRudderText},       {&V::pos2, Control::PosERudderText},
    {&V::span, Control::SpanRudderText},       {&V::shift, Control::ShiftRudderText},
    {&V::offset1, Control::Offset1RudderText}, {&V::offset2, Control::Offset2RudderText},
};

constexpr BoxRow<Array1<double> M::*> sectionBoxes[] = {
    {&M::width, Control::WidthFuselageText},
    {&M::height, Control::HeightFuselageText},
    {&M::pos, Control::PosFuselageText},
    {&M::elevation, Control::ElevationFuselageText},
};

constexpr BoxRow<double M::*> bodyBoxes[] = {
    {&M::shift, Control::ShiftOffsetText},
    {&M::pos_offset, Control::PosOffsetText},
};

constexpr BoxRow<double E::*> equipmentBoxes[] = {
    {&E::pos, Control::PosServoText},
    {&E::shift, Control::ShiftServoText},
    {&E::elevation, Control::ElevationServoText},
};

template <class Row, std::size_t n, class Value>
const Row* rowOf(const Row (&rows)[n], Value value) {
    for (const Row& row : rows)
        if (value && row.value == value) return &row;
    return nullptr;
}

/// Of a part that the panel shows whenever it is held, the box itself tells the value.
template <class Row, std::size_t n, class Handle>
std::optional<HeldField> shownField(const MainForm& form, const Row (&rows)[n],
                                    const Handle* handle, bool shiftkey) {
    const Row* row = handle ? rowOf(rows, handle->moved(shiftkey)) : nullptr;
    if (!row) return std::nullopt;
    return HeldField{row->box, panelField(row->box)->get(form.project)};
}

std::optional<HeldField> wingField(const W& wing, const Handle<W>* handle, bool shiftkey,
                                   Control WingRow::*box) {
    const WingRow* row = handle ? rowOf(wingBoxes, handle->moved(shiftkey)) : nullptr;
    if (!row) return std::nullopt;
    return HeldField{row->*box, row->value == &W::span ? fullSpan(wing) : wing.*row->value};
}

std::optional<HeldField> stabilizerField(const MainForm& form, bool shiftkey,
                                         const Handle<W>* handle) {
    return wingField(form.project.Stabilizer, handle, shiftkey, &WingRow::stabilizer);
}

/// The first panel that is held: those behind it only go along.
std::optional<HeldField> firstPanelField(const MainForm& form, bool shiftkey,
                                         const Handle<W>* (WingView::*held)() const) {
    const NumberedList<WingView>& wings = form.views.wings;
    const Project& project = form.project;
    for (int i = 1; i <= std::min<int>(project.nbWings, wings.size()); ++i) {
        if (wings(i).grip.held())
            return wingField(project.Wings(i), (wings(i).*held)(), shiftkey, &WingRow::wing);
    }
    return std::nullopt;
}

std::optional<HeldField> firstBoxField(const MainForm& form, bool shiftkey,
                                       const Handle<E>* (EquipmentView::*held)() const) {
    const NumberedList<EquipmentView>& boxes = form.views.boxes;
    const Project& project = form.project;
    for (int i = 1; i <= std::min<int>(project.nbEquipments, boxes.size()); ++i) {
        const Handle<E>* handle = (boxes(i).*held)();
        const auto* row = handle ? rowOf(equipmentBoxes, handle->moved(shiftkey)) : nullptr;
        if (row) return HeldField{row->box, project.Equipments(i).*row->value};
    }
    return std::nullopt;
}

using FieldOf = std::optional<HeldField> (*)(const MainForm& form, bool shiftkey);

/// What can be held in a view. Where several are, the first that is found counts: the one whose tab
/// the press has opened.
struct ViewFields {
    int mode;
    std::array<FieldOf, 3> fields;
};

constexpr ViewFields viewFields[] = {
    {ViewMode::VTop,
     {[](const MainForm& form, bool shiftkey) {
          return shownField(form, bodyBoxes, form.views.fuselage().heldVTop(), shiftkey);
      },
      [](const MainForm& form, bool shiftkey) {
          return stabilizerField(form, shiftkey, form.views.stabilizer.heldVTop());
      },
      [](const MainForm& form, bool shiftkey) {
          return firstPanelField(form, shiftkey, &WingView::heldVTop);
      }}},
    {ViewMode::Front,
     {[](const MainForm& form, bool shiftkey) {
          return shownField(form, finBoxes, form.views.rudder.heldFront(), shiftkey);
      },
      [](const MainForm& form, bool shiftkey) {
          return stabilizerField(form, shiftkey, form.views.stabilizer.heldFront());
      },
      [](const MainForm& form, bool shiftkey) {
          return firstPanelField(form, shiftkey, &WingView::heldFront);
      }}},
    {ViewMode::Side,
     {[](const MainForm& form, bool shiftkey) {
          return firstBoxField(form, shiftkey, &EquipmentView::heldSide);
      },
      [](const MainForm& form, bool shiftkey) {
          return shownField(form, finBoxes, form.views.rudder.heldSide(), shiftkey);
      },
      [](const MainForm& form, bool shiftkey) {
          return shownField(form, sectionBoxes, form.views.fuselage().heldSide(), shiftkey);
      }}},
    {ViewMode::HTop,
     {[](const MainForm& form, bool shiftkey) {
          return firstBoxField(form, shiftkey, &EquipmentView::heldHTop);
      },
      [](const MainForm& form, bool shiftkey) {
          return shownField(form, sectionBoxes, form.views.fuselage().heldHTop(), shiftkey);
      },
      nullptr}},
};

}  // namespace

std::optional<HeldField> heldField(const MainForm& form, bool shiftkey) {
    for (const ViewFields& view : viewFields) {
        if (view.mode != form.view.mode) continue;
        for (const FieldOf field : view.fields) {
            if (!field) continue;
            if (const auto found = field(form, shiftkey)) return found;
        }
    }
    return std::nullopt;
}

std::optional<HeldField> heldField(const MainForm& form) {
    return heldField(form, form.pointer.shiftkey);
}

}  // namespace velna
