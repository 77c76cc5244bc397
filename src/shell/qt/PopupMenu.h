#pragma once

#include <QMenu>

namespace velna {

class Mirrors;

/// The menu `Popup` of the drawing surface.
class PopupMenu : public QMenu {
public:
    PopupMenu(Mirrors& mirrors, QWidget* parent);
};

}  // namespace velna
