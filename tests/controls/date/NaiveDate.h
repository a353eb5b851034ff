#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

/// A date of the calendar as three plain numbers.
struct PlainDay {
    int year = 2000;
    int month = 1;
    int day = 1;

    bool operator==(const PlainDay&) const = default;
};

/// The date control told once more, without widgets and as simply as can be, to hold the real one against.
/// What has the focus is told by its name; "before" and "after" are the controls around it on the form.
class NaiveDate {
public:
    /// The order is three letters, such as "dmy".
    NaiveDate(const QString& order, PlainDay today, bool includeNone);

    void Character(QChar character);
    void Key(const QString& name);  ///< "Left", "Right", "Home", "End", "Delete", "Tab", "Backtab".
    void Paste(const QString& text);
    void ClickBox(int place);
    void ClickButton(const QString& name);
    void ClickBelow(int x, int y);  ///< In pixels of 15 twips, below the closed control.
    void FocusOutside(const QString& name);
    void FocusControl();
    void SetValue(std::optional<PlainDay> value);  ///< Nothing stands for no date.
    void SetIncludeNone(bool include);
    void SetEnabled(bool enabled);
    void DropDown();
    void CloseUp();

    PlainDay Stored() const { return stored_; }
    QString Texts() const;
    QString SelectedText() const;
    QString Focus() const { return focus_; }
    bool None() const { return none_; }
    bool Open() const { return open_; }
    QString Title() const { return title_; }
    int Marked() const { return marked_; }

private:
    struct Box {
        QString text;
        int room = 2;
        int caret = 0;
        int from = 0;  ///< First selected place, and the one behind the last.
        int to = 0;
    };

    int FocusedBox() const;
    int PlaceOf(char role) const;
    Box& BoxOf(char role) { return boxes_.at(static_cast<size_t>(PlaceOf(role) - 1)); }
    Box& BoxAt(int place) { return boxes_.at(static_cast<size_t>(place - 1)); }
    QStringList TabStops() const;
    void Tab(int direction);
    void Go(const QString& to);
    void GoToBox(int place);
    void Correct(int place);
    void Compose();
    static void SetText(Box& box, const QString& text);
    static void Insert(Box& box, const QString& text);
    void SetParts(int year, int month, int day);
    void ShowNone();
    void HideNone();
    void Redraw();
    void Step(const QString& button);
    int CellValue(int column, int row) const;
    void ClickSurface(int X, int Y);

    QString order_;
    PlainDay today_;
    std::array<Box, 3> boxes_;
    QString focus_ = QStringLiteral("before");
    PlainDay stored_;
    PlainDay display_;
    bool include_;
    bool enabled_ = true;
    bool none_ = false;
    bool open_ = false;
    QString title_;
    int marked_ = -1;
};
