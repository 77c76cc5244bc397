#include "shell/qt/Mirrors.h"

#include <QWidget>

namespace velna {

void Mirrors::show(Control control) const {
    for (const Show& show : shows_[static_cast<std::size_t>(control)]) show(controls_[control]);
}

void Mirrors::showAll() const {
    for (std::size_t i = 0; i < controlCount; ++i) show(static_cast<Control>(i));
}

void showPresence(QWidget& widget, const ControlState& state) {
    widget.setEnabled(state.enabled);
    widget.setVisible(state.visible);
}

}  // namespace velna
