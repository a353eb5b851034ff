#include "controls/akGrid.h"
#include "controls/grid/SystemBeep.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>

#include <utility>

namespace controls {

namespace {

/// Tool tips take markup, and a name that looks like it must still be read as it stands.
QString AsPlainToolTip(const QString& text) {
    return Qt::mightBeRichText(text)
               ? QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped())
               : text;
}

}  // namespace

void akGrid::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Right:
            SetCol(Moved(currentColumn_, 1));
            return;
        case Qt::Key_Left:
            SetCol(Moved(currentColumn_, -1));
            return;
        case Qt::Key_Up:
            SetAbsoluteRow(Moved(AbsoluteRow(), -1));
            return;
        case Qt::Key_Down:
            SetAbsoluteRow(Moved(AbsoluteRow(), 1));
            return;
        default:
            break;
    }
    // These two characters bear the numbers of the up and down keys, and are heard instead.
    if (event->text() == QLatin1String("&")) {
        SystemBeep();
    } else if (event->text() == QLatin1String("(")) {
        SystemBeep();
        SystemBeep();
    }
    Control::keyPressEvent(event);
}

akGrid::LabelPlace akGrid::LabelAt(const QPoint& pixel) const {
    const auto covers = [&pixel](const GridLabel& label) {
        return label.Visible && label.Pixels().contains(pixel);
    };
    // Where two borders coincide the later label lies on top.
    for (size_t index = cells_.size(); index-- > 0;) {
        if (covers(cells_[index])) {
            return {LabelKind::Cell, index};
        }
    }
    for (size_t index = headings_.size(); index-- > 0;) {
        if (covers(headings_[index])) {
            return {LabelKind::Heading, index};
        }
    }
    return {};
}

const GridLabel* akGrid::LabelOf(const LabelPlace& place) const {
    switch (place.kind) {
        case LabelKind::Heading:
            return &headings_[place.index];
        case LabelKind::Cell:
            return &cells_[place.index];
        case LabelKind::None:
            break;
    }
    return nullptr;
}

void akGrid::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton ? LabelAt(event->position().toPoint()) : LabelPlace();
}

void akGrid::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const LabelPlace pressed = std::exchange(pressed_, {});
    if (pressed == LabelAt(event->position().toPoint())) {
        ClickLabel(pressed);
    }
}

void akGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && LabelAt(event->position().toPoint()).kind == LabelKind::Cell) {
        Q_EMIT DblClick();
    }
}

void akGrid::ClickLabel(const LabelPlace& place) {
    switch (place.kind) {
        case LabelKind::Heading: {
            auto index = static_cast<qint16>(place.index);
            Q_EMIT HeadClick(index);
            return;
        }
        case LabelKind::Cell:
            ClickCell(place.index);
            return;
        case LabelKind::None:
            return;
    }
}

void akGrid::ClickCell(size_t index) {
    int row = static_cast<int>(index) / Cols() + 1;
    int column = static_cast<int>(index) % Cols() + 1;
    auto clickedColumn = static_cast<qint16>(column);
    SetCurrentCell(row, column, false);
    // A handler may have laid the list out anew.
    if (index < cells_.size() && cells_[index].Underlined) {
        Q_EMIT HyperLinkClick(clickedColumn);
    } else {
        Q_EMIT Click();
    }
}

void akGrid::ClickPart(int row, int column) {
    if (row == 0) {
        ClickLabel({LabelKind::Heading, static_cast<size_t>(column - 1)});
        return;
    }
    if (row <= topOffset_) {
        SetTopRow(row);
    } else if (row > Moved(topOffset_, visibleRows_)) {
        SetTopRow(Moved(row, 1 - visibleRows_));
    }
    const auto index = static_cast<size_t>(CellIndex(qint64{row} - topOffset_, column - 1));
    if (index < cells_.size() && cells_[index].Visible) {
        ClickCell(index);
    }
}

void akGrid::mouseMoveEvent(QMouseEvent* event) {
    const GridLabel* label = LabelOf(LabelAt(event->position().toPoint()));
    setCursor(label != nullptr ? label->Pointer : QCursor());
    Control::mouseMoveEvent(event);
}

void akGrid::wheelEvent(QWheelEvent* event) {
    if (scrollBar_->isVisible()) {
        QCoreApplication::sendEvent(scrollBar_, event);
    } else {
        Control::wheelEvent(event);
    }
}

bool akGrid::ShowToolTip(QEvent* event) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const GridLabel* label = LabelOf(LabelAt(help->pos()));
    if (label == nullptr || label->ToolTip.trimmed().isEmpty()) {
        QToolTip::hideText();
        event->ignore();
        return true;
    }
    QToolTip::showText(help->globalPos(), AsPlainToolTip(label->ToolTip), this, label->Pixels());
    return true;
}

bool akGrid::event(QEvent* event) {
    return event->type() == QEvent::ToolTip ? ShowToolTip(event) : Control::event(event);
}

void akGrid::focusInEvent(QFocusEvent* event) {
    Control::focusInEvent(event);
    update();
    // The toolkit tells last that the list has it, and it's the cell that has.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (hasFocus()) {
                AnnounceCurrentCell();
            }
        },
        Qt::QueuedConnection);
}

void akGrid::focusOutEvent(QFocusEvent* event) {
    Control::focusOutEvent(event);
    update();
}

void akGrid::hideEvent(QHideEvent* event) {
    Control::hideEvent(event);
    pressed_ = {};
}

void akGrid::changeEvent(QEvent* event) {
    Control::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        pressed_ = {};
    }
    update();
}

}  // namespace controls
