#include "output/CutDrawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "common/NumberText.h"
#include "output/CutText.h"
#include "output/PartPacking.h"

namespace velna {

namespace {

// millimetres
constexpr double boardWidth = 600;
constexpr double gap = 5;

void move(CutPart& part, double dx, double dy) {
    const auto by = [&](Point2D& point) { point = {point.x + dx, point.y + dy}; };
    for (Loop& loop : part.cut) std::for_each(loop.begin(), loop.end(), by);
    for (auto& line : part.engrave) std::for_each(line.begin(), line.end(), by);
    for (PartText& text : part.texts) by(text.at);
}

/// A kind of line: its layer, its colour in DXF's numbers and in SVG.
struct Layer {
    std::string_view name;
    int number;
    std::string_view colour;
};

constexpr Layer cutLayer{"cut", 1, "#ff0000"};
constexpr Layer engraveLayer{"engrave", 5, "#0000ff"};
constexpr Layer textLayer{"text", 3, "#008000"};
constexpr Layer layers[] = {cutLayer, engraveLayer, textLayer};

/// The width of lines on a screen: machines follow their middle.
constexpr std::string_view strokeWidth = "0.1";
/// The height of capitals in DXF, in heights of the font.
constexpr double capitals = 0.73;

/// To a millionth of a millimetre: further digits are rounding.
std::string number(double value) {
    return numberText(std::round(value * 1e6) / 1e6);
}

/// A DXF file: pairs of lines, a code and a value.
class DxfPairs {
public:
    explicit DxfPairs(TextSink& file) : file_(file) {}

    void put(int code, std::string_view value) {
        file_.line(std::to_string(code));
        file_.line(value);
    }
    void put(int code, double value) { put(code, number(value)); }
    /// An entity on its layer.
    void begin(std::string_view kind, std::string_view layer) {
        file_.flushIfFull();
        put(0, kind);
        put(8, layer);
    }
    /// A point; `first` is 10 for a start and 11 for an end.
    void point(const Point2D& at, int first = 10) {
        put(first, at.x);
        put(first + 10, at.y);
        put(first + 20, 0.0);
    }

private:
    TextSink& file_;
};

void dxfHeader(DxfPairs& dxf, const CutDrawing& drawing) {
    dxf.put(999, dxfText(drawing.title));
    dxf.put(0, "SECTION");
    dxf.put(2, "HEADER");
    dxf.put(9, "$ACADVER");
    dxf.put(1, "AC1009");
    dxf.put(9, "$INSUNITS");
    dxf.put(70, "4");
    dxf.put(9, "$MEASUREMENT");
    dxf.put(70, "1");
    dxf.put(9, "$EXTMIN");
    dxf.point({0, 0});
    dxf.put(9, "$EXTMAX");
    dxf.point({drawing.width, drawing.height});
    dxf.put(0, "ENDSEC");
}

void dxfTables(DxfPairs& dxf) {
    dxf.put(0, "SECTION");
    dxf.put(2, "TABLES");
    dxf.put(0, "TABLE");
    dxf.put(2, "LTYPE");
    dxf.put(70, "1");
    dxf.put(0, "LTYPE");
    dxf.put(2, "CONTINUOUS");
    dxf.put(70, "0");
    dxf.put(3, "Solid line");
    dxf.put(72, "65");
    dxf.put(73, "0");
    dxf.put(40, "0");
    dxf.put(0, "ENDTAB");
    dxf.put(0, "TABLE");
    dxf.put(2, "LAYER");
    dxf.put(70, std::to_string(std::size(layers)));
    for (const Layer& layer : layers) {
        dxf.put(0, "LAYER");
        dxf.put(2, layer.name);
        dxf.put(70, "0");
        dxf.put(62, std::to_string(layer.number));
        dxf.put(6, "CONTINUOUS");
    }
    dxf.put(0, "ENDTAB");
    dxf.put(0, "ENDSEC");
}

void dxfPart(DxfPairs& dxf, const CutPart& part) {
    for (const Loop& loop : part.cut) {
        dxf.begin("POLYLINE", cutLayer.name);
        dxf.put(66, "1");
        dxf.point({0, 0});
        dxf.put(70, "1");
        for (const Point2D& point : loop) {
            dxf.begin("VERTEX", cutLayer.name);
            dxf.point(point);
        }
        dxf.begin("SEQEND", cutLayer.name);
    }
    for (const auto& line : part.engrave) {
        dxf.begin("LINE", engraveLayer.name);
        dxf.point(line[0]);
        dxf.point(line[1], 11);
    }
    for (const PartText& text : part.texts) {
        dxf.begin("TEXT", textLayer.name);
        dxf.point(text.at);
        dxf.put(40, capitals * text.height);
        dxf.put(1, dxfText(text.text));
    }
}

/// An SVG of a drawing: its rows count downward.
class SvgShapes {
public:
    SvgShapes(TextSink& file, double height) : file_(file), height_(height) {}

    void loop(const Loop& points) {
        std::string path = "M";
        for (const Point2D& point : points) path += (path.size() > 1 ? " L" : "") + place(point);
        put("<path d=\"" + path + " Z\"/>");
    }
    void line(const Point2D& from, const Point2D& to) {
        put("<path d=\"M" + place(from) + " L" + place(to) + "\"/>");
    }
    void text(const PartText& text) {
        put("<text x=\"" + number(text.at.x) + "\" y=\"" + number(height_ - text.at.y) +
            "\" font-size=\"" + number(text.height) + "\">" + xmlText(text.text) + "</text>");
    }
    void put(std::string_view element) {
        file_.buffer().append(element);
        file_.buffer() += '\n';
        file_.flushIfFull();
    }

private:
    std::string place(const Point2D& point) const {
        return number(point.x) + ',' + number(height_ - point.y);
    }

    TextSink& file_;
    double height_;
};

void strokeGroup(SvgShapes& svg, const Layer& layer) {
    svg.put("<g id=\"" + std::string(layer.name) + "\" fill=\"none\" stroke=\"" +
            std::string(layer.colour) + "\" stroke-width=\"" + std::string(strokeWidth) + "\">");
}

}  // namespace

CutDrawing layOut(std::vector<CutPart> parts, std::string title) {
    CutDrawing drawing{0, 0, std::move(title), std::move(parts)};
    std::vector<PartBox> boxes;
    std::vector<PackedPart> sizes;
    double widest = boardWidth - 2 * gap;
    for (const CutPart& part : drawing.parts) {
        boxes.push_back(part.box());
        // Nothing is turned: the grain of the board runs along the ribs.
        sizes.push_back({{boxes.back().width(), boxes.back().height()}});
        widest = std::max(widest, boxes.back().width());
    }
    const std::vector<PackedPlace> places =
        packParts(sizes, {widest, std::numeric_limits<double>::infinity()}, gap);
    for (std::size_t n = 0; n < places.size(); ++n) {
        drawing.width = std::max(drawing.width, places[n].x + boxes[n].width());
        drawing.height = std::max(drawing.height, places[n].y + boxes[n].height());
    }
    drawing.width += 2 * gap;
    drawing.height += 2 * gap;
    for (std::size_t n = 0; n < places.size(); ++n) {
        move(drawing.parts[n], gap + places[n].x - boxes[n].left,
             drawing.height - gap - places[n].y - boxes[n].top);
    }
    return drawing;
}

void writeDxf(TextSink& file, const CutDrawing& drawing) {
    DxfPairs dxf(file);
    dxfHeader(dxf, drawing);
    dxfTables(dxf);
    dxf.put(0, "SECTION");
    dxf.put(2, "ENTITIES");
    for (const CutPart& part : drawing.parts) dxfPart(dxf, part);
    dxf.put(0, "ENDSEC");
    dxf.put(0, "EOF");
}

void writeSvg(TextSink& file, const CutDrawing& drawing) {
    SvgShapes svg(file, drawing.height);
    const std::string width = number(drawing.width);
    const std::string height = number(drawing.height);
    svg.put("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
    svg.put("<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"" + width +
            "mm\" height=\"" + height + "mm\" viewBox=\"0 0 " + width + ' ' + height + "\">");
    svg.put("<title>" + xmlText(drawing.title) + "</title>");
    strokeGroup(svg, cutLayer);
    for (const CutPart& part : drawing.parts)
        for (const Loop& loop : part.cut) svg.loop(loop);
    svg.put("</g>");
    strokeGroup(svg, engraveLayer);
    for (const CutPart& part : drawing.parts)
        for (const auto& line : part.engrave) svg.line(line[0], line[1]);
    svg.put("</g>");
    svg.put("<g id=\"" + std::string(textLayer.name) + "\" font-family=\"sans-serif\" fill=\"" +
            std::string(textLayer.colour) + "\">");
    for (const CutPart& part : drawing.parts)
        for (const PartText& text : part.texts) svg.text(text);
    svg.put("</g>");
    svg.put("</svg>");
}

}  // namespace velna
