#include "controls/akGrid.h"
#include "controls/grid/GridAccessible.h"

#include <QScrollBar>

#include <limits>

namespace controls {

void akGrid::CreateParts() {
    headings_.push_back(NewHeadingLabel());
    cells_.push_back(NewCellLabel());

    scrollBar_ = new QScrollBar(Qt::Vertical, this);
    scrollBar_->setObjectName(QStringLiteral("VScroll"));
    scrollBar_->setAccessibleName(QStringLiteral("Scroll the list"));
    // Its numbers have 16 bits, which shows in lists longer than that.
    scrollBar_->setRange(0, std::numeric_limits<qint16>::max());
    scrollBar_->setSingleStep(1);
    scrollBar_->setPageStep(1);
    // A dragged thumb moves the list when it is let go.
    scrollBar_->setTracking(false);
    // The list's pointer over a link must not stay when the mouse moves on to the bar, and a wheel that the
    // list hands to the bar must not come back.
    scrollBar_->setCursor(Qt::ArrowCursor);
    scrollBar_->setAttribute(Qt::WA_NoMousePropagation);
    scrollBar_->hide();
    connect(scrollBar_, &QScrollBar::valueChanged, this, &akGrid::Scrolled);

    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    RegisterGridAccessible();
}

}  // namespace controls
