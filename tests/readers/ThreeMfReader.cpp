// Reads 3MF files with lib3mf and prints one line of JSON for each: bodies, triangles, the volume
// that they enclose in the file's unit, and what the reader complains of: warnings, bodies that are
// not valid ones, a unit that is no millimetre.
//   velna_threemf_reader FILE...

#include <iostream>
#include <string>
#include <vector>

#include <Model/COM/NMR_DLLInterfaces.h>

using namespace NMR;

namespace {

struct Found {
    unsigned bodies = 0;
    unsigned triangles = 0;
    unsigned complaints = 0;
    double volume = 0;
};

/// What the library gives, which is given back.
template <class Kind>
struct Held {
    Kind* it = nullptr;
    Held() = default;
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() {
        if (it) lib3mf_release(it);
    }
};

double volumeOf(const std::vector<MODELMESHVERTEX>& points,
                const std::vector<MODELMESHTRIANGLE>& triangles) {
    double sum = 0;
    for (const MODELMESHTRIANGLE& triangle : triangles) {
        double at[3][3];
        for (int n = 0; n < 3; ++n)
            for (int c = 0; c < 3; ++c)
                at[n][c] = static_cast<double>(points[triangle.m_nIndices[n]].m_fPosition[c]);
        sum += at[0][0] * (at[1][1] * at[2][2] - at[1][2] * at[2][1]) +
               at[0][1] * (at[1][2] * at[2][0] - at[1][0] * at[2][2]) +
               at[0][2] * (at[1][0] * at[2][1] - at[1][1] * at[2][0]);
    }
    return sum / 6;
}

bool collect(PLib3MFModelObjectResource* object, Found& found) {
    BOOL isMesh = 0;
    BOOL isValid = 0;
    if (lib3mf_object_ismeshobject(object, &isMesh) != 0 || !isMesh) return false;
    if (lib3mf_object_isvalidobject(object, &isValid) != 0 || !isValid) ++found.complaints;
    auto* const mesh = static_cast<PLib3MFModelMeshObject*>(object);
    DWORD points = 0;
    DWORD triangles = 0;
    lib3mf_meshobject_getvertexcount(mesh, &points);
    lib3mf_meshobject_gettrianglecount(mesh, &triangles);
    std::vector<MODELMESHVERTEX> corners(points);
    std::vector<MODELMESHTRIANGLE> faces(triangles);
    if (lib3mf_meshobject_getvertices(mesh, corners.data(), points, nullptr) != 0 ||
        lib3mf_meshobject_gettriangleindices(mesh, faces.data(), triangles, nullptr) != 0)
        return false;
    ++found.bodies;
    found.triangles += triangles;
    found.volume += volumeOf(corners, faces);
    return true;
}

/// What the build tells to print.
bool collectAll(PLib3MFModel* model, Found& found) {
    Held<PLib3MFModelBuildItemIterator> items;
    if (lib3mf_model_getbuilditems(model, &items.it) != 0) return false;
    BOOL hasNext = 0;
    while (lib3mf_builditemiterator_movenext(items.it, &hasNext) == 0 && hasNext) {
        Held<PLib3MFModelBuildItem> item;
        Held<PLib3MFModelObjectResource> object;
        BOOL moved = 0;
        if (lib3mf_builditemiterator_getcurrent(items.it, &item.it) != 0 ||
            lib3mf_builditem_getobjectresource(item.it, &object.it) != 0 ||
            lib3mf_builditem_hasobjecttransform(item.it, &moved) != 0 || moved ||
            !collect(object.it, found))
            return false;
    }
    return true;
}

bool read(const char* file) {
    Held<PLib3MFModel> model;
    Held<PLib3MFModelReader> reader;
    Found found;
    DWORD warnings = 0;
    DWORD unit = 0;
    if (lib3mf_createmodel(&model.it) != 0 ||
        lib3mf_model_queryreader(model.it, "3mf", &reader.it) != 0 ||
        lib3mf_reader_readfromfileutf8(reader.it, file) != 0 || !collectAll(model.it, found)) {
        std::cerr << file << ": not read\n";
        return false;
    }
    lib3mf_reader_getwarningcount(reader.it, &warnings);
    lib3mf_model_getunit(model.it, &unit);
    found.complaints += warnings + (unit == MODELUNIT_MILLIMETER ? 0 : 1);
    std::cout.precision(12);
    std::cout << "{\"bodies\": " << found.bodies << ", \"triangles\": " << found.triangles
              << ", \"complaints\": " << found.complaints << ", \"volume\": " << found.volume
              << "}\n";
    return true;
}

}  // namespace

int main(int count, char** arguments) {
    bool done = count > 1;
    for (int i = 1; i < count; ++i) done = read(arguments[i]) && done;
    return done ? 0 : 1;
}
