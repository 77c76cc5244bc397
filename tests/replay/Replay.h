#pragma once

#include <string>
#include <vector>

#include "StoredFile.h"

namespace velna::test {

/// What a document of scenarios, or of a scene, becomes when the program is asked again. `folder`
/// (ends in "/") is the document's own, where a scene's project lies. Each throws
/// std::runtime_error, which names the case, where one cannot be run or holds too little.

/// The document with everything that it expects as the program gives it.
Document replayed(const Document& document, const std::string& folder, bool allLines);

/// What the program does otherwise than expected, a line each with its case and step: of each case
/// that differs its first differing step, or with `all` every one.
std::vector<std::string> differencesIn(const Document& document, const std::string& folder,
                                       bool all = false);

/// The document with what differs as the program gives it, everything else as it stood, and a note
/// of the cases that hold the program's own figures now.
Document accepted(const Document& document, const std::string& folder);

}  // namespace velna::test
