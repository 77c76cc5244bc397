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

/// A number that no reader of the format could take (the product of two huge lengths) becomes 0.
char* putCoordinate(char* at, double value) {
    return putNumber(at, std::isfinite(value) ? value : 0);
}

char* putCoordinates(char* at, const Point3D& p) {
    at = putCoordinate(at, p.x);
    *at++ = ' ';
    at = putCoordinate(at, p.y);
    *at++ = ' ';
    return putCoordinate(at, p.z);
}

constexpr std::size_t longestPoint = 3 * longestNumber + 8;
constexpr std::size_t longestFace = 3 * longestNumber + 16;

void coordinates(Target& target, const Point3D& p) {
    char text[longestPoint];
    target.file.append({text, static_cast<std::size_t>(putCoordinates(text, p) - text)});
}

/// The last point of a list has no comma.
char* putPoint(char* at, const Point3D& p, bool last) {
    return putText(putCoordinates(at, p), last ? "\r\n" : ",\r\n");
}

/// The one point of a body that has no other.
void onePoint(Target& target, const Point3D& p) {
    coordinates(target, p);
    target.file.line({});
}

/// An index keeps a place for its sign and a blank behind it.
char* putIndex(char* at, long long value) {
    if (value >= 0) *at++ = ' ';
    at = putInteger(at, value);
    *at++ = ' ';
    return at;
}

/// The points of a triangle, by their places in the list.
struct Face {
    long long a;
    long long b;
    long long c;
};

char* putFace(char* at, const Face& face, bool comma = true) {
    at = putText(putIndex(at, face.a), ", ");
    at = putText(putIndex(at, face.b), ", ");
    return putText(putIndex(at, face.c), comma ? ", -1,\r\n" : ", -1\r\n");
}

/// Writes `count` rows of at most `longest` characters, where `put(at, row)` makes one, or nothing.
/// False once the user has cancelled.
template <class PutRows>
bool rows(Target& target, long long count, std::size_t longest, PutRows put) {
    const long long atOnce = target.rows.atOnce(longest);
    for (long long row = 0; row < count && !target.work.cancelled(); row += atOnce) {
        const long long end = std::min(count, row + atOnce);
        target.rows.write(row, end, longest, put);
        target.work.did(end - row);
    }
    return !target.work.cancelled();
}

/// The same, a row at a time: `put(at, row)`.
template <class Put>
bool eachRow(Target& target, long long count, std::size_t longest, Put put) {
    return rows(target, count, longest, [&put](char* at, long long row, long long end) {
        for (; row < end; ++row) at = put(at, row);
        return at;
    });
}

/// The rows of a grid, line by line: `put(at, line, place)`, both counted from 0.
template <class Put>
bool gridRows(Target& target, long long lineCount, int places, std::size_t longest, Put put) {
    if (places < 1) return !target.work.cancelled();
    return rows(target, lineCount * places, longest, [=](char* at, long long row, long long end) {
        auto line = static_cast<int>(row / places);
        auto place = static_cast<int>(row % places);
        for (; row < end; ++row) {
            at = put(at, line, place);
            if (++place < places) continue;
            place = 0;
            ++line;
        }
        return at;
    });
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
    // Without a profile there are the closing faces all the same.
    const long long count = std::max(nb, 1LL);
    const long long first = nb - count;
    eachRow(target, count, longestFace, [=](char* at, long long row) {
        const long long i = first + row;
        return putFace(at, {i, i + 1 < nb ? nb + i + 1 : nb, nb + i});
    });
    eachRow(target, count, longestFace, [=](char* at, long long row) {
        const long long i = first + row;
        const bool closing = i + 1 == nb;
        return putFace(at, {i, closing ? 0 : i + 1, closing ? nb : nb + i + 1}, !closing);
    });
}

/// The points of one end of a wing or fin; `last` ends the list.
template <class PointAt>
void profilePoints(Target& target, int nb, PointAt pointAt, bool last = false) {
    eachRow(target, nb, longestPoint, [=](char* at, long long row) {
        return putPoint(at, pointAt(static_cast<int>(row) + 1), last && row == nb - 1);
    });
}

/// The texture lines of one end of a wing or fin: the place along the chord, then which end it is.
template <class PlaceOf>
void textureLines(Target& target, int nb, std::string_view end, PlaceOf placeOf) {
    eachRow(target, nb, longestPoint, [=](char* at, long long row) {
        at = putCoordinate(at, placeOf(static_cast<int>(row) + 1));
        return putText(putText(at, end), "\r\n");
    });
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

    /// The faces of a bay in each of the two groups.
    int faces() const { return std::max(0, last - first + 1) + (closed ? 1 : 0); }
    /// Whether face `place`, counted from 0, is the one that closes the section.
    bool closing(int place) const { return closed && place == faces() - 1; }
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
    const long long n = grid.n;
    const int bays = grid.sections - 1;
    gridRows(target, bays, strip.faces(), longestFace, [=](char* at, int bay, int place) {
        const long long base = bay * n;
        if (strip.closing(place)) return putFace(at, {base + n - 1, base + n, base + 2 * n - 1});
        const int j = strip.first + place;
        return putFace(at, {base + j - 1, base + n + j, base + n + j - 1});
    });
    gridRows(target, bays, strip.faces(), longestFace, [=](char* at, int bay, int place) {
        const long long base = bay * n;
        // Readers take the missing comma; it is how these closing faces have always been written.
        if (strip.closing(place)) return putFace(at, {base + n - 1, base, base + n}, false);
        const int j = strip.first + place;
        // The outline point is held against the number of bays, as it has always been: models
        // made with the hole that this leaves in some bodies export as they did.
        if (j == grid.n - grid.n / 4.0 && j == bays) return at;
        return putFace(at, {base + j - 1, base + j, base + n + j});
    });
}

void fuselagePoints(Target& target, const BodySolid& solid, const Grid& grid, bool mirrored) {
    // A body without a shape still gets its node, with a point for the faces to name.
    if (grid.n == 0) onePoint(target, {});
    gridRows(target, grid.sections, grid.n, longestPoint, [&](char* at, int section, int place) {
        const bool last = section == grid.sections - 1 && place == grid.n - 1;
        return putPoint(at, solid.meshPoint(place + 1, section + 1, mirrored), last);
    });
}

void fuselageTexture(Target& target, const BodySolid& solid, const Grid& grid) {
    if (grid.n == 0) target.file.line("0 0");
    gridRows(target, grid.sections, grid.n, longestPoint,
             [&](char* at, int section, int outlinePoint) {
                 const Point2D place = solid.texCoordAt(outlinePoint + 1, section + 1);
                 at = putCoordinate(at, place.x);
                 *at++ = ' ';
                 return putText(putCoordinate(at, -place.y), "\r\n");
             });
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
    target.file.append("#File produced with Velna V ");
    lines(target, {versionText, "Transform", "{", "  children", "  [",
                   "    NavigationInfo { headlight TRUE  type    \"EXAMINE\"}"});
}

void writeVrmlNodeName(Target& target, std::string_view name) {
    target.file.append("    # ");
    lines(target, {name, "    Transform", "    {"});
}

void writeVrmlTranslation(Target& target, const Point3D& t) {
    target.file.append("      translation ");
    coordinates(target, t);
    lines(target, {"", "      children", "      [", "        Shape", "        {"});
}

void writeVrmlWing(Target& target, const WingSection& wing, Side side) {
    const int nb = wing.pointCount();
    beginGeometry(target, "          creaseAngle 60");
    profilePoints(target, nb, [&](int i) { return wing.rootPoint(i); });
    profilePoints(
        target, nb, [&](int i) { return wing.tipPoint(i); }, true);
    if (nb == 0) onePoint(target, {});
    beginFaces(target);
    wingFaces(target, nb);
    endFaces(target);
    if (!wing.picture.texture_filename.empty()) {
        const double sign = side == Side::right ? -1 : 1;
        beginTexture(target);
        textureLines(target, nb, " 1 ", [&](int i) { return sign * wing.rootTexCoord(i); });
        textureLines(target, nb, " 0 ", [&](int i) { return sign * wing.tipTexCoord(i); });
        if (nb == 0) target.file.line("0 1 ");
        beginTextureFaces(target);
        wingFaces(target, nb);
        endFaces(target);
    }
    endGeometry(target);
}

void writeVrmlRudder(Target& target, const FinSolid& rudder, bool mirrored) {
    const int nb = rudder.pointCount();
    beginGeometry(target, "          creaseAngle 60");
    profilePoints(target, nb, [&](int i) { return rudder.rootPoint(i, mirrored); });
    profilePoints(target, nb, [&](int i) { return rudder.tipPoint(i, mirrored); });
    // The last tip point once more ends the list; no face names it.
    onePoint(target, nb > 0 ? rudder.tipPoint(nb, mirrored) : Point3D{});
    beginFaces(target);
    wingFaces(target, nb);
    endFaces(target);
    if (!rudder.picture.texture_filename.empty()) {
        beginTexture(target);
        textureLines(target, nb, " 0 ", [&](int i) { return rudder.rootTexCoord(i); });
        textureLines(target, nb, " 1 ", [&](int i) { return rudder.tipTexCoord(i); });
        if (nb == 0) target.file.line("0 0 ");
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
    target.file.append("          size");
    if (target.spelling == VrmlSpelling::Strict) target.file.append(" ");
    coordinates(target, size);
    lines(target, {"", "        }"});
}

void writeVrmlAppearance(Target& target, const Point3D& colour, std::string_view url, bool repeat) {
    lines(target, {"          appearance Appearance", "          {",
                   "            material Material", "            {"});
    target.file.append("              diffuseColor ");
    coordinates(target, {component(colour.x), component(colour.y), component(colour.z)});
    lines(target, {"", "              transparency 0", "            }",
                   "            texture ImageTexture {",
                   repeat ? "            repeatS TRUE" : "            repeatS FALSE",
                   repeat ? "            repeatT TRUE" : "            repeatT FALSE"});
    target.file.append(urlHead);
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
