#include "controls/base/EntryBoxAccessible.h"

#include "controls/base/EntryBox.h"

#include <QFontMetrics>

#include <algorithm>

namespace controls {

EntryBoxAccessible::EntryBoxAccessible(EntryBox* box) : QAccessibleWidget(box, QAccessible::EditableText) {
}

EntryBox& EntryBoxAccessible::Box() const {
    return *static_cast<EntryBox*>(widget());
}

void* EntryBoxAccessible::interface_cast(QAccessible::InterfaceType type) {
    switch (type) {
        case QAccessible::TextInterface:
            return static_cast<QAccessibleTextInterface*>(this);
        case QAccessible::EditableTextInterface:
            return static_cast<QAccessibleEditableTextInterface*>(this);
        default:
            return QAccessibleWidget::interface_cast(type);
    }
}

QString EntryBoxAccessible::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? Box().text() : QAccessibleWidget::text(kind);
}

void EntryBoxAccessible::setText(QAccessible::Text kind, const QString& text) {
    if (kind == QAccessible::Value) {
        replaceText(0, characterCount(), text);
    } else {
        QAccessibleWidget::setText(kind, text);
    }
}

QAccessible::State EntryBoxAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = Box().isReadOnly();
    state.editable = !Box().isReadOnly();
    state.selectableText = true;
    return state;
}

void EntryBoxAccessible::selection(int selectionIndex, int* startOffset, int* endOffset) const {
    const bool exists = selectionIndex == 0 && Box().hasSelectedText();
    *startOffset = exists ? Box().selectionStart() : 0;
    *endOffset = exists ? Box().selectionEnd() : 0;
}

int EntryBoxAccessible::selectionCount() const {
    return Box().hasSelectedText() ? 1 : 0;
}

void EntryBoxAccessible::addSelection(int startOffset, int endOffset) {
    setSelection(0, startOffset, endOffset);
}

void EntryBoxAccessible::removeSelection(int selectionIndex) {
    if (selectionIndex == 0) {
        Box().deselect();
    }
}

void EntryBoxAccessible::setSelection(int selectionIndex, int startOffset, int endOffset) {
    if (selectionIndex == 0) {
        Box().setSelection(startOffset, endOffset - startOffset);
    }
}

int EntryBoxAccessible::cursorPosition() const {
    return Box().cursorPosition();
}

void EntryBoxAccessible::setCursorPosition(int position) {
    Box().setCursorPosition(position);
}

QString EntryBoxAccessible::text(int startOffset, int endOffset) const {
    return startOffset <= endOffset ? Box().text().mid(startOffset, endOffset - startOffset) : QString();
}

int EntryBoxAccessible::characterCount() const {
    return static_cast<int>(Box().text().size());
}

QRect EntryBoxAccessible::characterRect(int offset) const {
    if (offset < 0 || offset >= characterCount()) {
        return {};
    }
    const QRect place = Box().PlaceOf(offset);
    return {Box().mapToGlobal(place.topLeft()), place.size()};
}

int EntryBoxAccessible::offsetAtPoint(const QPoint& point) const {
    const QPoint place = Box().mapFromGlobal(point);
    return Box().rect().contains(place) ? Box().cursorPositionAt(place) : -1;
}

void EntryBoxAccessible::scrollToSubstring(int startIndex, int /*endIndex*/) {
    setCursorPosition(startIndex);
}

QString EntryBoxAccessible::attributes(int /*offset*/, int* startOffset, int* endOffset) const {
    *startOffset = 0;
    *endOffset = characterCount();
    return {};
}

void EntryBoxAccessible::deleteText(int startOffset, int endOffset) {
    replaceText(startOffset, endOffset, QString());
}

void EntryBoxAccessible::insertText(int offset, const QString& text) {
    replaceText(offset, offset, text);
}

void EntryBoxAccessible::replaceText(int startOffset, int endOffset, const QString& text) {
    Box().Write(startOffset, endOffset, text);
}

}  // namespace controls
