#pragma once

#include <string_view>

#include "common/Outcome.h"

namespace velna {

struct Arguments;
struct OptionRow;

/// How each option takes the word that follows it, empty where none does. Failed with a reason, and
/// nothing changed, where it is none that fits.
namespace OptionValues {

Outcome takeVersion(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takeHelp(Arguments& arguments, const OptionRow& option, std::string_view word);

Outcome takeExport(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takeKind(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takeView(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takePlan(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takeFuselage(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takeSize(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takePaper(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takeLandscape(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takeTape(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takeRibWish(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takeEach(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takeCut(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takeStrict(Arguments& arguments, const OptionRow& option, std::string_view word);

Outcome takeInfo(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takeJson(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takeMass(Arguments& arguments, const OptionRow& option, std::string_view word);
Outcome takeSpeed(Arguments& arguments, const OptionRow& option, std::string_view word);

}  // namespace OptionValues
}  // namespace velna
