#include "gallery/GalleryPictures.h"

#include "gallery/GalleryWindow.h"
#include "gallery/Sheet.h"
#include "platform/Failure.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>

namespace gallery {

namespace {

/// For the writer of the file this is the best compression, at the price of time.
constexpr int SmallestFile = 0;

void Save(const QPixmap& picture, const QString& file) {
    // Without an unused channel the file is a quarter smaller.
    if (!picture.toImage().convertToFormat(QImage::Format_RGB888).save(file, "PNG", SmallestFile)) {
        throw platform::Failure(platform::FailureNumber::FileNotFound,
                                QStringLiteral("Can't write %1").arg(file));
    }
}

}  // namespace

void SavePictures(GalleryWindow& window, const QString& folder, const QString& suffix) {
    // A caret that blinks would make another picture each time.
    QApplication::setCursorFlashTime(0);
    window.show();
    window.activateWindow();
    for (Sheet* sheet : window.Sheets()) {
        window.ShowSheet(sheet);
        QApplication::processEvents();
        const QString name = sheet->Title().toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
        Save(sheet->grab(sheet->Used()), QDir(folder).filePath(name + suffix + QStringLiteral(".png")));
    }
}

}  // namespace gallery
