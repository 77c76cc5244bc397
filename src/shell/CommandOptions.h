#pragma once

#include <span>
#include <string>
#include <string_view>

#include "shell/Arguments.h"

namespace velna {

/// The command that an option belongs to.
enum class OptionUse { Alone, Export, Info };

/// What an export draws, a bit each: what an option means depends on it.
namespace Drawn {
inline constexpr unsigned view = 1;
inline constexpr unsigned pages = 2;    ///< a plan on paper
inline constexpr unsigned cutting = 4;  ///< a plan to be cut
inline constexpr unsigned solid = 8;    ///< the aircraft as bodies
inline constexpr unsigned anything = 15;
}  // namespace Drawn

/// One option of the command line.
struct OptionRow {
    const char* name;      ///< "--view"
    const char* argument;  ///< what follows it, as the help shows it; empty for nothing
    const char* help;
    OptionUse use;
    unsigned kinds;   ///< the kinds of file that it makes sense for, a bit each
    unsigned drawn;   ///< what must be drawn for it to mean something
    bool repeatable;  ///< may be given several times
    /// Takes the word that follows, empty where none does; failed where it is none that fits.
    Outcome (*take)(Arguments& arguments, const OptionRow& option, std::string_view word);
};

/// The options in the order in which the help tells them.
std::span<const OptionRow> commandOptions();

/// The option of that name; null for none.
const OptionRow* optionNamed(std::string_view name);

/// Whether an option makes sense for files of `kind`.
bool fits(const OptionRow& option, ExportKind kind);

/// What `--help` says.
std::string helpText();

}  // namespace velna
