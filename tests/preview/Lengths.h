#pragma once

#include <string>
#include <vector>

namespace velna::test {

/// A length of the default aircraft by its name in the tables: "Wings(1).span",
/// "Fuselages(1).pos(2)".
double lengthOf(const std::string& name);

/// Every number of the project that a change of scale may touch, and those that it must not, to be
/// compared bit for bit.
std::vector<double> allLengths();

}  // namespace velna::test
