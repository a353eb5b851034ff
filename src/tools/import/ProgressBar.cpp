#include "tools_core/import/ProgressBar.h"

#include "tools_core/import/Terminal.h"

namespace tools {

void ProgressBar::Show(int done, int total) {
    constexpr int width = 50;
    if (!isShown_ || total <= 0) {
        return;
    }
    const int percent = static_cast<int>(100LL * done / total);
    if (percent == percent_) {
        return;
    }
    percent_ = percent;
    const QString bar = QString(percent * width / 100, QLatin1Char('#')).leftJustified(width);
    PrintError(QStringLiteral("\r[%1] %2%").arg(bar).arg(percent, 3));
}

void ProgressBar::Clear() {
    if (percent_ >= 0) {
        PrintError(QStringLiteral("\r\033[K"));
        percent_ = -1;
    }
}

}  // namespace tools
