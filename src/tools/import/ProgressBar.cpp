#include "tools/import/ProgressBar.h"

#include "platform/Process.h"
#include "tools/import/Terminal.h"

#include <algorithm>

namespace tools {

void ProgressBar::Show(int done, int total) {
    if (!isShown_ || total <= 0) {
        return;
    }
    const int percent = static_cast<int>(100LL * done / total);
    if (percent == percent_) {
        return;
    }
    percent_ = percent;
    Draw();
}

void ProgressBar::Draw() const {
    constexpr int Width = 50;
    const int percent = std::max(percent_, 0);
    const QString bar = QString(percent * Width / 100, QLatin1Char('#')).leftJustified(Width);
    const QString waiting = isHeldUp_ ? QStringLiteral(" held up by another program") : QString();
    PrintError(QStringLiteral("\r\033[K[%1] %2%%3").arg(bar).arg(percent, 3).arg(waiting));
}

bool ProgressBar::GoesOn() {
    return !platform::IsEndRequested();
}

void ProgressBar::HeldUp(bool isHeldUp) {
    isHeldUp_ = isHeldUp;
    if (isShown_) {
        Draw();
    } else if (isHeldUp) {
        PrintError(
            QStringLiteral("wrenfield-import: another program holds the database up; going on in memory\n"));
    }
}

void ProgressBar::Clear() {
    if (percent_ >= 0) {
        PrintError(QStringLiteral("\r\033[K"));
        percent_ = -1;
    }
}

}  // namespace tools
