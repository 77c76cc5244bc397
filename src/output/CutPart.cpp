#include "output/CutPart.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string_view>

#include "model/SparSlot.h"

namespace velna {

namespace {

/// The width of a common letter and the distance of lines, in heights of the font.
constexpr double letterWidth = 0.62;
constexpr double lineDistance = 1.3;
/// What hangs below the line, likewise.
constexpr double descent = 0.25;
/// Millimetres between a text and the next line that is cut or drawn.
constexpr double gap = 0.8;
/// At how many places along the part a text is tried.
constexpr int tries = 24;
constexpr double anywhere = -std::numeric_limits<double>::infinity();

PartBox boxOfLines(const CutPart& part) {
    PartBox box;
    bool first = true;
    const auto reach = [&](const Point2D& point) {
        if (first) box = {point.x, point.y, point.x, point.y};
        first = false;
        box.reach(point);
    };
    for (const Loop& loop : part.cut)
        for (const Point2D& point : loop) reach(point);
    for (const auto& line : part.engrave)
        for (const Point2D& point : line) reach(point);
    return box;
}

/// Letters of a height, and where lines of them stand on both sides of an axis.
struct TextRows {
    double height = 0;
    double axis = 0;
    double above = 0;  ///< how far up they need room
    double below = 0;  ///< and how far down
    std::vector<double> bases;
};

/// So many lines, the last `under` of them below the axis.
TextRows rowsOf(std::size_t lines, std::size_t under, double height, double axis) {
    TextRows rows{height, axis, axis, axis, {}};
    const std::size_t over = lines - under;
    for (std::size_t n = 0; n < over; ++n) {
        rows.bases.push_back(axis + gap + descent * height +
                             static_cast<double>(over - 1 - n) * lineDistance * height);
    }
    for (std::size_t n = 0; n < under; ++n)
        rows.bases.push_back(axis - gap - height - static_cast<double>(n) * lineDistance * height);
    if (over > 0) rows.above = rows.bases.front() + height + gap;
    if (under > 0) rows.below = rows.bases.back() - descent * height - gap;
    return rows;
}

/// Of the places where rows of this width have room within the borders, the one with the most.
std::optional<double> placeInside(const CutPart& part, double width, const TextRows& rows,
                                  double from) {
    const PartBox box = boxOfLines(part);
    const double first = std::max(box.left, from) + gap;
    const double space = box.right - gap - width - first;
    if (space < 0) return {};
    std::optional<double> best;
    double most = 0;
    for (int n = 0; n <= tries; ++n) {
        const double left = first + space * n / tries;
        const auto clear = clearanceOf(part.cut, left - gap, left + width + gap);
        if (!clear || clear->lowestTop < rows.above || clear->highestBottom > rows.below) continue;
        const double room = clear->lowestTop - clear->highestBottom;
        if (room > most) {
            most = room;
            best = left;
        }
    }
    return best;
}

double widthOf(const std::vector<std::string>& lines, double height) {
    double width = 0;
    for (const std::string& line : lines) width = std::max(width, textWidth(line, height));
    return width;
}

bool labelInside(CutPart& part, const std::vector<std::string>& lines, const TextRows& rows,
                 double from) {
    const auto left = placeInside(part, widthOf(lines, rows.height), rows, from);
    if (!left) return false;
    for (std::size_t n = 0; n < lines.size(); ++n)
        part.texts.push_back({{*left, rows.bases[n]}, rows.height, lines[n]});
    return true;
}

/// The pieces of a text, which end behind its commas.
std::vector<std::string> piecesOf(const std::string& text) {
    constexpr std::string_view comma = ", ";
    std::vector<std::string> pieces;
    std::size_t from = 0;
    std::size_t at = 0;
    while ((at = text.find(comma, from)) != std::string::npos) {
        pieces.push_back(text.substr(from, at + 1 - from));
        from = at + comma.size();
    }
    pieces.push_back(text.substr(from));
    return pieces;
}

/// The texts, broken where they are wider than the part and than what cannot be broken.
std::vector<std::string> brokenLines(const std::vector<PartText>& texts, double width) {
    for (const PartText& text : texts)
        width = std::max(width, widthOf(piecesOf(text.text), partTextHeight));
    std::vector<std::string> lines;
    for (const PartText& text : texts) {
        const bool fits = textWidth(text.text, partTextHeight) <= width;
        for (const std::string& line : fits ? std::vector{text.text} : piecesOf(text.text))
            lines.push_back(line);
    }
    return lines;
}

void labelBelow(CutPart& part, const std::vector<std::string>& lines, double from = anywhere) {
    const PartBox box = boxOfLines(part);
    const double left = std::max(box.left, from + gap);
    double base = box.bottom - gap - partTextHeight;
    for (const std::string& line : lines) {
        part.texts.push_back({{left, base}, partTextHeight, line});
        base -= lineDistance * partTextHeight;
    }
}

}  // namespace

void PartBox::reach(const Point2D& point) {
    left = std::min(left, point.x);
    right = std::max(right, point.x);
    bottom = std::min(bottom, point.y);
    top = std::max(top, point.y);
}

double textWidth(const std::string& text, double height) {
    return static_cast<double>(text.size()) * letterWidth * height;
}

PartBox CutPart::box() const {
    PartBox box = boxOfLines(*this);
    for (const PartText& text : texts) {
        box.reach({text.at.x, text.at.y - descent * text.height});
        box.reach({text.at.x + textWidth(text.text, text.height), text.at.y + text.height});
    }
    return box;
}

void label(CutPart& part, const std::vector<std::string>& lines, const Lettering& lettering,
           double axis) {
    labelBeside(part, lines, lettering, axis, anywhere);
}

void labelBeside(CutPart& part, const std::vector<std::string>& lines, const Lettering& lettering,
                 double axis, double from) {
    for (const double height : {partTextHeight, 2.5, 1.8}) {
        if (lettering.onPaper && height != partTextHeight) break;
        for (const std::size_t under : {lines.size() / 2, std::size_t{0}})
            if (labelInside(part, lines, rowsOf(lines.size(), under, height, axis), from)) return;
    }
    labelBelow(part, lines, from);
}

CutPart turned(const CutPart& part) {
    const auto turn = [](Point2D& point) { point = {-point.y, point.x}; };
    CutPart upright = part;
    for (Loop& loop : upright.cut) std::for_each(loop.begin(), loop.end(), turn);
    for (auto& line : upright.engrave) std::for_each(line.begin(), line.end(), turn);
    upright.texts.clear();
    labelBelow(upright, brokenLines(part.texts, boxOfLines(upright).width()));
    return upright;
}

}  // namespace velna
