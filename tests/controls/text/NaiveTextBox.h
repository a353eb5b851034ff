#pragma once

#include <QList>
#include <QString>

/// A second, plain statement of what a text box does, for comparison. It knows text, caret and selection, and
/// notes the events; it shares nothing with the control. Numbers are understood by patterns and written digit
/// by digit.
class NaiveTextBox {
public:
    QString decimalSeparator;
    QString thousandSeparator;

    bool locked = false;
    int maxLength = 0;
    bool isNumeric = false;
    int decimalPlaces = 0;
    bool allowNegative = false;
    double increment = 0;

    QString text;
    int caret = 0;
    /// Where the selection began; equal to the caret if nothing is selected.
    int anchor = 0;
    bool hasFocus = false;
    QList<bool> changes;

    void Type(QChar key);
    void Backspace();
    void Delete();
    void MoveTo(int place, bool selecting);
    void SelectAll();
    void Paste(const QString& pasted);
    void SetText(const QString& newText);
    void GetFocus();
    void LoseFocus();
    void StepUp();
    void StepDown();

    double Value() const;
    QString Selected() const;

private:
    int From() const;
    int To() const;
    void Insert(const QString& piece);
    void RemoveSelected();
    void PutRight();
    void React();
    void ReplaceAll(const QString& newText);
    bool KeyIsRefused(QChar key) const;
    bool IsNumber(const QString& candidate) const;
    double NumberInFront(const QString& of) const;
    QString Written(double number) const;
    void FinishStep(double number);

    bool quiet_ = false;
    bool byKey_ = false;
};
