#pragma once

#include <string>

namespace velna::test {

/// A length of the default aircraft by its name in the tables: "Wings(1).span",
/// "Fuselages(1).pos(2)".
double lengthOf(const std::string& name);

}  // namespace velna::test
