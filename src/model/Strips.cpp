#include "model/Strips.h"

#include <utility>

namespace velna {

namespace {

/// A place between the ends of a panel. Both shares are kept, since one from the other would lose
/// its digits near an end.
struct Place {
    Real fromRoot;
    Real fromTip;

    Real between(Real root, Real tip) const { return root * fromTip + tip * fromRoot; }
    bool operator==(const Place&) const = default;
};

/// How much of the panel lies between two places.
Real share(const Place& from, const Place& to) {
    return from.fromRoot + to.fromRoot < 1 ? to.fromRoot - from.fromRoot
                                           : from.fromTip - to.fromTip;
}

/// Where a value that runs straight from `root` to `tip`, which differ in sign, is 0.
Place zeroBetween(Real root, Real tip) {
    return {root / (root - tip), tip / (tip - root)};
}

bool changesSign(Real one, Real other) {
    return (one < 0 && other > 0) || (one > 0 && other < 0);
}

void turnRound(Strip& strip) {
    std::swap(strip.y1, strip.y2);
    std::swap(strip.x1, strip.x2);
    std::swap(strip.c1, strip.c2);
    strip.rise = -strip.rise;
}

/// A panel with the places where it is cut.
class CutPanel {
public:
    CutPanel(const Trapezium& panel, Strips::Halves halves)
        : panel_(panel),
          tip_(panel.root + panel.span),
          mirrored_(halves == Strips::Halves::Alike),
          crosses_(mirrored_ && changesSign(panel.root, tip_)),
          turns_(changesSign(panel.chord1, panel.chord2)) {
        if (crosses_) middle_ = zeroBetween(panel.root, tip_);
        if (turns_) point_ = zeroBetween(panel.chord1, panel.chord2);
        add({0, 1});
        if (crosses_) add(middle_);
        if (turns_) add(point_);
        add({1, 0});
    }

    int pieces() const { return count_ - 1; }

    /// Piece `i` with its chords as they are, the end that lies inside first.
    Strip piece(int i) const {
        const Place& from = places_[i];
        const Place& to = places_[i + 1];
        const Real part = share(from, to);
        const Real y1 = axisAt(from);
        const Real y2 = axisAt(to);
        Strip strip{std::abs(panel_.span) * part,
                    panel_.rise * part,
                    mirrored_ ? std::abs(y1) : y1,
                    mirrored_ ? std::abs(y2) : y2,
                    panel_.x + panel_.sweep * from.fromRoot,
                    panel_.x + panel_.sweep * to.fromRoot,
                    chordAt(from),
                    chordAt(to)};
        // The ends may be so far out that they round to the same place.
        const bool outward = mirrored_ && y1 + y2 < 0 ? panel_.span <= 0 : panel_.span >= 0;
        if (!outward) turnRound(strip);
        return strip;
    }

private:
    void add(const Place& place) {
        int at = count_++;
        for (; at > 0 && places_[at - 1].fromRoot > place.fromRoot; --at)
            places_[at] = places_[at - 1];
        places_[at] = place;
    }

    // A value is exactly 0 where the panel is cut for it.
    Real axisAt(const Place& at) const {
        if (crosses_ && at == middle_) return 0;
        return at.between(panel_.root, tip_);
    }
    Real chordAt(const Place& at) const {
        return turns_ && at == point_ ? 0 : at.between(panel_.chord1, panel_.chord2);
    }

    const Trapezium& panel_;
    Real tip_;
    bool mirrored_;
    bool crosses_;
    bool turns_;
    Place middle_{};
    Place point_{};
    Place places_[4]{};
    int count_ = 0;
};

/// A chord below 0 reaches ahead of its own leading edge: the plate is the same.
void turnChords(Strip& strip) {
    if (strip.c1 + strip.c2 >= 0) return;
    strip.x1 += strip.c1;
    strip.x2 += strip.c2;
    strip.c1 = -strip.c1;
    strip.c2 = -strip.c2;
}

}  // namespace

Real Strip::developed() const {
    return std::hypot(width, rise) * (c1 + c2) / 2;
}

Strips::Strips(const Trapezium& panel, Halves halves) {
    const CutPanel cut(panel, halves);
    for (; count_ < cut.pieces(); ++count_) {
        Strip& strip = strips_[static_cast<std::size_t>(count_)];
        strip = cut.piece(count_);
        turnChords(strip);
    }
}

}  // namespace velna
