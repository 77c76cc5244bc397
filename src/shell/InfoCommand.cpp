#include "shell/InfoCommand.h"

#include "common/Complaint.h"
#include "model/Project.h"
#include "persistence/WholeProject.h"
#include "shell/Arguments.h"

namespace velna {

int tellFigures(const InfoRequest& request) {
    Project project;
    const Outcome opened = Plane::openWholeProject(project, request.project);
    if (!opened.isDone()) {
        complain(opened.reason());
        return 1;
    }
    return tellAtOnce(figuresOutput(project, request.query));
}

}  // namespace velna
