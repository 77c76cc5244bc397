#pragma once

#include <string>
#include <vector>

namespace velna {

class ValueReader;
class ReplacedFile;

/// One row of the Fuselage Manager.
struct FuselageRow {
    std::string text;       ///< "Fuselage 001"
    std::string status;     ///< "Shown" or "Hidden"; the check mark is what counts
    std::string sections;   ///< `nb_sections` in at least three digits
    bool checked = true;    ///< the fuselage is shown, can be hit, and has a solid
    bool selected = false;  ///< selection state of the list on screen
};

/// The Fuselage Manager's list: it holds which fuselages are shown. Row i belongs to
/// `Fuselages(i)`.
struct ObjectListRecord {
    std::vector<FuselageRow> rows;

    /// Whether fuselage `i` is shown: its row exists and is checked.
    bool shown(int i) const;

    /// Sets row `i` (1-based) to shown or hidden, text and check mark.
    void setShown(int i, bool shown);

    // model/
    void clear() { rows.clear(); }
    /// Brings the row count to `nbFuselages` and refreshes the section counts.
    void update();

    // persistence/
    void save(ReplacedFile& file) const;
    void read(ValueReader& file);
};

extern ObjectListRecord ObjectList;

}  // namespace velna
