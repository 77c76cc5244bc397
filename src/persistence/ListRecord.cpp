#include "common/NumberText.h"
#include "common/ReplacedFile.h"
#include "common/ValueReader.h"
#include "model/ObjectList.h"
#include "model/Plane.h"
#include "persistence/RecordFields.h"

namespace velna {

namespace {

constexpr const char* listHead = "ObjectList";

}  // namespace

void ObjectListRecord::save(ReplacedFile& file) const {
    file.line(listHead);
    saveInteger(file, static_cast<long long>(rows.size()));
    for (const FuselageRow& row : rows) {
        saveText(file, row.text);
        saveFlag(file, row.checked);
        file.flushIfFull();
    }
}

void ObjectListRecord::read(ValueReader& file) {
    clear();
    file.line();
    const std::int32_t count = file.int32();
    if (count < 0) throw ReadFailure("a count too small");
    for (int i = 1; i <= count; ++i) {
        // The row is there before its lines are read: a file that ends in it leaves it unticked.
        rows.emplace_back().checked = false;
        FuselageRow& row = rows.back();
        row.text = file.text();
        setShown(i, file.boolean());
        if (i > nbFuselages) throw ReadFailure("a row without a fuselage");
        row.sections = threeDigits(Fuselages(i).nb_sections);
    }
}

}  // namespace velna
