#include "support/GlTape.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <map>

#include <GL/gl.h>

namespace velna::test {

using nlohmann::json;

bool GlTape::hasContext = false;
int GlTape::largestTexture = 4096;
std::array<double, 16> GlTape::modelview{};
bool GlTape::foldsVertices = false;

namespace {

constexpr GLuint wholeList = 1;

std::vector<json> recorded;
std::map<GLuint, std::vector<json>> objectLists;
GLuint lastList = wholeList;
std::vector<json>* tape = &recorded;  // or that of an object's list being made
std::vector<std::string> found;
std::vector<std::vector<unsigned char>> uploaded;
bool listOpen = false;
bool primitiveOpen = false;
bool alignedToBytes = false;
GLuint lastTexture = 0;

const std::map<GLenum, std::string> constantNames{
    {GL_NORMALIZE, "GL_NORMALIZE"},
    {GL_DITHER, "GL_DITHER"},
    {GL_DEPTH_TEST, "GL_DEPTH_TEST"},
    {GL_LEQUAL, "GL_LEQUAL"},
    {GL_LIGHTING, "GL_LIGHTING"},
    {GL_LIGHT0, "GL_LIGHT0"},
    {GL_POSITION, "GL_POSITION"},
    {GL_BLEND, "GL_BLEND"},
    {GL_SRC_ALPHA, "GL_SRC_ALPHA"},
    {GL_ONE_MINUS_SRC_ALPHA, "GL_ONE_MINUS_SRC_ALPHA"},
    {GL_FRONT_AND_BACK, "GL_FRONT_AND_BACK"},
    {GL_AMBIENT_AND_DIFFUSE, "GL_AMBIENT_AND_DIFFUSE"},
    {GL_SPECULAR, "GL_SPECULAR"},
    {GL_EMISSION, "GL_EMISSION"},
    {GL_LIGHT_MODEL_AMBIENT, "GL_LIGHT_MODEL_AMBIENT"},
    {GL_PROJECTION, "GL_PROJECTION"},
    {GL_MODELVIEW, "GL_MODELVIEW"},
    {GL_COMPILE, "GL_COMPILE"},
    {GL_LINE_SMOOTH_HINT, "GL_LINE_SMOOTH_HINT"},
    {GL_NICEST, "GL_NICEST"},
    {GL_TEXTURE_2D, "GL_TEXTURE_2D"},
    {GL_TEXTURE_WRAP_S, "GL_TEXTURE_WRAP_S"},
    {GL_TEXTURE_WRAP_T, "GL_TEXTURE_WRAP_T"},
    {GL_TEXTURE_MAG_FILTER, "GL_TEXTURE_MAG_FILTER"},
    {GL_TEXTURE_MIN_FILTER, "GL_TEXTURE_MIN_FILTER"},
    {GL_NEAREST, "GL_NEAREST"},
    {GL_CLAMP, "GL_CLAMP"},
    {GL_REPEAT, "GL_REPEAT"},
    {GL_TEXTURE_ENV, "GL_TEXTURE_ENV"},
    {GL_TEXTURE_ENV_MODE, "GL_TEXTURE_ENV_MODE"},
    {GL_DECAL, "GL_DECAL"},
    {GL_RGB, "GL_RGB"},
    {GL_UNSIGNED_BYTE, "GL_UNSIGNED_BYTE"},
    {GL_UNPACK_ALIGNMENT, "GL_UNPACK_ALIGNMENT"},
    {GL_TRIANGLE_STRIP, "GL_TRIANGLE_STRIP"},
    {GL_QUAD_STRIP, "GL_QUAD_STRIP"},
    {GL_QUADS, "GL_QUADS"},
};

std::string constant(GLenum value) {
    const auto name = constantNames.find(value);
    return name == constantNames.end() ? "unknown " + std::to_string(value) : name->second;
}

/// What a call may stand beside.
enum class Place { Anywhere, OutsidePrimitive, InsidePrimitive };

void record(json call, Place place) {
    const std::string name = call[0];
    if (!GlTape::hasContext) found.push_back(name + " without a context");
    if (place == Place::OutsidePrimitive && primitiveOpen)
        found.push_back(name + " between glBegin and glEnd");
    if (place == Place::InsidePrimitive && !primitiveOpen)
        found.push_back(name + " outside glBegin and glEnd");
    tape->push_back(std::move(call));
}

void record(json call) {
    record(std::move(call), Place::OutsidePrimitive);
}

/// What stands in the open primitive, where that is told as one call.
struct Folded {
    std::int64_t vertices = 0;
    std::uint64_t checksum = 0;

    void take(std::initializer_list<double> values, bool vertex) {
        vertices += vertex;
        // The product carries every value on into all later ones.
        for (const double value : values)
            checksum = (checksum + std::bit_cast<std::uint64_t>(value)) * 0x9E3779B97F4A7C15;
        checksum += values.size();
    }
};

Folded folded;

void recordVertexPart(const char* name, std::initializer_list<double> values, Place place) {
    if (GlTape::foldsVertices && primitiveOpen)
        return folded.take(values, place == Place::InsidePrimitive);
    json call = json::array({name});
    for (const double value : values) call.push_back(value);
    record(std::move(call), place);
}

template <class Number>
json numbers(const Number* values, int count) {
    json list = json::array();
    for (int i = 0; i < count; ++i) list.push_back(static_cast<double>(values[i]));
    return list;
}

void fault(bool wrong, const std::string& text) {
    if (wrong) found.push_back(text);
}

/// How many numbers a vector parameter has.
int lengthOf(GLenum) {
    return 4;
}

}  // namespace

std::vector<json>& GlTape::calls() {
    return recorded;
}
std::vector<std::string>& GlTape::faults() {
    return found;
}
std::vector<std::vector<unsigned char>>& GlTape::pictures() {
    return uploaded;
}
bool GlTape::insideList() {
    return listOpen;
}

void GlTape::clear() {
    recorded.clear();
    found.clear();
    uploaded.clear();
    tape = &recorded;
    listOpen = false;
    primitiveOpen = false;
    alignedToBytes = false;
}

int GlTape::objectListCount() {
    return static_cast<int>(objectLists.size());
}

void GlTape::forgetLists() {
    objectLists.clear();
}

void GlTape::add(json event) {
    if (listOpen) found.push_back(event[0].get<std::string>() + " while a list is made");
    recorded.push_back(std::move(event));
}

std::vector<json> GlTape::named(const std::string& name) {
    std::vector<json> matching;
    for (const json& call : recorded)
        if (call[0] == name) matching.push_back(call);
    return matching;
}

}  // namespace velna::test

// The procedures of OpenGL, with C's names and linkage.

using namespace velna::test;

extern "C" {

void glEnable(GLenum what) {
    record({"glEnable", constant(what)});
}
void glDisable(GLenum what) {
    record({"glDisable", constant(what)});
}
void glDepthFunc(GLenum rule) {
    record({"glDepthFunc", constant(rule)});
}
void glClearDepth(GLclampd depth) {
    record({"glClearDepth", depth});
}
void glClearColor(GLclampf r, GLclampf g, GLclampf b, GLclampf a) {
    record({"glClearColor", r, g, b, a});
}
void glBlendFunc(GLenum source, GLenum target) {
    record({"glBlendFunc", constant(source), constant(target)});
}
void glHint(GLenum what, GLenum mode) {
    record({"glHint", constant(what), constant(mode)});
}

void glClear(GLbitfield mask) {
    fault(mask != (GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT), "glClear of something else");
    record({"glClear", "GL_COLOR_BUFFER_BIT|GL_DEPTH_BUFFER_BIT"});
}

void glLightfv(GLenum light, GLenum what, const GLfloat* values) {
    record({"glLightfv", constant(light), constant(what), numbers(values, lengthOf(what))});
}
void glMaterialfv(GLenum face, GLenum what, const GLfloat* values) {
    record({"glMaterialfv", constant(face), constant(what), numbers(values, lengthOf(what))});
}
void glLightModelfv(GLenum what, const GLfloat* values) {
    record({"glLightModelfv", constant(what), numbers(values, lengthOf(what))});
}

void glMatrixMode(GLenum mode) {
    record({"glMatrixMode", constant(mode)});
}
void glLoadIdentity() {
    record({"glLoadIdentity"});
}
void glLoadMatrixd(const GLdouble* matrix) {
    record({"glLoadMatrixd", numbers(matrix, 16)});
}
void glGetDoublev(GLenum name, GLdouble* values) {
    fault(name != GL_MODELVIEW_MATRIX, "glGetDoublev of something else");
    record({"glGetDoublev"});
    std::copy(GlTape::modelview.begin(), GlTape::modelview.end(), values);
}
void glFrustum(GLdouble l, GLdouble r, GLdouble b, GLdouble t, GLdouble n, GLdouble f) {
    fault(l == r || b == t || n == f || n <= 0 || f <= 0, "glFrustum without extent");
    record({"glFrustum", l, r, b, t, n, f});
}
void glViewport(GLint x, GLint y, GLsizei width, GLsizei height) {
    fault(width < 0 || height < 0, "glViewport of a negative size");
    record({"glViewport", x, y, width, height});
}
void glTranslated(GLdouble x, GLdouble y, GLdouble z) {
    record({"glTranslated", x, y, z});
}
void glRotated(GLdouble angle, GLdouble x, GLdouble y, GLdouble z) {
    record({"glRotated", angle, x, y, z});
}
void glScaled(GLdouble x, GLdouble y, GLdouble z) {
    record({"glScaled", x, y, z});
}

GLuint glGenLists(GLsizei count) {
    fault(!GlTape::hasContext, "glGenLists without a context");
    fault(count != 1, "glGenLists of several");
    objectLists[++lastList];
    return lastList;
}
void glDeleteLists(GLuint list, GLsizei count) {
    fault(!GlTape::hasContext, "glDeleteLists without a context");
    fault(count != 1, "glDeleteLists of several");
    fault(objectLists.erase(list) != 1, "glDeleteLists of a list that is not there");
}
void glNewList(GLuint list, GLenum mode) {
    fault(listOpen, "glNewList inside a list");
    listOpen = true;
    if (list == wholeList) return record({"glNewList", list, constant(mode)});
    fault(!objectLists.contains(list), "glNewList of a name that was not given");
    tape = &objectLists[list];
    tape->clear();
}
void glEndList() {
    fault(!listOpen, "glEndList without a list");
    if (tape == &recorded) record({"glEndList"});
    tape = &recorded;
    listOpen = false;
}
void glCallList(GLuint list) {
    if (list == wholeList) return record({"glCallList", list});
    fault(!objectLists.contains(list), "glCallList of a list that is not there");
    for (const json& call : objectLists[list]) record(call, Place::Anywhere);
}

void glBegin(GLenum mode) {
    record({"glBegin", constant(mode)});
    primitiveOpen = true;
    folded = {};
}
void glEnd() {
    if (GlTape::foldsVertices)
        record({"vertices", folded.vertices, folded.checksum}, Place::InsidePrimitive);
    record({"glEnd"}, Place::InsidePrimitive);
    primitiveOpen = false;
}
void glVertex3dv(const GLdouble* v) {
    recordVertexPart("glVertex3dv", {v[0], v[1], v[2]}, Place::InsidePrimitive);
}
void glVertex3f(GLfloat x, GLfloat y, GLfloat z) {
    recordVertexPart("glVertex3f", {x, y, z}, Place::InsidePrimitive);
}
void glNormal3dv(const GLdouble* v) {
    recordVertexPart("glNormal3dv", {v[0], v[1], v[2]}, Place::Anywhere);
}
void glNormal3f(GLfloat x, GLfloat y, GLfloat z) {
    recordVertexPart("glNormal3f", {x, y, z}, Place::Anywhere);
}
void glTexCoord2dv(const GLdouble* v) {
    recordVertexPart("glTexCoord2dv", {v[0], v[1]}, Place::Anywhere);
}

void glPixelStorei(GLenum what, GLint value) {
    if (what == GL_UNPACK_ALIGNMENT) alignedToBytes = value == 1;
    record({"glPixelStorei", constant(what), value});
}
void glTexParameteri(GLenum target, GLenum what, GLint value) {
    record({"glTexParameteri", constant(target), constant(what),
            constant(static_cast<GLenum>(value))});
}
void glTexEnvi(GLenum target, GLenum what, GLint value) {
    record({"glTexEnvi", constant(target), constant(what), constant(static_cast<GLenum>(value))});
}

void glGenTextures(GLsizei count, GLuint* names) {
    fault(count != 1, "glGenTextures of several");
    *names = ++lastTexture;
    record({"glGenTextures", *names});
}
void glBindTexture(GLenum target, GLuint name) {
    fault(name > lastTexture, "glBindTexture of a name that was not given");
    record({"glBindTexture", constant(target), name});
}
void glDeleteTextures(GLsizei count, const GLuint* names) {
    fault(count != 1, "glDeleteTextures of several");
    record({"glDeleteTextures", *names});
}

void glTexImage2D(GLenum target, GLint level, GLint components, GLsizei width, GLsizei height,
                  GLint border, GLenum format, GLenum type, const void* pixels) {
    fault(width > GlTape::largestTexture || height > GlTape::largestTexture,
          "glTexImage2D larger than the limit");
    fault((width & (width - 1)) != 0 || (height & (height - 1)) != 0,
          "glTexImage2D of a size that is no power of two");
    fault(!alignedToBytes, "glTexImage2D with rows aligned to more than a byte");
    // Reads as many bytes as a GL would: a picture that is shorter shows under the sanitizers.
    const auto* bytes = static_cast<const unsigned char*>(pixels);
    uploaded.emplace_back(bytes, bytes + static_cast<std::ptrdiff_t>(width) * height * 3);
    record({"glTexImage2D", constant(target), level, components, width, height, border,
            constant(format), constant(type), ""});
}

void glGetIntegerv(GLenum what, GLint* value) {
    fault(!GlTape::hasContext, "glGetIntegerv without a context");
    fault(what != GL_MAX_TEXTURE_SIZE, "glGetIntegerv of something else");
    *value = GlTape::largestTexture;
}

}  // extern "C"
