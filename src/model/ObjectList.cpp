#include "model/ObjectList.h"

#include <cstddef>

#include "common/List.h"
#include "common/NumberText.h"
#include "model/MeshSections.h"

namespace velna {

namespace {

constexpr const char* shownText = "Shown";
constexpr const char* hiddenText = "Hidden";

}  // namespace

bool ObjectListRecord::shown(int i) const {
    return 1 <= i && static_cast<std::size_t>(i) <= rows.size() &&
           rows[static_cast<std::size_t>(i) - 1].checked;
}

void ObjectListRecord::setShown(int i, bool shown) {
    if (i < 1 || static_cast<std::size_t>(i) > rows.size()) return;
    FuselageRow& row = rows[static_cast<std::size_t>(i) - 1];
    row.status = shown ? shownText : hiddenText;
    row.checked = shown;
}

void ObjectListRecord::update(const OwnedList<MeshSections>& fuselages, int nbFuselages) {
    const auto wanted = static_cast<std::size_t>(nbFuselages);
    while (rows.size() < wanted) {
        FuselageRow row;
        row.text = "Fuselage " + threeDigits(static_cast<int>(rows.size()) + 1);
        row.status = shownText;
        rows.push_back(row);
    }
    rows.resize(wanted);
    for (int i = 1; i <= nbFuselages; ++i) {
        FuselageRow& row = rows[static_cast<std::size_t>(i) - 1];
        row.sections = threeDigits(fuselages(i).nb_sections);
    }
}

}  // namespace velna
