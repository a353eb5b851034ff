#pragma once

#include <QWidget>

namespace screens {

/// A page of the wizard, on white paper. To assistive programs it is a part of the window, by the name that
/// the window gives it (setAccessibleName).
class Page : public QWidget {
    Q_OBJECT

public:
    /// A screen reader tells the name and the text of a page with fields when the focus comes into it. A page
    /// without any never gets the focus, so it is told when it comes up.
    enum class Fields { Some, None };

    explicit Page(QWidget* parent, Fields fields = Fields::Some);

    bool HasFields() const { return fields_ == Fields::Some; }

private:
    const Fields fields_;
};

}  // namespace screens
