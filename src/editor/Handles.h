#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "common/Finite.h"
#include "common/List.h"
#include "editor/Main.h"
#include "model/MeshSections.h"

namespace velna {

/// The pointer is on a point or an edge when it is nearer than this many pixels.
inline constexpr double hitDistance = 3.0;

/// Whether two pixel coordinates are near enough for a hit. The distance itself is already too far.
inline bool near(double a, double b) {
    return std::fabs(a - b) < hitDistance;
}

/// Whether the pointer is on a point: near in each direction, so that the zone is a square.
inline bool near(Point2D point, float x, float y) {
    return near(x, point.x) && near(y, point.y);
}

/// The direction on the screen that a drag is measured in.
enum class Axis { Right, Down };

/// Pixels from the press to the pointer along `axis`, in single precision as the pointer comes.
float pixelsFromPress(Axis axis, float x, float y);

/// One value that a drag writes: the value at the press, which lies in `start`, plus the pixels
/// along `axis` times `factor` in model units. `Value` tells where in `Object` the value lies. A
/// factor of 0 means that the value is remembered at the press but not moved.
template <class Object, class Value = double Object::*>
struct DragTerm {
    Value value{};
    double Object::*start{};
    Axis axis = Axis::Right;
    float factor = 1;
};

/// What one gesture writes, in this order; the first term without a value ends the list.
template <class Object, class Value = double Object::*>
using DragTerms = std::array<DragTerm<Object, Value>, 3>;

/// The highlight arguments of a draw: up to four numbers of parts, -1 for none.
using Lit = std::array<int, 4>;
inline constexpr Lit unlit{-1, -1, -1, -1};

/// A part that can be grabbed. `shifted` is what a drag with Shift does; empty where Shift makes no
/// difference.
template <class Object, class Value = double Object::*>
struct Handle {
    int part = 0;
    DragTerms<Object, Value> plain;
    DragTerms<Object, Value> shifted;
    Lit lit = unlit;

    /// The terms of this moment. The key is asked at every move, so that pressing Shift in mid-drag
    /// goes on with the other value, from the start value of the first.
    const DragTerms<Object, Value>& terms() const {
        return Main.shiftkey && shifted[0].value ? shifted : plain;
    }

    /// Whether a drag moves anything at this moment.
    bool moves() const {
        return std::ranges::any_of(terms(),
                                   [](const auto& term) { return term.value && term.factor != 0; });
    }
};

/// The row of `part` in a table of handles; none for a part that is no handle.
template <class Object, class Value, std::size_t n>
const Handle<Object, Value>* findHandle(const std::array<Handle<Object, Value>, n>& table,
                                        int part) {
    for (const auto& handle : table)
        if (handle.part == part) return &handle;
    return nullptr;
}

/// The highlight arguments of `part`.
template <class Object, class Value, std::size_t n>
const Lit& litParts(const std::array<Handle<Object, Value>, n>& table, int part) {
    const auto* handle = findHandle(table, part);
    return handle ? handle->lit : unlit;
}

/// Where a value of an object lies.
template <class Object>
double* valueOf(Object& object, double Object::*value) {
    return &(object.*value);
}

/// A value of the selected section; null when no section is selected.
double* valueOf(MeshSections& fuselage, Array1<double> MeshSections::*values);

/// The press: remembers the values that a drag of the object's `paint` starts from. 0 stands for a
/// value of a section while none is selected.
template <class Object, class Value, std::size_t n>
void rememberStart(Object& object, const std::array<Handle<Object, Value>, n>& table) {
    const auto* handle = findHandle(table, object.paint);
    if (!handle) return;
    for (const auto& term : handle->terms()) {
        if (!term.value) break;
        const double* value = valueOf(object, term.value);
        object.*term.start = value ? *value : 0;
    }
}

/// A move: each value is computed from its start and never from the last move, so that a drag out
/// and back gives the start value again.
template <class Object, class Value>
void dragTo(Object& object, const Handle<Object, Value>& handle, float x, float y) {
    for (const auto& term : handle.terms()) {
        if (!term.value) break;
        if (term.factor == 0) continue;
        const double pixels = term.factor * pixelsFromPress(term.axis, x, y);
        if (double* value = valueOf(object, term.value))
            assignFinite(*value, pixels / Main.zoom + object.*term.start);
    }
}

/// A move over an object whose idle part is `none`: without a grabbed part it lights what is under
/// the pointer, with one it drags it. `partAt` is the hit test, `draw` takes the highlight
/// arguments.
template <class Object, class Value, std::size_t n, class PartAt, class Draw>
void hoverOrDrag(Object& object, int none, const std::array<Handle<Object, Value>, n>& table,
                 float x, float y, PartAt partAt, Draw draw) {
    if (object.paint == none) {
        object.selected_part = partAt();
        draw(litParts(table, object.selected_part));
        object.selected = object.selected_part != none;
    } else if (const auto* handle = findHandle(table, object.paint)) {
        dragTo(object, *handle, x, y);
        draw(handle->lit);
    }
}

}  // namespace velna
