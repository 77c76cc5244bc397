#include "model/FrontOutline.h"

#include "common/NumberText.h"
#include "model/Lengths.h"
#include "model/MeshSections.h"

namespace velna {

FrontOutline::FrontOutline(const MeshSections& body, const Transform& at)
    : body_(body),
      at_(at),
      middle_(body.nb_cross / 2.0),
      upper_(1, middle_, body.nb_cross),
      // An odd number of front runs on half-odd indices here: their angles keep the fraction, and
      // two of them fall on one entry, the later one staying.
      lower_(middle_ + 1, body.nb_cross, body.nb_cross) {}

void FrontOutline::place(Point2D& point, double y, double z) const {
    assignFinite(point, y * at_.zoom + at_.xoff, -z * at_.zoom + at_.yoff);
}

void FrontOutline::writeHalf(Point2D* row, int k, const SuperEllipse& ellipse, double rise,
                             double base) const {
    double j = ellipse.first();
    for (const auto& spot : ellipse.places()) {
        place(row[roundToInt(j++)], (body_.width(k) / 2) * spot.cosine + body_.shift,
              (rise * spot.sine - base) + body_.elevation(k) + body_.elevation_offset);
    }
}

void FrontOutline::write(Point2D* row, int i) {
    const int k = body_.storageIndex(i);
    const double base = (body_.bias_curve(k) - 1) * body_.height(k);
    upper_.setExponent(body_.curvature(k));
    writeHalf(row, k, upper_, body_.height(k) * body_.bias_curve(k), base);
    if (body_.nb_cross > 1) {
        place(row[roundToInt(middle_ + 1)], -body_.width(k) / 2 + body_.shift,
              body_.elevation(k) + -base + body_.elevation_offset);
    }
    lower_.setExponent(body_.curvature2(k));
    writeHalf(row, k, lower_, (1.0 - body_.bias_curve(k)) * body_.height(k), base);
}

void FrontOutline::collect(int i, std::vector<Point2D>& section) {
    section.clear();
    if (body_.nb_cross < 1 || i < 1 || i > body_.sectionCount()) return;
    row_.assign(static_cast<std::size_t>(body_.nb_cross) + 1, Point2D{});
    write(row_.data(), i);
    for (int j = 1; j <= body_.nb_cross; ++j)
        if (body_.frontPointUsed(j)) section.push_back(row_[static_cast<std::size_t>(j)]);
}

}  // namespace velna
