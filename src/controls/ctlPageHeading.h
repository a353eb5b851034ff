#pragma once

#include "controls/base/Canvas.h"
#include "controls/base/Control.h"
#include "controls/base/Drawing.h"
#include "controls/heading/HeadingTabs.h"
#include "controls/skin/Gradient.h"

class QLabel;

namespace controls {

class CloseImage;

/// The banner across the top of the wizard: a large title on a gradient, a close image at the right, and a
/// row of tabs along the lower edge. It knows nothing of pages: the wizard says which tabs may be clicked and
/// which is current, and hears of clicks. Lengths are twips.
///
/// It takes no keys and no focus: Next, Back and Cancel do by the keyboard all that its tabs and its close
/// image do, and a stop at each of seven tabs would stand in the way of every user of the Tab key. A screen
/// reader finds the tabs and the image all the same, and can work them.
class ctlPageHeading : public Control {
    Q_OBJECT

public:
    struct Properties {
        QString Caption{};
        QString Tabs{};
        bool CloseButton = false;
    };

    /// A new one: no title, no tabs, no close image.
    explicit ctlPageHeading(QWidget* parent = nullptr);

    /// One loaded from its saved properties. The first tab is current and no tab can be clicked yet. Tabs are
    /// taken as they were saved: without a bar at its end, the last text is no tab.
    explicit ctlPageHeading(const Properties& saved, QWidget* parent = nullptr);

    /// The tabs' texts, a bar "|" behind each.
    const QString& Tabs() const { return text_; }
    /// Adds the bar at the end if it is missing. The current tab's text stays, even if no tab has it any
    /// longer. The title stays where it is until the size changes.
    void SetTabs(const QString& text);

    bool CloseButton() const;
    void SetCloseButton(bool shown);

    QString Caption() const;
    void SetCaption(const QString& text);

    /// Lays bands from the colour of the banner's upper end to that of its lower end over (x1, Y1) to the
    /// heading's right edge, downward to Y2, as many as the heading's height had room for. They stay until
    /// the size changes. Failures are shown in a message box, with number and description, and end the
    /// painting: 5 for an area too low for so many bands, 6 for a place beyond 16 bits (a heading higher than
    /// 32,767 twips), 11 for a heading too low for a single band.
    void DrawGradient(qint32 x1, qint32 Y1, qint32 X2, qint32 Y2);

    /// See clsSkin.
    static qint32 GetColourCount(const Canvas* canvas);

    /// Selects a tab, whether it can be clicked or not, and raises TabSelect. The tab is counted from 0; the
    /// empty entry behind the last tab counts too. Failure 9 for any other, and nothing changes.
    void ChangeTab(qint16 Index);

    /// Says whether a tab can be clicked. Failure 9 as above.
    void ChangeTabEnabled(qint16 TabIndex, bool Enabled);

    /// See HeadingTabs.
    qint16 CurrentTabIndex() const { return tabs_.CurrentTabIndex(); }

    /// What a click on a tab does: nothing if it can't be clicked, otherwise the tab becomes current and
    /// TabSelect is raised, even if it was current before.
    void ClickTab(int tab);

    /// For those who read the tabs aloud.
    const HeadingTabs& TabStrip() const { return tabs_; }
    /// Where a tab stands, in pixels of the heading.
    QRect TabPixels(int tab) const;

Q_SIGNALS:
    /// A tab was selected, by a click or by ChangeTab, and shows it. A handler that doesn't want it calls
    /// ChangeTab to go back. CurrentTab is the heading's own text, so what a handler writes there stays.
    void TabSelect(QString& CurrentTab, qint16& CurrentIndex);

    /// The close image was clicked.
    void CloseButtonClick();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    /// A click is the release of any button, and counts where the mouse is then: the user can press beside a
    /// tab, move onto it and let go.
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void DrawBackground();
    void DrawTab(PaintedCanvas& canvas, int tab) const;
    void Select(qint16 place);

    QString text_;
    HeadingTabs tabs_;
    qint16 colourBandCount_ = 0;
    Gradient gradient_{Black, Black};
    Drawing background_;
    QLabel* lblCaption_;
    CloseImage* imgCloseButton_;
};

}  // namespace controls
