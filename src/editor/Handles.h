#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "common/Finite.h"
#include "common/Point.h"
#include "editor/Canvas.h"

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

/// What the pointer does with an object of the aircraft.
struct Grip {
    std::int32_t none = 0;           ///< the code that stands for no part; each kind has its own
    std::int32_t paint = none;       ///< the part that a drag has grabbed
    bool selected = false;           ///< the pointer rests on a part
    std::int32_t selected_part = 0;  ///< the part of the last hover test
    double initval = 0;              ///< value of the dragged field at the press
    double initval2 = 0;             ///< second such value
    double initval3 = 0;             ///< third such value

    bool held() const { return paint != none; }
    void letGo() { paint = none; }
    void unlight() { selected = false; }
};

/// The direction on the screen that a drag is measured in.
enum class Axis { Right, Down };

/// Pixels from the press to the pointer along `axis`, in single precision as the pointer comes.
inline float pixelsFromPress(Axis axis, const Pointer& pointer) {
    return axis == Axis::Right ? pointer.x - static_cast<float>(pointer.xloc)
                               : pointer.y - static_cast<float>(pointer.yloc);
}

/// One value that a drag writes: the value at the press, which lies in `start`, plus the pixels
/// along `axis` times `factor` in model units. `Value` tells where in `Object` the value lies. A
/// factor of 0 means that the value is remembered at the press but not moved.
template <class Object, class Value = double Object::*>
struct DragTerm {
    Value value{};
    double Grip::*start{};
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
    const DragTerms<Object, Value>& terms(bool shiftkey) const {
        return shiftkey && shifted[0].value ? shifted : plain;
    }

    /// The first value that a drag moves at this moment, which is the one that it is about; the
    /// others follow it. No value where it moves nothing.
    Value moved(bool shiftkey) const {
        for (const auto& term : terms(shiftkey))
            if (term.value && term.factor != 0) return term.value;
        return {};
    }

    /// Whether a drag moves anything at this moment.
    bool moves(bool shiftkey) const { return moved(shiftkey) != nullptr; }
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

/// Where a value of an object lies; null where it has none at this moment.
template <class Object>
double* valueOf(Object& object, double Object::*value) {
    return &(object.*value);
}

/// The press: remembers the values that a drag of the part in `grip.paint` starts from. 0 stands
/// for a value of a section while none is selected.
template <class Object, class Value, std::size_t n>
void rememberStart(Grip& grip, Object& object, const std::array<Handle<Object, Value>, n>& table,
                   bool shiftkey) {
    const auto* handle = findHandle(table, grip.paint);
    if (!handle) return;
    for (const auto& term : handle->terms(shiftkey)) {
        if (!term.value) break;
        const double* value = valueOf(object, term.value);
        grip.*term.start = value ? *value : 0;
    }
}

/// A move: each value is computed from its start and never from the last move, so that a drag out
/// and back gives the start value again. `zoom` is in pixels a model unit.
template <class Object, class Value>
void dragTo(const Grip& grip, Object& object, const Handle<Object, Value>& handle,
            const Pointer& pointer, double zoom) {
    for (const auto& term : handle.terms(pointer.shiftkey)) {
        if (!term.value) break;
        if (term.factor == 0) continue;
        const double pixels = term.factor * pixelsFromPress(term.axis, pointer);
        if (double* value = valueOf(object, term.value))
            assignFinite(*value, pixels / zoom + grip.*term.start);
    }
}

/// A move over an object: without a grabbed part it lights `partHere`, the one under the pointer,
/// with one it drags it. `draw` takes the highlight arguments.
template <class Object, std::size_t n, class Move, class Draw>
void hoverOrDrag(Grip& grip, const std::array<Handle<Object>, n>& table, int partHere, Move move,
                 Draw draw) {
    if (!grip.held()) {
        grip.selected_part = partHere;
        draw(litParts(table, partHere));
        grip.selected = partHere != grip.none;
    } else if (const auto* handle = findHandle(table, grip.paint)) {
        move(*handle);
        draw(handle->lit);
    }
}

}  // namespace velna
