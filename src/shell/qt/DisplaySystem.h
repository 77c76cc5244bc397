#pragma once

class QWidget;

namespace velna::DisplaySystem {

/// Before the application is made: takes the X server where there is one and the user has named no
/// other platform. Under Wayland it is reached through the desktop's own X server, which gives the
/// program all that it needs; should it not answer, Wayland is left.
void choose();

/// The program speaks Wayland itself.
bool isWayland();

/// `widget` shall be seen where it crosses the picture, which has a native window. It gets one too;
/// under Wayland it does not, since the picture would then vanish, and it must keep beside it.
void standAbovePicture(QWidget& widget);

/// Says once on standard error what a desktop without an X server denies the program.
/// `logOutAsks` is false where a log-out cannot be asked about either.
void tellWhatIsDenied(bool logOutAsks);

}  // namespace velna::DisplaySystem
