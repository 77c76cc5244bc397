// Reads files of solids with assimp and prints one line of JSON for each: bodies, triangles, and
// the volume that they enclose, in mm3.
//   velna_solid_reader FILE...

#include <iostream>
#include <string>

#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

namespace {

struct Found {
    unsigned bodies = 0;
    unsigned triangles = 0;
    unsigned textured = 0;
    double volume = 0;
};

double volumeOf(const aiMesh& mesh, const aiMatrix4x4& place) {
    double sum = 0;
    for (unsigned n = 0; n < mesh.mNumFaces; ++n) {
        const aiFace& face = mesh.mFaces[n];
        if (face.mNumIndices != 3) continue;
        aiVector3D corners[3];
        for (unsigned c = 0; c < 3; ++c) corners[c] = place * mesh.mVertices[face.mIndices[c]];
        const aiVector3D cross = corners[1] ^ corners[2];
        sum += static_cast<double>(corners[0] * cross) / 6;
    }
    return sum;
}

void collect(const aiScene& scene, const aiNode& node, const aiMatrix4x4& above, Found& found) {
    const aiMatrix4x4 place = above * node.mTransformation;
    if (node.mNumMeshes > 0) ++found.bodies;
    for (unsigned n = 0; n < node.mNumMeshes; ++n) {
        const aiMesh& mesh = *scene.mMeshes[node.mMeshes[n]];
        found.triangles += mesh.mNumFaces;
        found.textured += mesh.HasTextureCoords(0) ? 1 : 0;
        found.volume += volumeOf(mesh, place);
    }
    for (unsigned n = 0; n < node.mNumChildren; ++n)
        collect(scene, *node.mChildren[n], place, found);
}

bool read(const char* file) {
    Assimp::Importer importer;
    const aiScene* scene = importer.ReadFile(file, 0);
    if (!scene) {
        std::cerr << file << ": " << importer.GetErrorString() << '\n';
        return false;
    }
    Found found;
    collect(*scene, *scene->mRootNode, {}, found);
    std::cout.precision(12);
    std::cout << "{\"bodies\": " << found.bodies << ", \"triangles\": " << found.triangles
              << ", \"textured\": " << found.textured << ", \"volume\": " << found.volume << "}\n";
    return true;
}

}  // namespace

int main(int count, char** arguments) {
    bool done = count > 1;
    for (int i = 1; i < count; ++i) done = read(arguments[i]) && done;
    return done ? 0 : 1;
}
