#pragma once

#include <QWidget>

namespace controls {

/// A drawn control: a widget that tells and takes its size in twips.
class Control : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    int Width() const;
    int Height() const;
    void SetWidth(int twips);
    void SetHeight(int twips);
    /// The place within the parent.
    void Move(int left, int top, int width, int height);
    void Move(int left, int top);
};

/// The twips that a pixel position within a widget stands for.
int TwipsAt(double pixels);

}  // namespace controls
