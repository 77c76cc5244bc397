#pragma once

#include <array>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace velna::test {

using GlCalls = std::vector<nlohmann::json>;

/// The lines that tell where what `actual` puts on the screen leaves what `expected` does; none
/// when they are the same. Empty primitives, repeated normals and coordinates that no texture uses
/// make no difference. `soft` are indices into `expected` of normals whose direction hangs on
/// rounding: those are not compared.
std::vector<std::string> glDifferences(const GlCalls& expected, const GlCalls& actual,
                                       const std::vector<std::size_t>& soft = {});

/// The indices into `actual` of the normals that stand where those of `soft` do in `expected`.
std::vector<std::size_t> softNormals(const GlCalls& expected, const std::vector<std::size_t>& soft,
                                     const GlCalls& actual);

/// A matrix of OpenGL, column after column.
using GlMatrix = std::array<double, 16>;

GlMatrix identityMatrix();

/// The modelview matrix after calls, and where they put the light, in eye coordinates.
struct GlView {
    GlMatrix matrix = identityMatrix();
    std::array<double, 4> light{};
};

GlView runMatrix(const GlCalls& calls, GlView view = {});

}  // namespace velna::test
