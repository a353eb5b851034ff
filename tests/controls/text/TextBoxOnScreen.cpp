#include "text/TextBoxOnScreen.h"

#include "support/OnScreen.h"

#include <QAction>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QTest>

using controls::ctlTextBox;

TextBoxTest::TextBoxTest() : other(&window) {
    window.resize(400, 200);
    other.setGeometry(0, 100, 100, 20);
    ShowAndActivate(window);
    other.setFocus();
}

ctlTextBox& TextBoxTest::Load(const Properties& saved) {
    other.setFocus();
    control_ = std::make_unique<ctlTextBox>(saved, &window);
    control_->Move(150, 150, 3000, 300);
    control_->show();
    QObject::connect(control_.get(), &ctlTextBox::Change, control_.get(),
                     [this](bool ChangeViaKeypress) { changes_.append(ChangeViaKeypress); });
    changes_.clear();
    return *control_;
}

ctlTextBox& TextBoxTest::Enter(const Properties& saved) {
    Load(saved);
    Focus();
    return *control_;
}

QLineEdit& TextBoxTest::TheBox() {
    return *control_->findChild<QLineEdit*>(QStringLiteral("TextBox"));
}

void TextBoxTest::Focus() {
    control_->setFocus(Qt::TabFocusReason);
}

void TextBoxTest::Leave() {
    other.setFocus(Qt::TabFocusReason);
}

void TextBoxTest::Type(const QString& text) {
    for (const QChar character : text) {
        QTest::sendKeyEvent(QTest::Click, &TheBox(), Qt::Key_unknown, QString(character), Qt::NoModifier);
    }
}

void TextBoxTest::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&TheBox(), key, modifiers);
}

void TextBoxTest::Paste(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    QTest::keySequence(&TheBox(), QKeySequence(QKeySequence::Paste));
}

void TextBoxTest::Compose(const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&TheBox(), &event);
}

void TextBoxTest::PasteByMenu() {
    const std::unique_ptr<QMenu> menu(TheBox().createStandardContextMenu());
    for (QAction* action : menu->actions()) {
        if (action->text().contains(QStringLiteral("Paste"))) {
            action->trigger();
        }
    }
}

Qt::DropAction TextBoxTest::Drop(const QString& text, Qt::DropAction action) {
    QMimeData data;
    data.setText(text);
    const QPoint place(TheBox().width() - 3, TheBox().height() / 2);
    QDragEnterEvent enter(place, action, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&TheBox(), &enter);
    QDropEvent drop(place, action | Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    drop.setDropAction(action);
    QCoreApplication::sendEvent(&TheBox(), &drop);
    return drop.dropAction();
}
