#pragma once

#include <QElapsedTimer>
#include <QPointer>

#include "common/Progress.h"

class QProgressDialog;

namespace velna {

/// The bar that appears when an export or a print job takes over a second, with its Cancel.
class QtProgress : public Progress {
public:
    bool step(long long done, long long total) override;
    bool stillAtWork() override;

    void finish() override;

private:
    bool isTimeToLook();
    bool look();
    void showBar();

    QElapsedTimer since_;  // the first step of the command; invalid before it
    QElapsedTimer shown_;  // the last time that events were let run
    QPointer<QProgressDialog> bar_;
    bool cancelled_ = false;
};

}  // namespace velna
