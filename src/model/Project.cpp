#include "model/Project.h"

#include "model/MeshSections.h"

namespace velna {

Project::Project() = default;
Project::Project(const Project& other) = default;
Project::Project(Project&& other) noexcept = default;
Project& Project::operator=(const Project& other) = default;
Project& Project::operator=(Project&& other) noexcept = default;
Project::~Project() = default;
bool Project::operator==(const Project& other) const = default;

}  // namespace velna
