#pragma once

#include <initializer_list>
#include <vector>

#include "support/FreshModel.h"

namespace velna {

/// A test on the default aircraft's fuselage.
class ShapingFixture : public FreshModel {
protected:
    MeshSections& body() { return Fuselages(1); }
    BodySolid& solid() { return solids.fuselages(1); }
    void build() { solid().create(body()); }

    /// Sections along x with the widths given, 100 apart.
    void setWidths(std::initializer_list<double> widths) {
        body().nb_sections = static_cast<std::int16_t>(widths.size());
        body().initArrays();
        std::int16_t i = 0;
        for (double width : widths) {
            ++i;
            body().sectionOrder(i) = i;
            body().width(i) = width;
            body().height(i) = 2 * width;
            body().pos(i) = 100.0 * (i - 1);
            body().elevation(i) = i;
            body().curvature(i) = 0.5 * i;
            body().curvature2(i) = i;
            body().bias_curve(i) = 0.1 * i;
        }
    }

    std::vector<double> order(int count) {
        std::vector<double> result;
        for (int i = 1; i <= count; ++i) result.push_back(body().sectionOrder(i));
        return result;
    }
};

}  // namespace velna
