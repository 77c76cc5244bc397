#include "shell/qt/WindowLayout.h"

#include <algorithm>

namespace velna {
namespace {

constexpr int rightMargin = 10;
constexpr int stripGap = 16;

// The panel's width and height, and the work width above which the logo is shown.
struct PanelSize {
    int width;
    int height;
    int logoFrom;
};
constexpr PanelSize normalPanel{320, 540, 800};
constexpr PanelSize smallPanel{190, 450, 700};

}  // namespace

WindowLayout layOutWindow(const LayoutInput& in) {
    const PanelSize& panel = in.smallFonts ? smallPanel : normalPanel;
    WindowLayout out;
    out.bar = {0, 0, in.workWidth, in.barHeight};

    const int left = std::max(panel.width, in.panelNeeds);
    const int width = std::max(in.workWidth - left - rightMargin, 1);
    const int half = in.workHeight / 2;
    const int halfHeight = std::max(half - in.barHeight, 1);
    out.render = {left, in.barHeight, width, halfHeight};
    out.drawArea = {left, half, width, halfHeight};

    // A window lower than the panel wants makes the panel lower: its pages scroll.
    const int room = std::max(in.workHeight - 2 * in.barHeight, 1);
    const int height = std::min(panel.height, room);
    out.parameters = {0, in.workHeight - height - in.barHeight, left, height};
    out.hints = {0, in.barHeight, left, out.parameters.top - in.barHeight};

    const int foot = std::max(out.drawArea.bottom(), out.parameters.bottom());
    out.foot = {0, foot, in.workWidth, std::max(in.workHeight - foot, 0)};
    out.logoLeft = left - 3;
    out.logoWidth = out.foot.height * 3;
    out.logoVisible = in.workWidth > panel.logoFrom;
    const int stripLeft =
        out.logoVisible ? out.logoLeft + out.logoWidth + stripGap : out.drawArea.left;
    out.strip = {stripLeft, foot, std::max(out.drawArea.right() - stripLeft, 0), out.foot.height};
    return out;
}

}  // namespace velna
