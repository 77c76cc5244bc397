#pragma once

#include <QObject>
#include <QRect>
#include <string>

class QWidget;

namespace velna {

class Settings;

/// Has a further window of the program stand where its user has put it, in this run and the next.
/// It belongs to the window.
class KeptPlace : public QObject {
public:
    /// `name` tells the window from others in the settings. Where it is not moved or resized by
    /// hand nothing is remembered, so that it goes on standing where the program puts it.
    KeptPlace(QWidget& window, Settings& settings, const std::string& name);

    /// Puts the window, which is hidden, where it was left; false where it never was moved, or
    /// where no screen shows that place now.
    bool restore();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void keep();

    QWidget& window_;
    Settings& settings_;
    std::string key_;
    QRect first_;  ///< where it stood when it came up; null until then
};

}  // namespace velna
