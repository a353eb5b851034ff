#include "controls/ctlTextBox.h"

#include "controls/base/Accessible.h"
#include "controls/base/Canvas.h"
#include "controls/base/Display.h"
#include "controls/base/LeadingNumber.h"
#include "controls/base/Regional.h"
#include "controls/text/InnerTextBox.h"
#include "platform/Rounding.h"

#include <QAccessibleWidget>
#include <QPainter>

#include <algorithm>

namespace controls {

namespace {

constexpr qint16 RightAlignment = 1;

/// The saved number of decimals that stands for those of the locale's money.
constexpr qint16 DecimalsOfMoney = 2;

/// In twips; a control that is smaller has no room for an edit box.
constexpr int LeastExtent = 20;

/// The focus is that of the edit box inside, and not told twice.
class TextBoxAccessible : public QAccessibleWidget {
public:
    explicit TextBoxAccessible(ctlTextBox* box) : QAccessibleWidget(box) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.focused = false;
        state.focusable = false;
        return state;
    }
};

}  // namespace

ctlTextBox::ctlTextBox(QWidget* parent) : ctlTextBox(Properties(), parent) {
}

ctlTextBox::ctlTextBox(const Properties& saved, QWidget* parent)
    : Control(parent), box_(new InnerTextBox(this)), imgUpDown_(new UpDownImage(this)) {
    RegisterAccessible<ctlTextBox, TextBoxAccessible>();
    rules_.marks = NumberMarks::OfTheUser();
    imgUpDown_->hide();
    setFocusProxy(box_);
    connect(box_, &QLineEdit::textChanged, this, &ctlTextBox::ReactToChange);
    connect(box_, &InnerTextBox::KeyTyped, this, &ctlTextBox::FilterKey);
    connect(box_, &InnerTextBox::KeyDone, this, [this] { changeViaKeypress_ = false; });
    connect(box_, &EntryBox::Entered, this, &ctlTextBox::GotFocus);
    connect(box_, &EntryBox::Left, this, &ctlTextBox::Leave);
    connect(imgUpDown_, &UpDownImage::Pressed, this, &ctlTextBox::Step);
    Load(saved);
}

ctlTextBox::~ctlTextBox() {
    // The box gives up its focus when it goes, after this object; nobody is left by then to hear of it.
    box_->disconnect(this);
}

void ctlTextBox::Load(const Properties& saved) {
    SetEnabled(saved.Enabled);
    SetAlignment(saved.Alignment);
    SetLocked(saved.Locked);
    SetMaxLength(saved.MaxLength);
    SetText(saved.Text);
    // The alignment was saved with the mode and stays as it was saved.
    isNumeric_ = saved.IsNumeric;
    SetDecimalPlaces(saved.DecimalPlaces);
    SetAllowNegative(saved.AllowNegative);
    SetShowUpDown(saved.ShowUpDown);
    SetUpDownIncrement(saved.UpDownIncrement);
    if (isNumeric_ && DecimalPlaces() == DecimalsOfMoney) {
        SetDecimalPlaces(platform::ToInteger(LeadingNumber(GetCurrencyDigits())));
    }
}

void ctlTextBox::SetEnabled(bool enabled) {
    enabled_ = enabled;
    setEnabled(enabled);
    box_->setEnabled(enabled);
}

void ctlTextBox::SetAlignment(qint16 alignment) {
    alignment_ = alignment;
    box_->setAlignment(Qt::AlignVCenter | (alignment == RightAlignment ? Qt::AlignRight : Qt::AlignLeft));
}

bool ctlTextBox::Locked() const {
    return box_->isReadOnly();
}

void ctlTextBox::SetLocked(bool locked) {
    box_->setReadOnly(locked);
}

qint32 ctlTextBox::MaxLength() const {
    return box_->EntryLimit();
}

void ctlTextBox::SetMaxLength(qint32 length) {
    box_->SetEntryLimit(length);
}

QString ctlTextBox::Text() const {
    return box_->text();
}

void ctlTextBox::SetText(const QString& text) {
    // The same text again would cost the user his selection and what can be undone.
    if (text != box_->text()) {
        box_->ReplaceText(text);
    }
}

void ctlTextBox::SetIsNumeric(bool isNumeric) {
    isNumeric_ = isNumeric;
    if (isNumeric) {
        SetAlignment(RightAlignment);
    }
}

void ctlTextBox::SetShowUpDown(bool show) {
    showUpDown_ = show;
    imgUpDown_->setVisible(show);
    LayOut();
}

void ctlTextBox::SetUpDownIncrement(double increment) {
    if (increment != upDownIncrement_) {
        upDownIncrement_ = increment;
    }
}

double ctlTextBox::Value() const {
    return ReadNumber(box_->text(), rules_.marks).value_or(0);
}

void ctlTextBox::SetBackColor(Colour colour) {
    backColor_ = colour;
    update();
}

void ctlTextBox::SetLabel(const QString& label) {
    box_->setAccessibleName(label);
    imgUpDown_->SetLabel(label);
}

void ctlTextBox::resizeEvent(QResizeEvent* event) {
    Control::resizeEvent(event);
    LayOut();
}

void ctlTextBox::LayOut() {
    if (Width() < LeastExtent || Height() < LeastExtent) {
        return;
    }
    const int boxHeight = std::max(height(), box_->minimumSizeHint().height());
    const int imageLeft = width() - imgUpDown_->width();
    box_->setGeometry(0, 0, std::max(0, showUpDown_ ? imageLeft : width()), boxHeight);
    imgUpDown_->move(imageLeft, 0);
    // A line of text needs its height, however little a form gives.
    if (boxHeight > height()) {
        resize(width(), boxHeight);
    }
}

void ctlTextBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    PaintedCanvas canvas(&painter, width(), height());
    canvas.Line(0, 0, Width(), Height(), backColor_, LineForm::FilledBox);
}

void ctlTextBox::FilterKey(QChar key, bool& swallow) {
    if (!isNumeric_) {
        swallow = !PassesTextKeys(key);
        return;
    }
    swallow = !PassesNumericKeys(key, box_->text(), rules_);
    if (!swallow) {
        changeViaKeypress_ = true;
    }
}

void ctlTextBox::ReactToChange() {
    if (changesOwnText_) {
        return;
    }
    const int caret = box_->cursorPosition();
    changesOwnText_ = true;
    if (isNumeric_) {
        const QString text = box_->text();
        const QString corrected = CorrectedNumber(text, rules_);
        // A text that is right already is left alone, so that what was typed can be undone.
        if (corrected != text) {
            box_->setText(corrected);
            box_->setCursorPosition(std::min(caret, static_cast<int>(corrected.size())));
        }
    }
    changesOwnText_ = false;
    Q_EMIT Change(changeViaKeypress_);
    changeViaKeypress_ = false;
}

void ctlTextBox::Leave() {
    if (isNumeric_) {
        SetText(NumberOnLeaving(box_->text(), rules_));
    }
    Q_EMIT LostFocus();
}

void ctlTextBox::Step(UpDownHalf half) {
    changesOwnText_ = true;
    const double increment = half == UpDownHalf::Up ? upDownIncrement_ : -upDownIncrement_;
    const double number = DecimalSum(LeadingNumber(box_->text()), increment);
    if (half == UpDownHalf::Down && !rules_.AllowNegative && number < 0) {
        box_->ReplaceText(QStringLiteral("0"));
        // At its floor the control falls quiet: nothing is put right or reported until a step ends below.
        return;
    }
    QString text = GeneralText(number, rules_.marks);
    if (rules_.AllowNegative && LeadingNumber(text) > 0) {
        text.prepend(QLatin1Char('+'));
    }
    box_->ReplaceText(text);
    box_->SelectFromStart();
    changesOwnText_ = false;
    ReactToChange();
}

}  // namespace controls
