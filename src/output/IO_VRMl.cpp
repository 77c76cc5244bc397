#include "output/IO_VRMl.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "common/NumberText.h"
#include "common/ValueReader.h"
#include "common/Version.h"
#include "model/BodySolid.h"
#include "model/FinSolid.h"
#include "model/MeshSections.h"
#include "model/WingSection.h"

namespace velna::IO_VRMl {

namespace {

constexpr std::string_view urlHead = "            url ";

void lines(Target& target, std::initializer_list<std::string_view> texts) {
    for (std::string_view text : texts) target.file.line(text);
}

/// Ends a line of which many follow. False once the user has cancelled.
bool endRow(Target& target, std::string_view rest = {}) {
    target.file.line(rest);
    target.file.flushIfFull();
    return target.work.did(1);
}

/// A number that no reader of the format could take (the product of two huge lengths) becomes 0.
void number(Target& target, double value) {
    appendNumber(target.file.buffer(), std::isfinite(value) ? value : 0);
}

void coordinates(Target& target, const Point3D& p) {
    std::string& text = target.file.buffer();
    number(target, p.x);
    text += ' ';
    number(target, p.y);
    text += ' ';
    number(target, p.z);
}

/// The last point of a list has no comma.
bool point(Target& target, const Point3D& p, bool last = false) {
    coordinates(target, p);
    return endRow(target, last ? "" : ",");
}

/// An index keeps a place for its sign and a blank behind it.
void index(std::string& text, long long value) {
    if (value >= 0) text += ' ';
    appendInteger(text, value);
    text += ' ';
}

bool face(Target& target, long long a, long long b, long long c, bool comma = true) {
    std::string& text = target.file.buffer();
    index(text, a);
    text += ", ";
    index(text, b);
    text += ", ";
    index(text, c);
    return endRow(target, comma ? ", -1," : ", -1");
}

void beginGeometry(Target& target, std::string_view crease) {
    lines(target,
          {"        geometry IndexedFaceSet", "        {", crease, "          coord Coordinate",
           "          {", "            point", "            ["});
}

void beginFaces(Target& target) {
    lines(target, {"            ]", "          }", "          coordIndex", "          ["});
}

void beginTexture(Target& target) {
    lines(target, {"          texCoord TextureCoordinate ", "          {", "            point",
                   "            ["});
}

void beginTextureFaces(Target& target) {
    lines(target, {"          ]", "        }", "          texCoordIndex", "          ["});
}

void endFaces(Target& target) {
    target.file.line("          ]");
}

void endGeometry(Target& target) {
    lines(target, {"          solid FALSE", "        }"});
}

/// Two triangles for each step round the profile, between root points 0 to nb - 1 and the tip
/// points behind them. The ends stay open.
void wingFaces(Target& target, long long nb) {
    for (long long i = 1; i <= nb - 1; ++i)
        if (!face(target, i - 1, nb + i, nb + i - 1)) return;
    face(target, nb - 1, nb, 2 * nb - 1);
    for (long long i = 1; i <= nb - 1; ++i)
        if (!face(target, i - 1, i, nb + i)) return;
    face(target, nb - 1, 0, nb, false);
}

/// One texture line of a wing or fin: a place along the chord, then which end of the panel it is
/// on.
bool endTexture(Target& target, double along, std::string_view end) {
    number(target, along);
    return endRow(target, end);
}

/// How far a fuselage's mesh goes in the file: outline points, 0 for no shape, and sections.
struct Grid {
    int n = 0;
    int sections = 0;
};

/// Which outline points of a section have faces, and whether the section closes round.
struct Strip {
    int first = 0;
    int last = 0;
    bool closed = true;
};

/// A transparent body is cut open, so that one looks into it: only the strip from the top over the
/// side of negative y to the bottom stands.
Strip cutOpenStrip(int n) {
    return {static_cast<int>(std::floor(n / 4.0 + 1)), static_cast<int>(std::floor(n - n / 4.0)),
            false};
}

Strip closedStrip(int n) {
    return {1, n - 1, true};
}

void fuselageFaces(Target& target, const Grid& grid, const Strip& strip) {
    const auto [n, sections] = grid;
    const auto baseOf = [n = grid.n](int i) { return static_cast<long long>(i - 1) * n; };
    for (int i = 1; i <= sections - 1; ++i) {
        const long long base = baseOf(i);
        for (int j = strip.first; j <= strip.last; ++j)
            if (!face(target, base + j - 1, base + n + j, base + n + j - 1)) return;
        if (strip.closed) face(target, base + n - 1, base + n, base + 2LL * n - 1);
    }
    for (int i = 1; i <= sections - 1; ++i) {
        const long long base = baseOf(i);
        for (int j = strip.first; j <= strip.last; ++j) {
            // The outline point is held against the number of bays, as it has always been: models
            // made with the hole that this leaves in some bodies export as they did.
            if (j == n - n / 4.0 && j == sections - 1) continue;
            if (!face(target, base + j - 1, base + j, base + n + j)) return;
        }
        // Readers take the missing comma; it is how these closing faces have always been written.
        if (strip.closed) face(target, base + n - 1, base, base + n, false);
    }
}

void fuselagePoints(Target& target, const BodySolid& solid, const Grid& grid, bool mirrored) {
    // A body without a shape still gets its node, with a point for the faces to name.
    if (grid.n == 0) {
        point(target, {}, true);
        return;
    }
    for (int i = 1; i <= grid.sections; ++i) {
        for (int j = 1; j <= grid.n; ++j) {
            const bool last = i == grid.sections && j == grid.n;
            if (!point(target, solid.meshPoint(j, i, mirrored), last)) return;
        }
    }
}

void fuselageTexture(Target& target, const BodySolid& solid, const Grid& grid) {
    if (grid.n == 0) target.file.line("0 0");
    for (int i = 1; i <= grid.sections; ++i) {
        for (int j = 1; j <= grid.n; ++j) {
            const Point2D place = solid.texCoordAt(j, i);
            number(target, place.x);
            target.file.buffer() += ' ';
            number(target, -place.y);
            if (!endRow(target)) return;
        }
    }
}

/// A colour component from 0 to 255 as the file's 0 to 1, beyond which it is no colour.
double component(double value) {
    return std::clamp(value / 255.0, 0.0, 1.0);
}

/// A text between double quotes; a quote or backslash within is escaped, else it would end the
/// text.
std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\') result += '\\';
        result += c;
    }
    return result += '"';
}

}  // namespace

void writeVrmlHeader(Target& target) {
    lines(target, {"#VRML V2.0 utf8"});
    target.file.buffer() += "#File produced with Velna V ";
    lines(target, {versionText, "Transform", "{", "  children", "  [",
                   "    NavigationInfo { headlight TRUE  type    \"EXAMINE\"}"});
}

void writeVrmlNodeName(Target& target, std::string_view name) {
    target.file.buffer() += "    # ";
    lines(target, {name, "    Transform", "    {"});
}

void writeVrmlTranslation(Target& target, const Point3D& t) {
    target.file.buffer() += "      translation ";
    coordinates(target, t);
    lines(target, {"", "      children", "      [", "        Shape", "        {"});
}

void writeVrmlWing(Target& target, const WingSection& wing, Side side) {
    const int nb = wing.pointCount();
    beginGeometry(target, "          creaseAngle 60");
    for (int i = 1; i <= nb; ++i) point(target, wing.rootPoint(i));
    for (int i = 1; i <= nb; ++i) point(target, wing.tipPoint(i), i == nb);
    if (nb == 0) point(target, {}, true);
    beginFaces(target);
    wingFaces(target, nb);
    endFaces(target);
    if (!wing.picture.texture_filename.empty()) {
        const double sign = side == Side::right ? -1 : 1;
        beginTexture(target);
        for (int i = 1; i <= nb; ++i) endTexture(target, sign * wing.rootTexCoord(i), " 1 ");
        for (int i = 1; i <= nb; ++i) endTexture(target, sign * wing.tipTexCoord(i), " 0 ");
        if (nb == 0) endTexture(target, 0, " 1 ");
        beginTextureFaces(target);
        wingFaces(target, nb);
        endFaces(target);
    }
    endGeometry(target);
}

void writeVrmlRudder(Target& target, const FinSolid& rudder, bool mirrored) {
    const int nb = rudder.pointCount();
    beginGeometry(target, "          creaseAngle 60");
    for (int i = 1; i <= nb; ++i) point(target, rudder.rootPoint(i, mirrored));
    for (int i = 1; i <= nb; ++i) point(target, rudder.tipPoint(i, mirrored));
    // The last tip point once more ends the list; no face names it.
    point(target, nb > 0 ? rudder.tipPoint(nb, mirrored) : Point3D{}, true);
    beginFaces(target);
    wingFaces(target, nb);
    endFaces(target);
    if (!rudder.picture.texture_filename.empty()) {
        beginTexture(target);
        for (int i = 1; i <= nb; ++i) endTexture(target, rudder.rootTexCoord(i), " 0 ");
        for (int i = 1; i <= nb; ++i) endTexture(target, rudder.tipTexCoord(i), " 1 ");
        if (nb == 0) endTexture(target, 0, " 0 ");
        beginTextureFaces(target);
        wingFaces(target, nb);
        endFaces(target);
    }
    endGeometry(target);
}

void writeVrmlFuselage(Target& target, const MeshSections& fuselage, const BodySolid& solid,
                       bool mirrored) {
    // One outline point is no outline.
    const Grid grid{fuselage.nb_cross < 2 ? 0 : fuselage.nb_cross, fuselage.nb_sections};
    beginGeometry(target, "          creaseAngle 70");
    fuselagePoints(target, solid, grid, mirrored);
    beginFaces(target);
    fuselageFaces(target, grid, fuselage.transparent ? cutOpenStrip(grid.n) : closedStrip(grid.n));
    endFaces(target);
    if (!fuselage.texture_filename.empty()) {
        beginTexture(target);
        fuselageTexture(target, solid, grid);
        beginTextureFaces(target);
        // The picture's faces are those of the whole body, also where only a strip of it stands.
        fuselageFaces(target, grid, closedStrip(grid.n));
        endFaces(target);
    }
    endGeometry(target);
}

void writeVrmlBox(Target& target, const Point3D& size) {
    lines(target, {"        geometry  Box ", "        {"});
    target.file.buffer() += "          size";
    coordinates(target, size);
    lines(target, {"", "        }"});
}

void writeVrmlAppearance(Target& target, const Point3D& colour, std::string_view url, bool repeat) {
    lines(target, {"          appearance Appearance", "          {",
                   "            material Material", "            {"});
    target.file.buffer() += "              diffuseColor ";
    coordinates(target, {component(colour.x), component(colour.y), component(colour.z)});
    lines(target, {"", "              transparency 0", "            }",
                   "            texture ImageTexture {",
                   repeat ? "            repeatS TRUE" : "            repeatS FALSE",
                   repeat ? "            repeatT TRUE" : "            repeatT FALSE"});
    target.file.buffer() += urlHead;
    lines(target, {quoted(url), "                       }", "          }"});
}

std::set<std::string> picturesIn(std::string_view bytes) {
    std::set<std::string> names;
    ValueReader lines(bytes);
    while (!lines.atEnd()) {
        std::string_view line = lines.line();
        if (!line.starts_with(urlHead) || !line.ends_with('"')) continue;
        line.remove_prefix(urlHead.size() + 1);
        std::string name;
        for (std::size_t i = 0; i + 1 < line.size(); ++i) {
            if (line[i] == '\\') ++i;
            name += line[i];
        }
        names.insert(name);
    }
    return names;
}

void writeVrmlNodeEnd(Target& target) {
    lines(target, {"        }", "      ]", "    }"});
    target.file.flushIfFull();
}

void writeVrmlFooter(Target& target) {
    lines(target, {"  ]", "}"});
}

}  // namespace velna::IO_VRMl
