#include "controls/ctlPageHeading.h"

#include "controls/base/Accessible.h"
#include "controls/base/Display.h"
#include "controls/base/Font.h"
#include "controls/base/Palette.h"
#include "controls/clsSkin.h"
#include "controls/heading/CloseImage.h"
#include "controls/heading/HeadingAccessible.h"
#include "controls/skin/GradientBands.h"
#include "platform/Rounding.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

namespace controls {

namespace {

constexpr double CaptionPoints = 13.5;
constexpr int CaptionLeft = 120;
constexpr int CaptionHeight = 375;
/// What the tabs take from the height that the title has.
constexpr int TabHeight = 360;

constexpr int CloseTop = 60;
constexpr int CloseSide = 315;
constexpr int CloseMargin = 60;

/// The base line stands this much above the lower edge, and bands are cut by the same measure.
constexpr int Line = 15;

/// Letters with and without tails, so that all tabs share one base line.
constexpr const char16_t* SampleText = u"Aagy";

/// How a tab looks. The outline's lower edge is one row higher on all but the current tab, which opens
/// downward.
struct TabLook {
    Colour fill;
    Colour outline;
    QColor text;
};

TabLook LookOf(bool current, bool enabled) {
    if (current) {
        return {White, ThePalette().Frame, Qt::black};
    }
    if (enabled) {
        return {ThePalette().Heading, ThePalette().Frame, Qt::black};
    }
    return {SystemColours::ButtonFace, SystemColours::DarkShadow,
            ReadableOn(ToQColor(SystemColours::ButtonFace), ToQColor(SystemColours::DarkShadow))};
}

}  // namespace

ctlPageHeading::ctlPageHeading(QWidget* parent)
    : Control(parent), lblCaption_(new QLabel(this)), imgCloseButton_(new CloseImage(this)) {
    setAttribute(Qt::WA_OpaquePaintEvent);

    lblCaption_->setObjectName(QStringLiteral("lblCaption"));
    lblCaption_->setTextFormat(Qt::PlainText);
    lblCaption_->setAlignment(Qt::AlignCenter);
    lblCaption_->setFont(ControlFont(CaptionPoints, Weight::Bold));
    QPalette colours = lblCaption_->palette();
    colours.setColor(QPalette::WindowText, Qt::white);
    lblCaption_->setPalette(colours);

    imgCloseButton_->setObjectName(QStringLiteral("imgCloseButton"));
    imgCloseButton_->hide();
    connect(imgCloseButton_, &QAbstractButton::clicked, this, &ctlPageHeading::CloseButtonClick);

    RegisterAccessible<ctlPageHeading, HeadingAccessible>();
}

ctlPageHeading::ctlPageHeading(const Properties& saved, QWidget* parent) : ctlPageHeading(parent) {
    SetCaption(saved.Caption);
    text_ = saved.Tabs;
    SetCloseButton(saved.CloseButton);
    tabs_.ParseTabs(text_);
}

void ctlPageHeading::SetTabs(const QString& text) {
    const bool lacksBar = !text.isEmpty() && !text.endsWith(QLatin1Char('|'));
    text_ = lacksBar ? text + QLatin1Char('|') : text;
    tabs_.ParseTabs(text_);
    update();
    AnnounceTabsReplaced(*this);
}

bool ctlPageHeading::CloseButton() const {
    return !imgCloseButton_->isHidden();
}

void ctlPageHeading::SetCloseButton(bool shown) {
    imgCloseButton_->setVisible(shown);
}

QString ctlPageHeading::Caption() const {
    return lblCaption_->text();
}

void ctlPageHeading::SetCaption(const QString& text) {
    lblCaption_->setText(text);
    setAccessibleName(text);
}

void ctlPageHeading::DrawGradient(qint32 x1, qint32 Y1, qint32 X2, qint32 Y2) {
    try {
        gradient_.Prepare();
        const Bands bands = CutIntoBands(x1, Y1, X2, Y2, colourBandCount_);
        ForEachBand(bands.height, bands.down, [&](qint16 i) {
            background_.Line(bands.left, bands.top + i, background_.Width(), bands.top + i + bands.down,
                             gradient_.At(FractionOf(i, bands.height)), LineForm::FilledBox);
        });
    } catch (...) {
        ReportDrawingFailure();
    }
    update();
}

qint32 ctlPageHeading::GetColourCount(const Canvas* canvas) {
    return clsSkin::GetColourCount(canvas);
}

void ctlPageHeading::ChangeTab(qint16 Index) {
    tabs_.CheckPlace(Index);
    Select(Index);
}

void ctlPageHeading::ChangeTabEnabled(qint16 TabIndex, bool Enabled) {
    tabs_.CheckPlace(TabIndex);
    const bool changes = tabs_.TabEnabled[TabIndex] != Enabled;
    tabs_.TabEnabled[TabIndex] = Enabled;
    update();
    if (changes) {
        AnnounceTabEnabled(*this, TabIndex);
    }
}

void ctlPageHeading::ClickTab(int tab) {
    tabs_.CheckPlace(tab);
    if (tabs_.TabEnabled[tab]) {
        Select(static_cast<qint16>(tab));
    }
}

void ctlPageHeading::Select(qint16 place) {
    const QString before = tabs_.CurrentTab;
    tabs_.CurrentTab = tabs_.TabNames[place];
    update();
    AnnounceTabSelected(*this, before);
    Q_EMIT TabSelect(tabs_.CurrentTab, place);
}

QRect ctlPageHeading::TabPixels(int tab) const {
    const QPoint topLeft(ToPixels(HeadingTabs::Left(tab)), ToPixels(HeadingTabs::Top(Height())));
    return {topLeft, QPoint(ToPixels(HeadingTabs::Right(tab)), height() - 1)};
}

void ctlPageHeading::DrawBackground() {
    const int width = Width();
    const int height = Height();
    const double third = height / 3.0;
    background_.Begin(width, height, depth());
    background_.Line(0, 0, width, third, ThePalette().BannerStart, LineForm::FilledBox);
    gradient_.StartColour = ThePalette().BannerStart;
    gradient_.EndColour = ThePalette().BannerEnd;
    colourBandCount_ = platform::ToInteger((third + third) / Line);
    DrawGradient(0, 0, width, height);
    // Only its lower edge falls on the heading: the base line, at the height of that of the tabs.
    background_.Line(-2 * Line, -2 * Line, width + Line, height - Line, ThePalette().Frame,
                     LineForm::Outline);
    update();
}

void ctlPageHeading::DrawTab(PaintedCanvas& canvas, int tab) const {
    const int left = HeadingTabs::Left(tab);
    const int right = HeadingTabs::Right(tab);
    const int bottom = canvas.Height();
    const int top = HeadingTabs::Top(bottom);
    const bool current = tabs_.IsCurrent(tab);
    const TabLook look = LookOf(current, tabs_.TabEnabled[tab]);
    // A text that is too long would run over the neighbours.
    const QString text = canvas.Elided(tabs_.TabNames[tab], right - left - 2 * Line);

    canvas.Line(left, top, right, bottom, look.fill, LineForm::FilledBox);
    canvas.Line(left, top, right, current ? bottom : bottom - Line, look.outline, LineForm::Outline);
    if (current) {
        canvas.Line(left + Line, bottom - Line, right - Line, bottom - Line, White, LineForm::Line);
    }
    canvas.Print((left + right) / 2.0 - canvas.TextWidth(text) / 2.0,
                 (bottom - top) / 2.0 - canvas.TextHeight(QString::fromUtf16(SampleText)) / 2.0 + top, text,
                 look.text);
}

void ctlPageHeading::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    PaintedCanvas canvas(&painter, width(), height());
    background_.DrawOn(canvas);
    canvas.SetFont(ControlFont());
    for (int tab = 0; tab < tabs_.Count(); ++tab) {
        DrawTab(canvas, tab);
    }
}

void ctlPageHeading::resizeEvent(QResizeEvent* event) {
    const int room = tabs_.TabNames.isEmpty() ? Height() : Height() - TabHeight;
    lblCaption_->setGeometry(ToPixels(CaptionLeft), ToPixels((room - CaptionHeight) / 2.0), width(),
                             ToPixels(CaptionHeight));
    DrawBackground();
    imgCloseButton_->setGeometry(ToPixels(Width() - CloseSide - CloseMargin), ToPixels(CloseTop),
                                 ToPixels(CloseSide), ToPixels(CloseSide));
    Control::resizeEvent(event);
}

void ctlPageHeading::mousePressEvent(QMouseEvent* event) {
    // Taken, so that the release comes here too.
    event->accept();
}

void ctlPageHeading::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (TwipsAt(event->position().y()) <= HeadingTabs::Top(Height())) {
        return;
    }
    const std::optional<int> tab = tabs_.TabAt(TwipsAt(event->position().x()));
    if (tab) {
        ClickTab(*tab);
    }
}

}  // namespace controls
