#pragma once

#include <QComboBox>

namespace screens {

/// A drop-down list that offers its entries and nothing else. Assistive programs call it by its accessible
/// name, the label beside it, and read the chosen entry as its text and value; the toolkit's own list says
/// the entry in place of the name.
class DropDownList : public QComboBox {
    Q_OBJECT

public:
    explicit DropDownList(QWidget* parent);
};

}  // namespace screens
