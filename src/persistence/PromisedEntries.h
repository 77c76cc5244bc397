#pragma once

#include <functional>
#include <memory>

#include "common/List.h"
#include "model/Prefs.h"

namespace velna {

/// Promises `count` new objects of the defaults in the unit in force now. An object is made only
/// when it is first asked for, which may be after the file's own unit has been read.
template <class Object>
void promiseEntries(OwnedList<Object>& list, int count) {
    list.fill(count, [promisedIn = Prefs.units] {
        const int now = Prefs.units;
        Prefs.units = promisedIn;
        auto object = std::make_unique<Object>();
        Prefs.units = now;
        return object;
    });
}

}  // namespace velna
