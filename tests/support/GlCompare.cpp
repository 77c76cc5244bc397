#include "support/GlCompare.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <optional>
#include <set>
#include <sstream>

namespace velna::test {

using nlohmann::json;

namespace {

struct Vertex {
    std::array<double, 3> place;
    std::array<double, 3> normal;
    std::array<double, 2> texture;
    std::size_t normalAt;  ///< the call that gave the normal
};

struct Texture {
    std::array<int, 2> size{};
    std::array<std::string, 2> wrap{"GL_REPEAT", "GL_REPEAT"};
    std::array<std::string, 2> filter{"GL_LINEAR", "GL_NEAREST_MIPMAP_LINEAR"};
    std::string environment = "GL_MODULATE";
    std::string title;  ///< of the picture's file, empty where it is not told

    friend bool operator==(const Texture& a, const Texture& b) {
        return a.size == b.size && a.wrap == b.wrap && a.filter == b.filter &&
               a.environment == b.environment &&
               (a.title.empty() || b.title.empty() || a.title == b.title);
    }
};

/// What stands between a glBegin and its glEnd, with the state that holds there.
struct Primitive {
    std::string mode;
    std::array<double, 4> color;
    bool blend;
    std::optional<Texture> texture;
    std::vector<Vertex> vertices;
};

/// The state of a GL as far as the scene uses it, at the start of a list.
struct Machine {
    std::array<double, 4> color{0, 0, 0, 1};
    bool blend = true;
    bool texturing = false;
    int bound = 0;
    std::map<int, Texture> textures;  ///< by their names; one without an image has no size
    std::string environment = "GL_MODULATE";
    std::array<double, 3> normal{0, 0, 1};
    std::array<double, 2> coordinate{};
    std::size_t normalAt = 0;
    std::vector<Primitive> done;
    std::optional<Primitive> open;

    void take(const json& call, std::size_t index);
    void takeState(const std::string& name, const json& call);
    void addVertex(const json& call);
};

bool starts(const std::string& name, const char* beginning) {
    return name.starts_with(beginning);
}

void Machine::addVertex(const json& call) {
    const double length = std::hypot(normal[0], normal[1], normal[2]);
    auto unit = normal;
    if (length != 0)
        for (double& value : unit) value /= length;
    open->vertices.push_back({{call[1], call[2], call[3]}, unit, coordinate, normalAt});
}

void Machine::takeState(const std::string& name, const json& call) {
    if (name == "glEnable" || name == "glDisable") {
        if (call[1] == "GL_BLEND") blend = name == "glEnable";
        if (call[1] == "GL_TEXTURE_2D") texturing = name == "glEnable";
    } else if (name == "glMaterialfv" && call[2] == "GL_AMBIENT_AND_DIFFUSE") {
        color = call[3].get<std::array<double, 4>>();
    } else if (name == "glTexImage2D") {
        textures[bound].size = {call[4], call[5]};
        textures[bound].title = call.back().is_string() ? call.back().get<std::string>() : "";
    } else if (name == "glBindTexture") {
        bound = call[2];
    } else if (starts(name, "glTexParameter")) {
        Texture& texture = textures[bound];
        if (call[2] == "GL_TEXTURE_WRAP_S") texture.wrap[0] = call[3];
        if (call[2] == "GL_TEXTURE_WRAP_T") texture.wrap[1] = call[3];
        if (call[2] == "GL_TEXTURE_MAG_FILTER") texture.filter[0] = call[3];
        if (call[2] == "GL_TEXTURE_MIN_FILTER") texture.filter[1] = call[3];
    } else if (starts(name, "glTexEnv") && call[2] == "GL_TEXTURE_ENV_MODE") {
        environment = call[3];
    }
}

void Machine::take(const json& call, std::size_t index) {
    const std::string name = call[0];
    if (starts(name, "glNormal3")) {
        normal = {call[1], call[2], call[3]};
        normalAt = index;
    } else if (starts(name, "glTexCoord2")) {
        coordinate = {call[1], call[2]};
    } else if (starts(name, "glVertex3")) {
        addVertex(call);
    } else if (name == "glBegin") {
        open = Primitive{call[1], color, blend, std::nullopt, {}};
        if (texturing && textures[bound].size[0] > 0) {
            open->texture = textures[bound];
            open->texture->environment = environment;
        }
    } else if (name == "glEnd") {
        if (!open->vertices.empty()) done.push_back(std::move(*open));
        open.reset();
    } else {
        takeState(name, call);
    }
}

std::vector<Primitive> stream(const GlCalls& calls) {
    Machine machine;
    for (std::size_t i = 0; i < calls.size(); ++i) machine.take(calls[i], i);
    return std::move(machine.done);
}

bool near(double a, double b, double tolerance) {
    return std::abs(a - b) <= tolerance;
}

template <std::size_t size>
bool near(const std::array<double, size>& a, const std::array<double, size>& b, double tolerance) {
    for (std::size_t i = 0; i < size; ++i)
        if (!near(a[i], b[i], tolerance)) return false;
    return true;
}

template <std::size_t size>
std::string text(const std::array<double, size>& values) {
    std::ostringstream out;
    out.precision(15);
    for (double value : values) out << ' ' << value;
    return out.str();
}

class Comparison {
public:
    explicit Comparison(const std::vector<std::size_t>& soft) : soft_(soft.begin(), soft.end()) {}

    void compare(const std::vector<Primitive>& expected, const std::vector<Primitive>& actual);
    std::vector<std::string> lines;

private:
    void compare(const Primitive& expected, const Primitive& actual, const std::string& where);
    void compareVertices(const Primitive& expected, const Primitive& actual,
                         const std::string& where);
    void say(const std::string& where, const std::string& what) {
        lines.push_back(where + ": " + what);
    }

    std::set<std::size_t> soft_;
};

void Comparison::compareVertices(const Primitive& expected, const Primitive& actual,
                                 const std::string& where) {
    double largest = 1e-9;
    for (const Vertex& vertex : expected.vertices)
        for (double value : vertex.place) largest = std::max(largest, std::abs(value));
    // Boxes are drawn in single precision.
    const double tolerance = (expected.mode == "GL_TRIANGLE_STRIP" ? 1e-9 : 1e-6) * largest;
    for (std::size_t i = 0; i < expected.vertices.size(); ++i) {
        const Vertex& e = expected.vertices[i];
        const Vertex& a = actual.vertices[i];
        const std::string vertex = where + " vertex " + std::to_string(i);
        if (!near(e.place, a.place, tolerance))
            say(vertex, "place" + text(e.place) + ", got" + text(a.place));
        if (!soft_.contains(e.normalAt) && !near(e.normal, a.normal, 1e-5))
            say(vertex, "normal" + text(e.normal) + ", got" + text(a.normal));
        if (expected.texture && !near(e.texture, a.texture, 1e-7))
            say(vertex, "texture place" + text(e.texture) + ", got" + text(a.texture));
    }
}

void Comparison::compare(const Primitive& expected, const Primitive& actual,
                         const std::string& where) {
    if (expected.mode != actual.mode) say(where, expected.mode + ", got " + actual.mode);
    if (expected.blend != actual.blend) say(where, "the other blending");
    if (!near(expected.color, actual.color, 1e-6))
        say(where, "colour" + text(expected.color) + ", got" + text(actual.color));
    if (expected.texture != actual.texture) say(where, "another texture");
    if (expected.vertices.size() != actual.vertices.size())
        say(where, std::to_string(expected.vertices.size()) + " vertices, got " +
                       std::to_string(actual.vertices.size()));
    else
        compareVertices(expected, actual, where);
}

void Comparison::compare(const std::vector<Primitive>& expected,
                         const std::vector<Primitive>& actual) {
    if (expected.size() != actual.size())
        say("primitives",
            std::to_string(expected.size()) + ", got " + std::to_string(actual.size()));
    for (std::size_t i = 0; i < std::min(expected.size(), actual.size()); ++i)
        compare(expected[i], actual[i], "primitive " + std::to_string(i));
}

GlMatrix product(const GlMatrix& a, const GlMatrix& b) {
    GlMatrix result{};
    for (std::size_t column = 0; column < 4; ++column)
        for (std::size_t row = 0; row < 4; ++row)
            for (std::size_t k = 0; k < 4; ++k)
                result[column * 4 + row] += a[k * 4 + row] * b[column * 4 + k];
    return result;
}

GlMatrix translation(double x, double y, double z) {
    GlMatrix matrix = identityMatrix();
    matrix[12] = x;
    matrix[13] = y;
    matrix[14] = z;
    return matrix;
}

GlMatrix scaling(double x, double y, double z) {
    GlMatrix matrix = identityMatrix();
    matrix[0] = x;
    matrix[5] = y;
    matrix[10] = z;
    return matrix;
}

GlMatrix rotation(double degrees, double x, double y, double z) {
    const double length = std::hypot(x, y, z);
    x /= length;
    y /= length;
    z /= length;
    const double c = std::cos(degrees * std::numbers::pi / 180);
    const double s = std::sin(degrees * std::numbers::pi / 180);
    return {x * x * (1 - c) + c,
            y * x * (1 - c) + z * s,
            x * z * (1 - c) - y * s,
            0,
            x * y * (1 - c) - z * s,
            y * y * (1 - c) + c,
            y * z * (1 - c) + x * s,
            0,
            x * z * (1 - c) + y * s,
            y * z * (1 - c) - x * s,
            z * z * (1 - c) + c,
            0,
            0,
            0,
            0,
            1};
}

std::array<double, 4> transformed(const GlMatrix& matrix, const std::array<double, 4>& point) {
    std::array<double, 4> result{};
    for (std::size_t row = 0; row < 4; ++row)
        for (std::size_t k = 0; k < 4; ++k) result[row] += matrix[k * 4 + row] * point[k];
    return result;
}

}  // namespace

std::vector<std::string> glDifferences(const GlCalls& expected, const GlCalls& actual,
                                       const std::vector<std::size_t>& soft) {
    Comparison comparison(soft);
    comparison.compare(stream(expected), stream(actual));
    return comparison.lines;
}

std::vector<std::size_t> softNormals(const GlCalls& expected, const std::vector<std::size_t>& soft,
                                     const GlCalls& actual) {
    const std::set<std::size_t> given(soft.begin(), soft.end());
    const std::vector<Primitive> from = stream(expected);
    const std::vector<Primitive> to = stream(actual);
    std::set<std::size_t> found;
    for (std::size_t i = 0; i < std::min(from.size(), to.size()); ++i) {
        const std::vector<Vertex>& vertices = to[i].vertices;
        for (std::size_t k = 0; k < std::min(from[i].vertices.size(), vertices.size()); ++k)
            if (given.contains(from[i].vertices[k].normalAt)) found.insert(vertices[k].normalAt);
    }
    return {found.begin(), found.end()};
}

GlMatrix identityMatrix() {
    GlMatrix matrix{};
    for (std::size_t i = 0; i < 16; i += 5) matrix[i] = 1;
    return matrix;
}

GlView runMatrix(const GlCalls& calls, GlView view) {
    for (const json& call : calls) {
        const std::string name = call[0];
        if (name == "glLoadIdentity") view.matrix = identityMatrix();
        if (starts(name, "glTranslate"))
            view.matrix = product(view.matrix, translation(call[1], call[2], call[3]));
        if (starts(name, "glRotate"))
            view.matrix = product(view.matrix, rotation(call[1], call[2], call[3], call[4]));
        if (starts(name, "glScale"))
            view.matrix = product(view.matrix, scaling(call[1], call[2], call[3]));
        if (name == "glLightfv" && call[2] == "GL_POSITION")
            view.light = transformed(view.matrix, call[3].get<std::array<double, 4>>());
    }
    return view;
}

}  // namespace velna::test
