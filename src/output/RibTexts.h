#pragma once

#include <string>

#include "output/RibWishes.h"

namespace velna {

/// Wishes about ribs as they are typed, with lengths in the project's unit.
struct RibTexts {
    bool bySpacing = false;  ///< which of the next two counts
    std::string stations;
    std::string spacing;
    std::string skin;
    std::string spars;  ///< "30,6,4,top; 30,6,4,bottom"
};

/// The texts of `wishes` in a unit that is `mm` millimetres long.
RibTexts ribTexts(const RibWishes& wishes, double mm);

/// Sets `wishes` from the texts. Failed with a word, `wishes` left alone, where one is none.
Outcome readRibTexts(const RibTexts& texts, double mm, RibWishes& wishes);

}  // namespace velna
