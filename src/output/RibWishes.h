#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/Outcome.h"
#include "model/Rib.h"
#include "model/SparSlot.h"

namespace velna {

/// What ribs, wing plans and fuselage sections to be cut shall be like; all lengths in millimetres.
struct RibWishes {
    StationWish stations;
    double skin = 0;              ///< what is taken off all round for the skin; never negative
    std::vector<SparSlot> spars;  ///< the slots of each rib
    bool each = false;            ///< a file for each rib, section or panel
};

/// Sets one wish from its name ("stations", "spacing", "skin", "slot") and its text ("8", "75.5",
/// "1.5", "30,6,4,top"); slots add up, and of stations and spacing the later one counts. Failed
/// with a word, `wishes` left alone, where the text is none.
Outcome takeRibWish(RibWishes& wishes, std::string_view name, std::string_view text);

/// What `takeRibWish` takes, a name and a text for each, to set the same wishes again.
struct RibWishText {
    std::string name;
    std::string text;
};
std::vector<RibWishText> ribWishTexts(const RibWishes& wishes);

/// The slots of a text such as "30,6,4,top; 65,3,3,bottom": percent of the chord, width and depth,
/// whose unit is `mm` millimetres long, and the edge. An empty text has none. Failed with a word.
Outcome readSlots(std::string_view text, double mm, std::vector<SparSlot>& spars);

/// The text that `readSlots` reads.
std::string slotsText(const std::vector<SparSlot>& spars, double mm);

}  // namespace velna
