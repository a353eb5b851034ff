#include "controls/akGrid.h"
#include "controls/base/Display.h"
#include "platform/Failure.h"
#include "platform/Rounding.h"

#include <QScrollBar>

#include <algorithm>

namespace controls {

namespace {

/// Twips.
constexpr int ScrollBarWidth = 255;

/// The bar comes up to date as far as it can: a step that fails is left out.
template <class Step>
void Attempt(Step step) {
    try {
        step();
    } catch (const platform::Failure&) {
        return;
    }
}

}  // namespace

void akGrid::PositionScrollBar() {
    if (!shown_) {
        return;
    }
    const int height = Height() - FrameAllowance;
    const int left = Width() - ScrollBarWidth - FrameAllowance;
    if (height >= 0) {
        scrollBar_->resize(ToPixels(ScrollBarWidth), ToPixels(height));
    }
    scrollBar_->move(ToPixels(left), 0);
    Attempt([this] { scrollBar_->setMinimum(visibleRows_); });
    Attempt([this] { scrollBar_->setMaximum(std::max(platform::ToInteger(rows_), visibleRows_)); });
    scrollBar_->setSingleStep(1);
    if (visibleRows_ > 1) {
        scrollBar_->setPageStep(visibleRows_ - 1);
    }
    scrollBar_->setVisible(scrollBar_->minimum() != scrollBar_->maximum());
    Attempt([this] { scrollBar_->setValue(platform::ToInteger(topOffset_ + scrollBar_->minimum())); });
}

void akGrid::Scrolled() {
    const int rowBefore = AbsoluteRow();
    const int columnBefore = currentColumn_;
    const auto offset = [this] { return scrollBar_->value() - scrollBar_->minimum(); };
    const auto step = static_cast<qint16>(offset() - topOffset_);
    if (currentRow_ != 0) {
        int row = Moved(currentRow_, -step);
        int column = currentColumn_;
        ChangeCurrentCell(row, column, false);
    }
    topOffset_ = offset();
    RefreshCells();
    if (AbsoluteRow() != rowBefore) {
        AnnounceDeselected(rowBefore, columnBefore);
        AnnounceCurrentCell();
    }
}

bool akGrid::CanShowRow(int row) const {
    const int reach = std::max(scrollBar_->maximum() - scrollBar_->minimum(), topOffset_);
    return row >= 1 && row <= rows_ && row <= Moved(reach, visibleRows_);
}

void akGrid::SetTopRow(int value) {
    const qint64 last = std::max<qint64>(qint64{rows_} - visibleRows_, 0);
    const qint64 offset = std::clamp<qint64>(qint64{value} - 1, 0, last);
    const qint64 reachable = std::min<qint64>(scrollBar_->minimum() + offset, scrollBar_->maximum());
    scrollBar_->setValue(static_cast<int>(reachable));
}

}  // namespace controls
