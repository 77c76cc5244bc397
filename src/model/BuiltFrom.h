#pragma once

#include <vector>

namespace velna {

/// What a solid was built from last, so that it need not be built again from the same.
template <class Part>
class BuiltFrom {
public:
    /// The picture shows the solid as it is.
    bool drawn = false;

    bool standsFor(const Part& part) const { return !part_.empty() && part_.front() == part; }
    /// The solid has been built from `part`.
    void note(const Part& part) {
        part_.assign(1, part);
        drawn = false;
    }

private:
    std::vector<Part> part_;  // none or one; unlike an optional it needs no whole type here
};

}  // namespace velna
