#include "shell/WindowBehind.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>

namespace shell {

QWidget* WindowBehind() {
    if (QWidget* window = QApplication::activeWindow()) {
        return window;
    }
    if (QWidget* dialog = QApplication::activeModalWidget()) {
        return dialog;
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && window->windowType() == Qt::Window;
    });
    return found == windows.end() ? nullptr : *found;
}

}  // namespace shell
