#include "shell/MainModule.h"

#include "platform/MessageBox.h"
#include "records/Collections.h"
#include "records/ImportRun.h"

#include <QApplication>

namespace shell {

void RunImport(bool restartRequested) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    // The window is held up from here on; what it still has to draw, the hourglass too, is drawn before.
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    records::ImportData(records::TheCollections());
    QApplication::restoreOverrideCursor();
    platform::ShowMessageBox(records::ImportCompleteMessage(restartRequested));
}

}  // namespace shell
