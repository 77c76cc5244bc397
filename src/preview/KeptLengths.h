#pragma once

#include <array>
#include <vector>

#include "common/List.h"

namespace velna {

/// All lengths of the project as they stand at its making. Multiplying and dividing back would
/// leave other last digits, and a project must come out of a flight as it went in.
class KeptLengths {
public:
    KeptLengths();

    /// Puts every length back.
    void restore() const;

private:
    using EightLengths = std::array<double, 8>;
    using BoxLengths = std::array<double, 6>;
    struct BodyLengths {
        std::array<double, 3> whole;
        std::array<Array1<double>, 4> sections;
    };

    std::vector<EightLengths> wings_;
    EightLengths stabilizer_;
    EightLengths rudder_;
    std::vector<BodyLengths> fuselages_;
    std::vector<BoxLengths> boxes_;
};

}  // namespace velna
