#include "support/RecordingSurface.h"

#include <algorithm>

namespace velna::test {

std::optional<Point2D> RecordingSurface::pictureSize(const std::string& file) {
    const auto found = pictures.find(file);
    if (found == pictures.end()) return std::nullopt;
    return found->second;
}

void RecordingSurface::paintPicture(const std::string& file, Point2D position, Point2D size) {
    if (!pictures.contains(file)) return;
    calls.push_back({SurfaceCall::Kind::Picture, position.x, position.y, size.x, size.y, {}, file});
}

std::vector<SurfaceCall> RecordingSurface::sinceClear() const {
    const auto isClear = [](const SurfaceCall& call) {
        return call.kind == SurfaceCall::Kind::Clear;
    };
    const auto last = std::find_if(calls.rbegin(), calls.rend(), isClear);
    return {last.base(), calls.end()};
}

int RecordingSurface::count(SurfaceCall::Kind kind) const {
    return static_cast<int>(std::ranges::count(calls, kind, &SurfaceCall::kind));
}

int RecordingSurface::lines(Rgb colour) const {
    return static_cast<int>(std::ranges::count_if(calls, [&](const SurfaceCall& call) {
        return call.kind == SurfaceCall::Kind::Line && call.colour == colour;
    }));
}

}  // namespace velna::test
