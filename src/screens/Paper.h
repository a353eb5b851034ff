#pragma once

#include <QPalette>
#include <QString>
#include <QWidget>

class QLabel;
class QRadioButton;

namespace screens {

/// Where something stands within its parent, in twips.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// The size of buttons, in twips.
inline constexpr int ButtonWidth = 1575;
inline constexpr int ButtonHeight = 375;

void PutAt(QWidget& widget, const Place& place);

/// The colours of pages and dialogs, which are white paper on every desktop: black text on white, also where
/// the desktop's theme is dark.
QPalette PaperPalette();

/// Plain text that wraps at its width. It can be read by assistive programs and takes no focus.
QLabel* AddLabel(QWidget* parent, const QString& name, const QString& text, const Place& place);

/// One of the choices of its parent.
QRadioButton* AddOption(QWidget* parent, const QString& name, const QString& caption, const Place& place);

}  // namespace screens
