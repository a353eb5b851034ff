#pragma once

#include <QComboBox>

namespace screens {

/// A drop-down list that offers its entries and nothing else. Assistive programs call it by its accessible
/// name, the label beside it, and read the chosen entry as its text and value; the toolkit's own list says
/// the entry in place of the name. The wheel does nothing to a list without the focus, so that nobody who
/// scrolls past it changes what he has chosen. It looks like the text boxes and dates that it stands among,
/// with the button of a date.
class DropDownList : public QComboBox {
    Q_OBJECT

public:
    explicit DropDownList(QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// To be spoken, if the closed list has come to another entry.
    void TellChoiceOtherThan(int before);
};

}  // namespace screens
