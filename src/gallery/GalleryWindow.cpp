#include "gallery/GalleryWindow.h"

#include "controls/base/Display.h"
#include "controls/base/Font.h"
#include "gallery/EventLog.h"
#include "gallery/Pages.h"
#include "gallery/Sheet.h"

#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>

namespace gallery {

namespace {

constexpr int HeightOfLog = 1650;

}  // namespace

GalleryWindow::GalleryWindow() : tabs_(new QTabWidget(this)), log_(new EventLog(this)) {
    setObjectName(QStringLiteral("GalleryWindow"));
    setWindowTitle(QStringLiteral("Controls of the Wrenfield Wizard"));
    setFont(controls::ControlFont());
    tabs_->setAccessibleName(QStringLiteral("Controls"));
    sheets_ = {ButtonPage(*log_, tabs_), TextBoxPage(*log_, tabs_), DatePage(*log_, tabs_),
               GridPage(*log_, tabs_),   SkinPage(tabs_),           GroupBoxPage(*log_, tabs_),
               HeadingPage(*log_, tabs_)};
    for (Sheet* sheet : sheets_) {
        sheet->setFixedSize(sheet->size());
        tabs_->addTab(sheet, sheet->Title());
    }
    // What the samples have raised on their way into their states is no event of the user's.
    log_->clear();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addWidget(new QLabel(log_->accessibleName(), this));
    layout->addWidget(log_);
    log_->setFixedHeight(controls::ToPixels(HeightOfLog));
}

void GalleryWindow::ShowSheet(Sheet* sheet) {
    tabs_->setCurrentWidget(sheet);
}

}  // namespace gallery
