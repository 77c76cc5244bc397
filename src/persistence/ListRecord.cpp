#include "persistence/ListRecord.h"

#include "common/NumberText.h"
#include "common/TextSink.h"
#include "common/ValueReader.h"
#include "model/MeshSections.h"
#include "model/Project.h"
#include "persistence/RecordFields.h"

namespace velna {

namespace {

constexpr const char* listHead = "ObjectList";

}  // namespace

void saveList(TextSink& file, const ObjectListRecord& list) {
    file.line(listHead);
    saveInteger(file, static_cast<long long>(list.rows.size()));
    for (const FuselageRow& row : list.rows) {
        saveText(file, row.text);
        saveFlag(file, row.checked);
        file.flushIfFull();
    }
}

void readList(ValueReader& file, Project& project) {
    ObjectListRecord& list = project.ObjectList;
    list.clear();
    file.line();
    const std::int32_t count = file.int32();
    if (count < 0) throw ReadFailure("a count too small");
    for (int i = 1; i <= count; ++i) {
        // The row is there before its lines are read: a file that ends in it leaves it unticked.
        list.rows.emplace_back().checked = false;
        FuselageRow& row = list.rows.back();
        row.text = file.text();
        list.setShown(i, file.boolean());
        if (i > project.nbFuselages) throw ReadFailure("a row without a fuselage");
        row.sections = threeDigits(project.Fuselages(i).nb_sections);
    }
}

}  // namespace velna
