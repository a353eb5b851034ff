#include "support/GalleryOnScreen.h"

#include "support/OnScreen.h"

#include <QCoreApplication>

#include <algorithm>
#include <stdexcept>

GalleryOnScreen::GalleryOnScreen() {
    ShowAndActivate(window);
}

void GalleryOnScreen::Show(gallery::Sheet* sheet) {
    window.ShowSheet(sheet);
    QCoreApplication::processEvents();
}

gallery::Sheet* GalleryOnScreen::Show(const char* title) {
    for (gallery::Sheet* sheet : window.Sheets()) {
        if (sheet->Title() == QLatin1String(title)) {
            Show(sheet);
            return sheet;
        }
    }
    throw std::runtime_error(std::string("There is no sheet ") + title);
}

QStringList GalleryOnScreen::Logged(int lines) const {
    QStringList texts;
    const gallery::EventLog& log = window.Log();
    for (int row = log.count() - 1; row >= std::max(0, log.count() - lines); --row) {
        texts += log.item(row)->text();
    }
    return texts;
}
