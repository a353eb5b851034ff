#pragma once

#include <QString>
#include <QWidget>

namespace controls {

enum class UpDownHalf { Up, Down };

/// The picture with an upper and a lower half beside a text box, 16 by 19 pixels on every display. Each press
/// of the left mouse button is one step, a quick second one too; holding it down repeats nothing. Assistive
/// programs see a push button in each half.
class UpDownImage : public QWidget {
    Q_OBJECT

public:
    static constexpr int pixelWidth = 16;
    static constexpr int pixelHeight = 19;

    explicit UpDownImage(QWidget* parent);

    /// What the number that is stepped is called; the buttons are then "<label> up" and "<label> down".
    const QString& Label() const { return label_; }
    void SetLabel(const QString& label);

    /// The half that a height in pixels lies on; the exact middle is still the upper one.
    UpDownHalf HalfAt(double y) const;
    /// Where a half lies.
    QRect Area(UpDownHalf half) const;
    /// What a press on the half does.
    void Press(UpDownHalf half);

Q_SIGNALS:
    void Pressed(controls::UpDownHalf Half);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString label_;
};

}  // namespace controls
