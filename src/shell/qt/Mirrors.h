#pragma once

#include <array>
#include <functional>
#include <utility>
#include <vector>

#include "editor/Controls.h"

class QWidget;

namespace velna {

/// How each control's state gets to its widget. `Main.controls` holds the states; a widget never
/// keeps one of its own, and showing one sends no event back.
class Mirrors {
public:
    using Show = std::function<void(const ControlState&)>;

    explicit Mirrors(const ControlStates& controls) : controls_(controls) {}

    /// Calls `show` at each change of the control, after what has been added before.
    void add(Control control, Show show) {
        shows_[static_cast<std::size_t>(control)].push_back(std::move(show));
    }
    /// Shows what `Main.controls` holds for `control`.
    void show(Control control) const;
    void showAll() const;
    /// Whether the control has a widget at all.
    bool has(Control control) const { return !shows_[static_cast<std::size_t>(control)].empty(); }

private:
    const ControlStates& controls_;
    std::array<std::vector<Show>, controlCount> shows_;
};

/// The part that all widgets have: enabled and visible.
void showPresence(QWidget& widget, const ControlState& state);

}  // namespace velna
