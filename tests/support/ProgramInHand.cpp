#include "support/ProgramInHand.h"

#include <memory>

namespace velna {
namespace {

Application theProgram;
Project& theProject = theProgram.project;
Solids& theSolids = theProgram.solids;

}  // namespace

Application& program = theProgram;
MainForm& Main = theProgram.Main;
PrefsRecord& Prefs = theProgram.Main.Prefs;

void renewProgram() {
    std::destroy_at(&theProgram);
    std::construct_at(&theProgram);
}

void resetEditor() {
    renewProgram();
    resetModel();
}

}  // namespace velna

#include "support/InHandParts.h"
