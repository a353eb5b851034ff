#pragma once

#include <QString>
#include <QWidget>

namespace controls {

enum class UpDownHalf { Up, Down };

class UpDownImage;

/// One half of an up/down image, as an object that assistive programs can be told of.
class UpDownButton : public QObject {
    Q_OBJECT

public:
    UpDownButton(UpDownImage* image, UpDownHalf half);

    UpDownImage& Image() const { return *image_; }
    UpDownHalf Half() const { return half_; }

private:
    UpDownImage* image_;
    UpDownHalf half_;
};

/// The picture with an upper and a lower half beside a text box, 16 by 19 pixels on every display. Each press
/// of the left mouse button is one step, a quick second one too; holding it down repeats nothing. Assistive
/// programs see a push button in each half.
class UpDownImage : public QWidget {
    Q_OBJECT

public:
    static constexpr int PixelWidth = 16;
    static constexpr int PixelHeight = 19;

    explicit UpDownImage(QWidget* parent);

    /// What the number that is stepped is called; the buttons are then "<label> up" and "<label> down".
    const QString& Label() const { return label_; }
    void SetLabel(const QString& label);

    /// The half that a height in pixels lies on; the exact middle is still the upper one.
    UpDownHalf HalfAt(double y) const;
    UpDownButton& Button(UpDownHalf half);

    /// The pixels that a half covers.
    QRect HalfPixels(UpDownHalf half) const;
    /// What a press on the half does.
    void Press(UpDownHalf half);

Q_SIGNALS:
    void Pressed(controls::UpDownHalf Half);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    UpDownButton up_{this, UpDownHalf::Up};
    UpDownButton down_{this, UpDownHalf::Down};
    QString label_;
};

}  // namespace controls
