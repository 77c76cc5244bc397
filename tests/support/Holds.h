#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "common/Outcome.h"

namespace velna::fuzz {

/// A folder in memory where the system has such a place: the runs should not wait for a disk. Ends
/// in "/".
const std::string& scratchFolder();

/// The bytes of each file in the scratch folder by its name; the folder is empty afterwards.
std::map<std::string, std::string> takeScratchFiles();

/// Ends the run with `what` on standard error: the fuzzer keeps the input.
[[noreturn]] void broken(const std::string& what);

/// The first word of a written file that is no finite number where one may stand: "nan", "inf" and
/// their like, in any case and with a sign; nothing in quotes, which may hold any word. Empty where
/// there is none.
std::string_view unfiniteWord(std::string_view bytes);

/// Ends the run where a written file holds what is no finite number: a text by its words, an STL
/// and a binary glTF by their 32-bit numbers too, a 3MF by what is packed in it. `name` tells the
/// kind by its ending.
void expectFinite(const std::string& name, std::string_view bytes);

/// Ends the run where an STL file is no closed surface: where an edge is not used as often in one
/// direction as in the other.
void expectClosedStl(const std::string& name, std::string_view bytes);

/// Ends the run where `outcome` is cancelled, which nobody has asked for, or fails without a word,
/// or with one that holds what is no finite number.
void expectWord(const std::string& what, const Outcome& outcome);

/// Ends the run where what `save` gives cannot be read, or is saved as other bytes once it has been
/// read. `read` takes the bytes in hand, and tells whether it could.
void expectFixedPoint(const std::function<std::string()>& save,
                      const std::function<bool(const std::string&)>& read);

/// Ends the run where memory has been lost since the program began. Looking takes as long as many
/// runs, so only each fiftieth call looks, the first among them; without sanitizers none does.
void expectNoLeak();

}  // namespace velna::fuzz
