#pragma once

#include <array>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace velna::test {

/// The OpenGL calls that the picture makes, in order. GlTape.cpp defines the few procedures in use
/// in place of a GL library, so a procedure that is not known here does not link.
///
/// A call is a list: its name, then its arguments, constants as their names, a bit mask as names
/// joined by "|", an array as a list in the last place. Vector forms of vertices, normals and
/// places are told with their numbers in line: ["glVertex3dv", 1.0, 2.0, 3.0]. Recorders of ports
/// add their own events. A call of an object's list is told as what that list holds.
class GlTape {
public:
    /// The calls since `clear`.
    static std::vector<nlohmann::json>& calls();

    /// What no GL would take: a call without a context, between the wrong pair of calls, a number
    /// out of its range. A test expects this to be empty.
    static std::vector<std::string>& faults();

    /// Forgets calls and faults; a list left open is closed. Contexts stand as they are.
    static void clear();

    /// Adds an event of a port.
    static void add(nlohmann::json event);

    /// Whether a context is current; calls without one are faults.
    static bool hasContext;
    /// The answer to GL_MAX_TEXTURE_SIZE.
    static int largestTexture;
    /// The answer to GL_MODELVIEW_MATRIX: the tape does not multiply.
    static std::array<double, 16> modelview;
    /// Whether a display list is being made: nothing else than GL may happen then.
    static bool insideList();
    /// How many lists of objects there are.
    static int objectListCount();
    /// The lists have gone with the context that held them.
    static void forgetLists();
    /// Whether what stands between glBegin and glEnd is told as one call ["vertices", number,
    /// checksum of all that was passed]: for scenes of millions of points.
    static bool foldsVertices;
    /// The bytes of each picture handed over, in order.
    static std::vector<std::vector<unsigned char>>& pictures();

    /// The calls named `name`.
    static std::vector<nlohmann::json> named(const std::string& name);
    static int count(const std::string& name) { return static_cast<int>(named(name).size()); }
};

}  // namespace velna::test
