#include "support/EditorInHand.h"

#include <memory>

namespace velna {
namespace {

Project theProject;
Solids theSolids;
MainForm theForm(theProject);

}  // namespace

MainForm& Main = theForm;
PrefsRecord& Prefs = theForm.Prefs;

void resetEditor() {
    resetModel();
    std::destroy_at(&theForm);
    std::construct_at(&theForm, theProject);
}

}  // namespace velna

#include "support/InHandParts.h"
