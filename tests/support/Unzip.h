#pragma once

#include <map>
#include <string>
#include <string_view>

namespace velna::test {

/// The entries of a ZIP archive by their names, unpacked. Throws `std::runtime_error`, with what is
/// wrong, where the archive's list, an entry's head or its sum does not fit. (PKWARE,
/// "APPNOTE.TXT", 6.3.)
std::map<std::string, std::string> unzipped(std::string_view bytes);

}  // namespace velna::test
