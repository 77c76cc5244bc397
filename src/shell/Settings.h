#pragma once

#include <map>
#include <string>
#include <vector>

#include "common/Outcome.h"

namespace velna {

/// The names under which the program remembers something beyond its units.
namespace SettingKey {
inline constexpr const char* ctrlZ = "ctrl-z-undoes";          ///< flag: Ctrl+Z, Ctrl+Y and Ctrl+S
inline constexpr const char* figuresPlace = "figures-window";  ///< list: left, top, width, height
inline constexpr const char* recent = "recent-file";  ///< list: full paths, the newest first
}  // namespace SettingKey

/// What the program remembers of how its user works: lists of texts by name, in a file of lines
/// "name=text" in the user's configuration folder. A name that this program does not know is kept
/// for the one that wrote it.
class Settings {
public:
    /// Reads `settings.txt` of `folder`, which ends in "/" and need not exist. Lines that are none
    /// are left out; what cannot be read counts as empty.
    void load(const std::string& folder);

    /// The texts stored under `key`, in order.
    std::vector<std::string> list(const std::string& key) const;
    /// The first text stored under `key`, empty where there is none.
    std::string text(const std::string& key) const;
    bool flag(const std::string& key) const { return text(key) == yes; }

    /// Takes over what another running program has stored under `key` meanwhile, if anything.
    void readAgain(const std::string& key);

    /// Remembers `texts` under `key`, at once and in the file: what another running program has
    /// stored there under other names meanwhile stays. When the file cannot be written, this
    /// program remembers them all the same; before `load` it only does that.
    Outcome store(const std::string& key, const std::vector<std::string>& texts);
    Outcome storeFlag(const std::string& key, bool on) { return store(key, {on ? yes : no}); }

private:
    using Entries = std::map<std::string, std::vector<std::string>>;

    static constexpr const char* yes = "yes";
    static constexpr const char* no = "no";

    Outcome write(const std::string& key, const std::vector<std::string>& texts);

    Entries entries_;
    std::string folder_;
};

}  // namespace velna
