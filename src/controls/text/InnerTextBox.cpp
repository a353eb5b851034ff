#include "controls/text/InnerTextBox.h"

#include "controls/base/Canvas.h"
#include "controls/base/Display.h"
#include "controls/base/Font.h"
#include "controls/base/Palette.h"
#include "controls/text/TextBoxRules.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <limits>

namespace controls {

namespace {

/// Can still be read on white, and yet differs from black.
constexpr Colour disabledText = RGB(96, 96, 96);

/// Between the edge and the text, so that the frame doesn't touch it.
constexpr QMargins besideText(2, 0, 2, 0);

bool IsBackspace(const QKeyEvent& event) {
    constexpr Qt::KeyboardModifiers harmless = Qt::ShiftModifier | Qt::KeypadModifier;
    return event.key() == Qt::Key_Backspace && (event.modifiers() & ~harmless) == 0;
}

/// What the edit box would type for the key; nothing for keys that move, edit, or are a shortcut. Control and
/// Alt together are no shortcut: it is how many keyboards reach their third characters.
QString TypedText(const QKeyEvent& event) {
    if (IsBackspace(event)) {
        return backspaceKey;
    }
    const QString text = event.text();
    if (text.isEmpty() || text.front().category() == QChar::Other_Control) {
        return {};
    }
    const bool isShortcut = event.modifiers() == Qt::ControlModifier ||
                            event.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    // Marks of the writing direction are typed with Control and Shift.
    return isShortcut && text.front().category() != QChar::Other_Format ? QString() : text;
}

bool IsOneCharacter(const QString& text) {
    return text.size() == 1 || (text.size() == 2 && text.front().isHighSurrogate());
}

/// A focus that only rests: the box's own menu is open, or another window is in front.
bool IsPause(Qt::FocusReason reason) {
    return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
}

}  // namespace

InnerTextBox::InnerTextBox(QWidget* parent) : QLineEdit(parent) {
    setObjectName(QStringLiteral("TextBox"));
    setMaxLength(std::numeric_limits<int>::max());
    setFont(ControlFont());
    setFrame(false);
    setTextMargins(besideText);
    // What is behind the box needn't be painted with every key.
    setAttribute(Qt::WA_OpaquePaintEvent);
    QPalette colours = palette();
    colours.setColor(QPalette::Base, Qt::white);
    colours.setColor(QPalette::Text, Qt::black);
    colours.setColor(QPalette::Disabled, QPalette::Text, ToQColor(disabledText));
    setPalette(colours);
    // When the focus moves while the window is not active, the box hears of it only once the window is again.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*old*/, QWidget* now) {
        if (now != nullptr && now != this && now->window() == window()) {
            Lose();
        }
    });
}

void InnerTextBox::SelectFromStart() {
    const auto length = static_cast<int>(text().size());
    setSelection(length, -length);
}

void InnerTextBox::ReplaceText(const QString& text) {
    const int caret = hasFocus() ? cursorPosition() : 0;
    setText(text);
    setCursorPosition(std::min(caret, static_cast<int>(this->text().size())));
}

void InnerTextBox::keyPressEvent(QKeyEvent* event) {
    focusingClick_ = FocusingClick::None;
    const QString typed = TypedText(*event);
    if (typed.isEmpty()) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    if (!IsOneCharacter(typed)) {
        TypeOneByOne(*event);
        event->accept();
        return;
    }
    if (IsSwallowed(typed)) {
        event->accept();
    } else {
        QLineEdit::keyPressEvent(event);
    }
    Q_EMIT KeyDone();
}

bool InnerTextBox::IsSwallowed(const QString& typed) {
    bool swallow = false;
    Q_EMIT KeyTyped(typed.front(), swallow);
    if (swallow || typingLimit_ <= 0 || typed.front() == backspaceKey) {
        return swallow;
    }
    return text().size() - selectedText().size() + typed.size() > typingLimit_;
}

/// Some keys type several characters, and each has to answer for itself.
void InnerTextBox::TypeOneByOne(const QKeyEvent& event) {
    const QString text = event.text();
    for (qsizetype place = 0; place < text.size();) {
        const qsizetype length = text.at(place).isHighSurrogate() ? 2 : 1;
        QKeyEvent single(event.type(), event.key(), event.modifiers(), text.mid(place, length));
        keyPressEvent(&single);
        place += length;
    }
}

void InnerTextBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (userIsHere_) {
        return;
    }
    userIsHere_ = true;
    SelectFromStart();
    focusingClick_ = event->reason() == Qt::MouseFocusReason ? FocusingClick::Expected : FocusingClick::None;
    Q_EMIT GotFocus();
}

void InnerTextBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    focusingClick_ = FocusingClick::None;
    if (!IsPause(event->reason())) {
        Lose();
    }
}

void InnerTextBox::Lose() {
    if (!userIsHere_) {
        return;
    }
    userIsHere_ = false;
    Q_EMIT LostFocus();
}

void InnerTextBox::mousePressEvent(QMouseEvent* event) {
    if (focusingClick_ == FocusingClick::Expected && event->button() == Qt::LeftButton) {
        focusingClick_ = FocusingClick::Pressed;
        return;
    }
    focusingClick_ = FocusingClick::None;
    QLineEdit::mousePressEvent(event);
}

void InnerTextBox::mouseMoveEvent(QMouseEvent* event) {
    if (focusingClick_ != FocusingClick::Pressed) {
        QLineEdit::mouseMoveEvent(event);
    }
}

void InnerTextBox::mouseReleaseEvent(QMouseEvent* event) {
    if (focusingClick_ == FocusingClick::Pressed) {
        focusingClick_ = FocusingClick::None;
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
}

void InnerTextBox::paintEvent(QPaintEvent* event) {
    // Some styles leave corners of the ground open.
    QPainter(this).fillRect(rect(), Qt::white);
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    PaintedCanvas canvas(&painter, width(), height());
    canvas.SetDrawWidth(hasFocus() ? 2 : 1);
    canvas.Line(0, 0, ToTwips(width() - 1), ToTwips(height() - 1),
                hasFocus() ? ThePalette().ButtonOutline : ThePalette().Frame, LineForm::Outline);
}

}  // namespace controls
