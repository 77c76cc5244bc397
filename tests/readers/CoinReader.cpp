// Reads a VRML file and prints what was found as one line of JSON.

#include <iostream>

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/VRMLnodes/SoVRMLCoordinate.h>
#include <Inventor/VRMLnodes/SoVRMLGroup.h>
#include <Inventor/VRMLnodes/SoVRMLIndexedFaceSet.h>
#include <Inventor/VRMLnodes/SoVRMLShape.h>
#include <Inventor/errors/SoError.h>

namespace {

struct Found {
    int shapes = 0;
    int faceSets = 0;
    long points = 0;
    long faces = 0;
};

void printError(const SoError* error, void*) {
    std::cerr << error->getDebugString().getString() << '\n';
}

void count(SoVRMLShape* shape, Found& found) {
    ++found.shapes;
    SoNode* geometry = shape->geometry.getValue();
    if (!geometry || !geometry->isOfType(SoVRMLIndexedFaceSet::getClassTypeId())) return;
    ++found.faceSets;
    const auto* set = static_cast<SoVRMLIndexedFaceSet*>(geometry);
    const auto* coord = static_cast<SoVRMLCoordinate*>(set->coord.getValue());
    found.points += coord ? coord->point.getNum() : 0;
    for (int i = 0; i < set->coordIndex.getNum(); ++i)
        found.faces += set->coordIndex[i] == -1 ? 1 : 0;
}

void countUnder(SoNode* node, Found& found) {
    if (node->isOfType(SoVRMLShape::getClassTypeId())) {
        count(static_cast<SoVRMLShape*>(node), found);
    } else if (node->isOfType(SoVRMLParent::getClassTypeId())) {
        auto* parent = static_cast<SoVRMLParent*>(node);
        for (int i = 0; i < parent->getNumChildren(); ++i) countUnder(parent->getChild(i), found);
    }
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) return 2;
    SoDB::init();
    SoError::setHandlerCallback(printError, nullptr);
    SoInput input;
    if (!input.openFile(arguments[1])) return 1;
    SoVRMLGroup* root = SoDB::readAllVRML(&input);
    if (!root) return 1;
    root->ref();
    Found found;
    countUnder(root, found);
    std::cout << "{\"shapes\": " << found.shapes << ", \"face_sets\": " << found.faceSets
              << ", \"points\": " << found.points << ", \"faces\": " << found.faces << "}\n";
    root->unref();
}
