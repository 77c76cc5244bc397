#pragma once

#include <random>
#include <string>
#include <string_view>

namespace velna::fuzz {

/// A project like that of `bytes`, with one to four things changed in it, by the lists of fields
/// that its records have: a number becomes a wild one or that of another field, a flag turns, a
/// section, a point, a part comes, goes or changes places with another. It stays well-formed: each
/// count tells what there is, and each line is of its kind. Empty where `bytes` are of a project
/// too large to be worked through.
std::string mutatedProject(std::string_view bytes, std::mt19937& random);

/// The project of `bytes` with a part of the one of `other` in the place of its own.
std::string crossedProjects(std::string_view bytes, std::string_view other, std::mt19937& random);

}  // namespace velna::fuzz
