#include "controls/ctlGroupBox.h"

#include "controls/base/Accessible.h"
#include "controls/base/Canvas.h"
#include "controls/base/Display.h"
#include "controls/base/Drawing.h"
#include "controls/base/Font.h"
#include "controls/base/Palette.h"
#include "controls/clsSkin.h"

#include <QAccessibleWidget>
#include <QMetaObject>
#include <QPainter>

namespace controls {

namespace {

constexpr int TitleHeight = 285;
/// A band a row of pixels at 96 dots per inch.
constexpr int BandHeight = 15;
/// The frame's right and lower edge stand on the last pixel.
constexpr int Edge = 15;
constexpr Colour WhiteOfAnEmptyPalette = RGB(245, 245, 245);

/// The skin of all titles.
clsSkin& TitleSkin() {
    static clsSkin skin = [] {
        clsSkin made;
        made.ColourBandCount = TitleHeight / BandHeight;
        made.SetStartColour(ThePalette().TitleStart);
        made.SetEndColour(ThePalette().TitleEnd);
        return made;
    }();
    return skin;
}

void Enable(QWidget& child, bool enabled) {
    constexpr const char* OwnValue = "Enabled";
    try {
        if (child.metaObject()->indexOfProperty(OwnValue) >= 0) {
            child.setProperty(OwnValue, enabled);
        } else {
            child.setEnabled(enabled);
        }
    } catch (...) {
        // The others still have to get the value.
    }
}

class GroupBoxAccessible : public QAccessibleWidget {
public:
    explicit GroupBoxAccessible(QWidget* box) : QAccessibleWidget(box, QAccessible::Grouping) {}
};

}  // namespace

/// The title of a group box. It has no keys and no clicks; its text is read from the box.
class ctlGroupBox::TitleStrip : public QWidget {
public:
    explicit TitleStrip(ctlGroupBox* box) : QWidget(box), box_(box) {
        setObjectName(QStringLiteral("picTitle"));
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

protected:
    void resizeEvent(QResizeEvent* /*event*/) override {
        gradient_.Begin(ToTwips(width()), ToTwips(height()), depth());
        TitleSkin().DrawGradient(&gradient_, 0, 0, gradient_.Width(), TitleHeight);
    }

    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Window));
        PaintedCanvas canvas(&painter, width(), height());
        gradient_.DrawOn(canvas);
        canvas.SetFont(ControlFont());
        const QString& text = box_->Caption();
        canvas.Print((canvas.Width() - canvas.TextWidth(text)) / 2.0,
                     (TitleHeight - canvas.TextHeight(text)) / 2.0, text, Qt::black);
    }

private:
    ctlGroupBox* box_;
    Drawing gradient_;
};

ctlGroupBox::ctlGroupBox(QWidget* parent) : Control(parent), picTitle_(new TitleStrip(this)) {
    RegisterAccessible<ctlGroupBox, GroupBoxAccessible>();
}

ctlGroupBox::ctlGroupBox(const Properties& saved, QWidget* parent) : ctlGroupBox(parent) {
    enabled_ = false;
    frameColour_ = ThePalette().Frame;
    if (ThePalette().Window == 0) {
        ThePalette().Window = WhiteOfAnEmptyPalette;
    }
    SetGround(ToQColor(ThePalette().Window));
    SetCaption(saved.Caption);
}

void ctlGroupBox::SetGround(const QColor& ground) {
    // Labels in the box take their colours from it, and those of a dark desktop would vanish here.
    QPalette colours = palette();
    const QColor disabledText = colours.color(QPalette::Disabled, QPalette::WindowText);
    colours.setColor(QPalette::Window, ground);
    colours.setColor(QPalette::WindowText, Qt::black);
    colours.setColor(QPalette::Disabled, QPalette::WindowText, ReadableOn(ground, disabledText));
    setPalette(colours);
}

void ctlGroupBox::SetEnabled(bool enabled) {
    if (enabled == enabled_) {
        return;
    }
    enabled_ = enabled;
    setEnabled(enabled);
    DisableControls(enabled);
}

void ctlGroupBox::DisableControls(bool enabled) {
    for (QWidget* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child != picTitle_ && !child->isWindow()) {
            Enable(*child, enabled);
        }
    }
}

void ctlGroupBox::SetCaption(const QString& text) {
    if (text == caption_) {
        return;
    }
    caption_ = text;
    setAccessibleName(text);
    picTitle_->update();
}

void ctlGroupBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    PaintedCanvas canvas(&painter, width(), height());
    canvas.Line(0, 0, Width() - Edge, Height() - Edge, frameColour_, LineForm::Outline);
}

void ctlGroupBox::resizeEvent(QResizeEvent* event) {
    picTitle_->setGeometry(0, 0, width(), ToPixels(TitleHeight));
    Control::resizeEvent(event);
}

}  // namespace controls
