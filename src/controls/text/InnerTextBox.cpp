#include "controls/text/InnerTextBox.h"

#include "controls/base/Canvas.h"
#include "controls/base/FieldFrame.h"
#include "controls/base/TypedText.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace controls {

namespace {

/// Between the edge and the text, so that the frame doesn't touch it.
constexpr QMargins BesideText(2, 0, 2, 0);

}  // namespace

InnerTextBox::InnerTextBox(QWidget* parent) : EntryBox(QString(), parent) {
    setObjectName(QStringLiteral("TextBox"));
    setTextMargins(BesideText);
    // What is behind the box needn't be painted with every key.
    setAttribute(Qt::WA_OpaquePaintEvent);
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

bool InnerTextBox::TakeKey(const QString& character) {
    const QChar key = character.front();
    if (key != BackspaceKey && key.category() == QChar::Other_Control) {
        return false;
    }
    bool swallow = false;
    Q_EMIT KeyTyped(key, swallow);
    return swallow || (key != BackspaceKey && character.size() > Room());
}

void InnerTextBox::inputMethodEvent(QInputMethodEvent* event) {
    const QString composed = event->commitString();
    if (composed.isEmpty()) {
        EntryBox::inputMethodEvent(event);
        return;
    }
    // What was shown until now goes, with what the composed text replaces; then that is typed.
    QInputMethodEvent before;
    before.setCommitString({}, event->replacementStart(), event->replacementLength());
    EntryBox::inputMethodEvent(&before);
    QKeyEvent typed(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, composed);
    keyPressEvent(&typed);
    QInputMethodEvent after(event->preeditString(), event->attributes());
    EntryBox::inputMethodEvent(&after);
    event->accept();
}

void InnerTextBox::keyPressEvent(QKeyEvent* event) {
    EntryBox::keyPressEvent(event);
    Q_EMIT KeyDone();
}

void InnerTextBox::paintEvent(QPaintEvent* event) {
    // Some styles leave corners of the ground open.
    QPainter(this).fillRect(rect(), palette().base());
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    PaintedCanvas canvas(&painter, width(), height());
    DrawFieldFrame(canvas, canvas.Width(), canvas.Height(), FieldStateOf(*this, hasFocus()));
}

}  // namespace controls
