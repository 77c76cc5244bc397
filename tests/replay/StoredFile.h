#pragma once

#include <string>

#include <nlohmann/json.hpp>

namespace velna::test {

/// A file of scenarios or of a scene, its members in the order in which they stand there.
using Document = nlohmann::ordered_json;

/// The JSON of `file`; throws std::runtime_error with the reason where it cannot be had.
Document readDocument(const std::string& file);

/// The bytes of a document, laid out so that a difference can be read: a step, an expectation of a
/// step, a GL call a line.
std::string layOut(const Document& document);

/// Writes the document in place of `file`; throws std::runtime_error where that fails, and the old
/// file then stands whole.
void writeDocument(const std::string& file, const Document& document);

}  // namespace velna::test
