#pragma once

#include "controls/base/Colour.h"
#include "controls/base/Control.h"
#include "controls/text/TextBoxRules.h"
#include "controls/text/UpDownImage.h"

#include <QString>

namespace controls {

class InnerTextBox;

/// The one control for entering text. In numeric mode it lets through what belongs to a number and puts right
/// what comes in otherwise, silently; when the user leaves it, it holds a number. Without numeric mode it
/// only keeps typed apostrophes out, as they have a meaning of their own in statements for the database;
/// pasted text and text set by program keep theirs.
///
/// Inside are an edit box named "TextBox", which has the focus for the control, and on demand an image
/// "imgUpDown" that steps the number.
class ctlTextBox : public Control {
    Q_OBJECT
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)

public:
    /// What a form saves of the control, in the order in which it is loaded.
    struct Properties {
        bool Enabled = true;
        qint16 Alignment = 0;
        bool Locked = false;
        qint32 MaxLength = 0;
        QString Text = QStringLiteral("Text1");
        bool IsNumeric = false;
        qint16 DecimalPlaces = 0;
        bool AllowNegative = false;
        bool ShowUpDown = false;
        double UpDownIncrement = 0;
    };

    /// A new control: as one loaded from the defaults.
    explicit ctlTextBox(QWidget* parent = nullptr);

    /// A control of a form. Its text is taken as it is. In numeric mode a saved DecimalPlaces of 2 stands for
    /// as many decimals as the user's locale gives money; numbers other than 2 stand for themselves, and so
    /// does every number that is set later on.
    explicit ctlTextBox(const Properties& saved, QWidget* parent = nullptr);
    ctlTextBox(const ctlTextBox&) = delete;
    ctlTextBox& operator=(const ctlTextBox&) = delete;
    ~ctlTextBox() override;

    /// Passed to the edit box, and to the control as a whole.
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);

    /// 1 is right, everything else left.
    qint16 Alignment() const { return alignment_; }
    void SetAlignment(qint16 alignment);

    /// Locked text can be read and copied, but the user can't change it in the edit box.
    bool Locked() const;
    void SetLocked(bool locked);

    /// How many characters (UTF-16 units) the user can enter, by keys, input methods, pasting or dropping; 0
    /// or less is no limit. Longer text can be set by program.
    qint32 MaxLength() const;
    void SetMaxLength(qint32 length);

    /// Setting it is a change of the text like any other. The text that it has already is no change.
    QString Text() const;
    void SetText(const QString& text);

    /// Setting it to true aligns the text to the right; setting it to false leaves the alignment. The present
    /// text stays as it is until it changes or the user leaves the control.
    bool IsNumeric() const { return isNumeric_; }
    void SetIsNumeric(bool isNumeric);

    /// Decimals beyond these are cut off in numeric mode. 0 refuses the decimal separator.
    qint16 DecimalPlaces() const { return rules_.DecimalPlaces; }
    void SetDecimalPlaces(qint16 places) { rules_.DecimalPlaces = places; }

    /// Whether a "-" is let in in numeric mode. The up/down image then also marks what is above 0 with a "+".
    bool AllowNegative() const { return rules_.AllowNegative; }
    void SetAllowNegative(bool allow) { rules_.AllowNegative = allow; }

    bool ShowUpDown() const { return showUpDown_; }
    void SetShowUpDown(bool show);

    /// What one press on the up/down image adds or takes away.
    double UpDownIncrement() const { return upDownIncrement_; }
    void SetUpDownIncrement(double increment);

    /// The text as a number; 0 where it isn't one.
    double Value() const;

    /// The ground of the control itself, seen where the edit box and the image leave any of it.
    Colour BackColor() const { return backColor_; }
    void SetBackColor(Colour colour);

    /// The label that the form shows beside the control. Assistive programs call the edit box by it.
    void SetLabel(const QString& label);

Q_SIGNALS:
    /// The text has changed, by whatever cause, and has been put right. The argument tells whether a key
    /// accepted in numeric mode did it; it is false for text that was pasted or set by program, and without
    /// numeric mode. A handler that sets Text causes the event again, with the argument of the present one.
    void Change(bool ChangeViaKeypress);

    /// The user comes to the control and leaves it. On coming, all text is selected with the caret in front;
    /// on leaving, a numeric control has a number by then. A menu or another window in between is no leaving.
    void GotFocus();
    void LostFocus();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Load(const Properties& saved);
    void LayOut();
    void FilterKey(QChar key, bool& swallow);
    void ReactToChange();
    void Leave();
    void Step(UpDownHalf half);

    InnerTextBox* box_;
    UpDownImage* imgUpDown_;
    NumericRules rules_;
    bool enabled_ = true;
    bool isNumeric_ = false;
    bool showUpDown_ = false;
    qint16 alignment_ = 0;
    double upDownIncrement_ = 0;
    Colour backColor_ = SystemColours::ButtonFace;

    bool changeViaKeypress_ = false;
    /// While the control changes its own text, changes are neither put right nor reported.
    bool changesOwnText_ = false;
};

}  // namespace controls
