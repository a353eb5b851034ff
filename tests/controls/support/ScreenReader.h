#pragma once

#include <QAccessible>
#include <QStringList>

/// A screen reader that runs while it lives. It notes the selections, changes of state and new orders of
/// children that it is told, with the child that they are about: "selection 3", "state selected 3",
/// "state disabled 3", "reorder".
class ScreenReader {
public:
    ScreenReader();
    ScreenReader(const ScreenReader&) = delete;
    ScreenReader& operator=(const ScreenReader&) = delete;
    ~ScreenReader();

    /// What was told since the last call.
    static QStringList Heard();
};
