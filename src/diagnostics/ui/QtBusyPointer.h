#pragma once
// The hourglass the diagnostic sets while a query runs, as the windows show it.
#include "diagnostics/ClsKdxDiagnostic.h"

#include <QApplication>

namespace korval {

class QtBusyPointer final : public BusyPointer {
public:
    void SetBusy(bool busy) override {
        if (busy) {
            QApplication::setOverrideCursor(Qt::WaitCursor);
        } else {
            QApplication::restoreOverrideCursor();
        }
    }
};

} // namespace korval
