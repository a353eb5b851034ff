#include "gallery/Sheet.h"

#include "controls/base/Control.h"
#include "controls/base/Display.h"
#include "controls/base/Font.h"

#include <QLabel>

#include <algorithm>
#include <utility>

namespace gallery {

using controls::ToPixels;

Sheet::Sheet(const QString& title, int columns, QWidget* parent)
    : QWidget(parent), title_(title), columns_(columns) {
    setObjectName(title);
    setAutoFillBackground(true);
    resize(ToPixels(Extent.width), ToPixels(Extent.height));
}

void Sheet::Add(QWidget* sample, const QString& caption, Size size, int span) {
    if (column_ + span > columns_) {
        EndRow();
    }
    const int pitch = (Extent.width - 2 * Margin + Gap) / columns_;
    const int left = Margin + column_ * pitch;
    AddCaption(caption, left, span * pitch - Gap);
    sample->setParent(this);
    sample->move(ToPixels(left), ToPixels(top_ + CaptionHeight));
    if (size.width > 0) {
        sample->resize(ToPixels(size.width), ToPixels(size.height));
    }
    rowHeight_ = std::max({rowHeight_, size.height, controls::ToTwips(sample->height())});
    column_ += span;
}

void Sheet::EndRow() {
    top_ += CaptionHeight + rowHeight_ + Gap;
    column_ = 0;
    rowHeight_ = 0;
}

QRect Sheet::Used() const {
    // A multiple of four is a whole number of device pixels at every scale factor in steps of a quarter.
    constexpr int Step = 4;
    const int bottom = childrenRect().bottom() + ToPixels(Margin);
    return {0, 0, width(), (bottom + Step - 1) / Step * Step};
}

void Sheet::AddCaption(const QString& text, int left, int width) {
    auto* caption = new QLabel(this);
    caption->setTextFormat(Qt::PlainText);
    caption->setFont(controls::ControlFont());
    caption->setText(text);
    caption->setGeometry(ToPixels(left), ToPixels(top_), ToPixels(width), ToPixels(CaptionHeight));
}

void Sheet::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    for (const std::function<void()>& stage : stages_) {
        stage();
    }
    if (focused_ != nullptr) {
        focused_->setFocus();
    }
}

}  // namespace gallery
