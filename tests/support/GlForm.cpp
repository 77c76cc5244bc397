#include "support/GlForm.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <string_view>

namespace velna::test {
namespace {

using nlohmann::json;

/// The arguments of the calls that a comparison looks at, a letter each: a text, a number, a whole
/// number, a list of four numbers.
struct CallForm {
    std::string_view beginning;
    std::string_view arguments;
};
constexpr std::array forms{
    CallForm{"glVertex3", "nnn"},
    CallForm{"glNormal3", "nnn"},
    CallForm{"glTexCoord2", "nn"},
    CallForm{"glBegin", "t"},
    CallForm{"glEnable", "t"},
    CallForm{"glDisable", "t"},
    CallForm{"glMaterialfv", "ttl"},
    CallForm{"glBindTexture", "tw"},
    CallForm{"glTexImage2D", "twwwwwtt"},
    CallForm{"glTexParameter", "ttt"},
    CallForm{"glTexEnv", "ttt"},
};

bool fits(const json& argument, char letter) {
    switch (letter) {
        case 't':
            return argument.is_string();
        case 'n':
            return argument.is_number();
        case 'w':
            return argument.is_number_integer();
        default:
            return argument.is_array() && argument.size() == 4 &&
                   std::ranges::all_of(argument, [](const json& n) { return n.is_number(); });
    }
}

bool isCall(const json& call) {
    if (!call.is_array() || call.empty() || !call[0].is_string()) return false;
    const std::string name = call[0];
    const auto form = std::ranges::find_if(
        forms, [&](const CallForm& each) { return name.starts_with(each.beginning); });
    if (form == forms.end()) return true;
    if (call.size() <= form->arguments.size()) return false;
    for (std::size_t i = 0; i < form->arguments.size(); ++i)
        if (!fits(call[i + 1], form->arguments[i])) return false;
    return true;
}

}  // namespace

void checkGlCalls(const json& calls) {
    if (!calls.is_array()) throw std::runtime_error("\"calls\" is no list");
    bool open = false;
    for (std::size_t i = 0; i < calls.size(); ++i) {
        const std::string where = "call " + std::to_string(i) + ": ";
        if (!isCall(calls[i])) throw std::runtime_error(where + "no call: " + calls[i].dump());
        const std::string name = calls[i][0];
        const bool inside = name == "glEnd" || name.starts_with("glVertex3");
        if (inside ? !open : name == "glBegin" && open)
            throw std::runtime_error(where + name + " on the wrong side of glBegin");
        if (name == "glBegin" || name == "glEnd") open = name == "glBegin";
    }
}

}  // namespace velna::test
