#pragma once

#include <QCursor>
#include <QString>

namespace controls {

/// The pointer for what can be clicked: the one in the file "hand.cur" beside the program, and the default
/// pointer where there is no such file or it holds no pointer. Looked for anew each time.
QCursor HandCursor();

/// The pointer in a cursor file, with its hot spot. The default pointer if the file can't be read.
QCursor LoadCursor(const QString& path);

}  // namespace controls
