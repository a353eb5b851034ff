#pragma once

#include "controls/ctlTextBox.h"

#include <QLineEdit>
#include <QWidget>

#include <gtest/gtest.h>

#include <memory>

/// A text box in an active window, beside another edit box that has the focus at first.
class TextBoxTest : public ::testing::Test {
protected:
    using Properties = controls::ctlTextBox::Properties;

    TextBoxTest();

    /// Puts a text box with these settings into the window, in place of the one before.
    controls::ctlTextBox& Load(const Properties& saved);
    /// The same, with the focus.
    controls::ctlTextBox& Enter(const Properties& saved);

    controls::ctlTextBox& TheControl() { return *control_; }
    QLineEdit& TheBox();

    void Focus();
    void Leave();

    /// Types each character as a key of its own.
    void Type(const QString& text);
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Paste(const QString& text);
    /// Comes in as what an input method has put together.
    void Compose(const QString& text);
    /// Gives what becomes of the text where it comes from.
    Qt::DropAction Drop(const QString& text, Qt::DropAction action = Qt::CopyAction);
    void PasteByMenu();

    QString Text() { return control_->Text(); }
    int Caret() { return TheBox().cursorPosition(); }
    void PlaceCaret(int place) { TheBox().setCursorPosition(place); }

    /// The arguments of the Change events since the last call.
    QList<bool> TakeChanges() { return std::exchange(changes_, {}); }

    QWidget window;
    QLineEdit other;

private:
    std::unique_ptr<controls::ctlTextBox> control_;
    QList<bool> changes_;
};
