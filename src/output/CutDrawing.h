#pragma once

#include <string>
#include <vector>

#include "common/TextSink.h"
#include "output/CutPart.h"

namespace velna {

/// Parts laid out for a machine that cuts: millimetres, y up, everything between the origin and
/// (`width`, `height`).
struct CutDrawing {
    double width = 0;
    double height = 0;
    std::string title;
    std::vector<CutPart> parts;
};

/// Lays parts out on a board as wide as common cutters take, or as the widest part, with room to
/// cut between them; as high as it needs.
CutDrawing layOut(std::vector<CutPart> parts, std::string title);

/// Writes the drawing as DXF (release 12, so that every program reads it) with its unit in the
/// header: closed polylines on the layer "cut", lines on "engrave", texts on "text".
void writeDxf(TextSink& file, const CutDrawing& drawing);

/// Writes it as SVG 1.1, its size in millimetres and a user unit a millimetre, with a group of the
/// same name for each kind of line.
void writeSvg(TextSink& file, const CutDrawing& drawing);

}  // namespace velna
