#pragma once

namespace velna {

class MainForm;

/// A view can be looked at nearer and farther than its fit, by these factors at most: neither does
/// the aircraft become a dot that nobody finds again, nor do the outlines leave what can be drawn.
inline constexpr double farthestView = 0.05;
inline constexpr double nearestView = 200;

/// Makes the view larger by `factor`, above 0, about the pixel (`x`, `y`), where the model stays.
/// Shown until the next fit. Nothing changes while something is dragged, by a factor that is no
/// number, or beyond the limits.
void zoomAt(MainForm& form, double x, double y, double factor);

/// Moves the view by `pixels` to the right, until the next fit, and no farther than that a strip of
/// what the fit has shown stays in sight. Nothing changes while something is dragged.
void panSideways(MainForm& form, double pixels);

}  // namespace velna
