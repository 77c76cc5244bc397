#pragma once

#include <vector>

namespace velna {

/// What a solid was built from last, so that it need not be built again from the same.
template <class Part>
class BuiltFrom {
public:
    /// The picture shows the solid as it is.
    bool drawn = false;

    bool standsFor(const Part& part) const { return stands_ && part_.front() == part; }
    /// The solid is about to be built, which may fail.
    void forget() {
        stands_ = false;
        drawn = false;
    }
    /// The solid has been built from `part`.
    void note(const Part& part) {
        part_.assign(1, part);
        stands_ = true;
        drawn = false;
    }

private:
    bool stands_ = false;
    std::vector<Part> part_;  // none or one; unlike an optional it needs no whole type here
};

}  // namespace velna
