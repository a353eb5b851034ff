#pragma once

#include "controls/base/Colour.h"
#include "controls/base/Control.h"

namespace controls {

/// A frame with a title on a gradient strip, which can enable or disable all that it contains. What it
/// contains are its direct child widgets. It takes no keys itself.
///
/// How a child is enabled: one with a Qt property named "Enabled" (a control of this kit that keeps a value
/// of its own, such as another group box) is given the value there, any other through QWidget::setEnabled. A
/// child that fails is skipped.
class ctlGroupBox : public Control {
    Q_OBJECT
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)

public:
    struct Properties {
        QString Caption{};
    };

    /// A new one: enabled, with a black frame on the desktop's own ground.
    explicit ctlGroupBox(QWidget* parent = nullptr);

    /// One loaded from its saved properties, in the colours of the wizard; a palette without its white gets
    /// 245,245,245 there. Enabled reads false although the box works, so the first write of false does
    /// nothing: to disable a loaded box, write true first.
    explicit ctlGroupBox(const Properties& saved, QWidget* parent = nullptr);

    bool Enabled() const { return enabled_; }
    /// Passes a new value to the box itself and to each child. The value that it has already does nothing.
    void SetEnabled(bool enabled);

    /// Passes the value to each child and leaves the box's own as it is. In spite of the name, true enables.
    void DisableControls(bool enabled);

    const QString& Caption() const { return caption_; }
    void SetCaption(const QString& text);

    Colour FrameColour() const { return frameColour_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class TitleStrip;

    void SetGround(const QColor& ground);

    bool enabled_ = true;
    QString caption_;
    Colour frameColour_ = Black;
    TitleStrip* picTitle_;
};

}  // namespace controls
