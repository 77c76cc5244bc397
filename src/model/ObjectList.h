#pragma once

#include <string>
#include <vector>

namespace velna {

class MeshSections;
template <class T>
class OwnedList;

/// One row of the Fuselage Manager.
struct FuselageRow {
    std::string text;      ///< "Fuselage 001"
    std::string status;    ///< "Shown" or "Hidden"; the check mark is what counts
    std::string sections;  ///< `nb_sections` in at least three digits
    bool checked = true;   ///< the fuselage is shown, can be hit, and has a solid

    friend bool operator==(const FuselageRow&, const FuselageRow&) = default;
};

/// The Fuselage Manager's list: it holds which fuselages are shown. Row i belongs to
/// `Fuselages(i)`.
struct ObjectListRecord {
    std::vector<FuselageRow> rows;

    /// Whether fuselage `i` is shown: its row exists and is checked.
    bool shown(int i) const;

    /// Sets row `i` (1-based) to shown or hidden, text and check mark.
    void setShown(int i, bool shown);

    void clear() { rows.clear(); }
    /// Brings the row count to `nbFuselages` and refreshes the section counts of `fuselages`.
    void update(const OwnedList<MeshSections>& fuselages, int nbFuselages);

    friend bool operator==(const ObjectListRecord&, const ObjectListRecord&) = default;
};

}  // namespace velna
