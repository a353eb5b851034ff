#include "controls/base/EntryBox.h"

#include "controls/base/Accessible.h"
#include "controls/base/Action.h"
#include "controls/base/EntryBoxAccessible.h"
#include "controls/base/FieldFrame.h"
#include "controls/base/Font.h"
#include "controls/base/TypedText.h"

#include <QApplication>
#include <QDropEvent>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>

#include <algorithm>
#include <limits>

namespace controls {

namespace {

QPalette BlackOnWhite(QPalette palette) {
    palette.setColor(QPalette::Base, FieldGround(FieldState::Enabled));
    palette.setColor(QPalette::Text, FieldText(FieldState::Enabled));
    palette.setColor(QPalette::Disabled, QPalette::Base, FieldGround(FieldState::Disabled));
    palette.setColor(QPalette::Disabled, QPalette::Text, FieldText(FieldState::Disabled));
    return palette;
}

/// A focus that only rests: a menu is open, or another window is in front.
bool IsPause(Qt::FocusReason reason) {
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
           reason == Qt::ActiveWindowFocusReason;
}

/// Whether the focus goes elsewhere in the window. When the window itself stops being the active one, the
/// windowing system says so with an event of its own, and what happens in another window leaves the box that
/// waits here alone.
bool IsLeaving(const QWidget& box, const QFocusEvent& event) {
    return box.isActiveWindow() && !event.spontaneous() && !IsPause(event.reason());
}

/// The length of the first character: two units where one isn't enough.
qsizetype FirstLength(QStringView text) {
    return text.size() > 1 && text.front().isHighSurrogate() ? 2 : 1;
}

bool IsLineBreak(QChar character) {
    return (character >= QLatin1Char('\n') && character <= QLatin1Char('\r')) || character == QChar(0x85) ||
           character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

/// The clipboard that a key pastes from: that of the last selection with Control, Shift and Insert.
QClipboard::Mode ClipboardOf(const QKeyEvent& key) {
    const bool ofSelection = key.key() == Qt::Key_Insert && key.modifiers().testFlag(Qt::ControlModifier);
    return ofSelection ? QClipboard::Selection : QClipboard::Clipboard;
}

/// What of a text from elsewhere goes into one line.
QString OneLineOf(const QString& text) {
    QString line(text.begin(), std::find_if(text.begin(), text.end(), IsLineBreak) - text.begin());
    return line.replace(QLatin1Char('\t'), QLatin1Char(' '));
}

}  // namespace

EntryBox::EntryBox(const QString& text, QWidget* parent) : QLineEdit(text, parent) {
    RegisterAccessible<EntryBox, EntryBoxAccessible>();
    setFrame(false);
    // The edit box's own limit would cut what the program puts in.
    setMaxLength(std::numeric_limits<int>::max());
    setFont(ControlFont());
    setPalette(BlackOnWhite(palette()));
    // When the focus moves while the window is not active, the box hears of it only once the window is again.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*old*/, QWidget* now) {
        if (now != nullptr && now != this && now->window() == window()) {
            Leave();
        }
    });
}

void EntryBox::Leave() {
    BeginToLeave();
    if (presence_ == Presence::Going) {
        presence_ = Presence::Away;
        Q_EMIT Left();
    }
}

void EntryBox::BeginToLeave() {
    if (presence_ == Presence::Here) {
        presence_ = Presence::Going;
        Q_EMIT Leaving();
    }
}

qsizetype EntryBox::Room() const {
    return entryLimit_ > 0 ? entryLimit_ - text().size() + selectedText().size()
                           : std::numeric_limits<qsizetype>::max();
}

void EntryBox::paste() {
    PasteFrom(QClipboard::Clipboard);
}

void EntryBox::PasteFrom(QClipboard::Mode clipboard) {
    const QString fitting = FittingPart(QApplication::clipboard()->text(clipboard));
    if (!isReadOnly() && !fitting.isEmpty()) {
        insert(fitting);
    }
}

QString EntryBox::FittingPart(const QString& text) const {
    QString part = OneLineOf(text);
    part.truncate(std::max<qsizetype>(0, Room()));
    if (!part.isEmpty() && part.back().isHighSurrogate()) {
        part.chop(1);
    }
    return part;
}

void EntryBox::dropEvent(QDropEvent* event) {
    // What is dropped replaces no selection.
    deselect();
    const QString text = event->mimeData()->text();
    QMimeData fitting;
    fitting.setText(FittingPart(text));
    if (fitting.text().size() < text.size()) {
        // Where it comes from, what doesn't fit here must not be lost.
        event->setDropAction(Qt::CopyAction);
    }
    QDropEvent taken(event->position(), event->possibleActions(), &fitting, event->buttons(),
                     event->modifiers());
    taken.setDropAction(event->dropAction());
    QLineEdit::dropEvent(&taken);
    event->setAccepted(taken.isAccepted());
}

void EntryBox::LeaveUnfocused() {
    if (presence_ != Presence::Away) {
        Leave();
        Q_EMIT LeftUnfocused();
    }
}

void EntryBox::Write(int start, int end, const QString& text) {
    const auto length = [this] { return static_cast<int>(this->text().size()); };
    if (isReadOnly() || !CanBeActedOn(*this) || start < 0 || start > end || end > length()) {
        return;
    }
    const bool isWhole = start == 0 && end == length();
    BringFocus(*this);
    const bool isFocused = presence_ == Presence::Here && isActiveWindow();
    if (presence_ != Presence::Here) {
        Come();
    }
    // Leaving another box may have filled this one or emptied it.
    const int first = std::min(start, length());
    setSelection(first, isWhole ? length() : std::min(end, length()) - first);
    insert(FittingPart(text));
    if (!isFocused) {
        LeaveUnfocused();
    }
}

QRect EntryBox::PlaceOf(int position) const {
    const auto widthUpTo = [this](int place) { return fontMetrics().horizontalAdvance(text().left(place)); };
    const int fromCaret = widthUpTo(position) - widthUpTo(cursorPosition());
    const int width = widthUpTo(position + 1) - widthUpTo(position);
    const QRect caret = cursorRect();
    return {caret.center().x() + fromCaret, caret.top(), width, caret.height()};
}

bool EntryBox::event(QEvent* event) {
    if (event->type() == QEvent::FocusAboutToChange && IsLeaving(*this, static_cast<QFocusEvent&>(*event))) {
        BeginToLeave();
    }
    return QLineEdit::event(event);
}

void EntryBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (presence_ == Presence::Here) {
        return;
    }
    focusingClick_ = event->reason() == Qt::MouseFocusReason ? FocusingClick::Expected : FocusingClick::None;
    Come();
}

void EntryBox::Come() {
    presence_ = Presence::Here;
    SelectOnEntering();
    Q_EMIT Entered();
}

void EntryBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    focusingClick_ = FocusingClick::None;
    if (!IsPause(event->reason())) {
        Leave();
    }
}

void EntryBox::keyPressEvent(QKeyEvent* event) {
    focusingClick_ = FocusingClick::None;
    if (event->matches(QKeySequence::Paste)) {
        PasteFrom(ClipboardOf(*event));
        event->accept();
        return;
    }
    const QString typed = TypedText(*event);
    if (FirstLength(typed) < typed.size()) {
        TypeOneByOne(*event, typed);
        event->accept();
    } else if (!typed.isEmpty() && TakeKey(typed)) {
        event->accept();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

/// Some keys type several characters, and each has to answer for itself.
void EntryBox::TypeOneByOne(const QKeyEvent& event, const QString& typed) {
    for (qsizetype place = 0; place < typed.size();) {
        const QString character = typed.mid(place, FirstLength(QStringView(typed).mid(place)));
        if (!TakeKey(character)) {
            QKeyEvent single(event.type(), event.key(), event.modifiers(), character);
            QLineEdit::keyPressEvent(&single);
        }
        place += character.size();
    }
}

void EntryBox::TakeOneByOne(const QInputMethodEvent& event) {
    // A character may move the focus on, and the next one then belongs there.
    for (const QChar character : event.commitString()) {
        if (auto* box = qobject_cast<EntryBox*>(QApplication::focusWidget())) {
            box->TakeKey(character);
        }
    }
}

void EntryBox::mousePressEvent(QMouseEvent* event) {
    if (SelectsAtEveryPress()) {
        SelectOnEntering();
        focusingClick_ = FocusingClick::Expected;
    }
    if (focusingClick_ == FocusingClick::Expected && event->button() == Qt::LeftButton) {
        focusingClick_ = FocusingClick::Pressed;
        return;
    }
    focusingClick_ = FocusingClick::None;
    if (!SelectsAtEveryPress()) {
        QLineEdit::mousePressEvent(event);
    }
}

void EntryBox::mouseDoubleClickEvent(QMouseEvent* event) {
    if (SelectsAtEveryPress()) {
        mousePressEvent(event);
    } else {
        QLineEdit::mouseDoubleClickEvent(event);
    }
}

void EntryBox::mouseMoveEvent(QMouseEvent* event) {
    if (focusingClick_ != FocusingClick::Pressed) {
        QLineEdit::mouseMoveEvent(event);
    }
}

void EntryBox::mouseReleaseEvent(QMouseEvent* event) {
    if (focusingClick_ == FocusingClick::Pressed) {
        focusingClick_ = FocusingClick::None;
        return;
    }
    if (event->button() == Qt::MiddleButton) {
        if (QApplication::clipboard()->supportsSelection()) {
            PasteFrom(QClipboard::Selection);
        }
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
}

}  // namespace controls
