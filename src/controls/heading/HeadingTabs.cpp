#include "controls/heading/HeadingTabs.h"

#include "platform/Failure.h"

#include <algorithm>
#include <limits>

namespace controls {

namespace {

constexpr int Gap = 90;
constexpr int TabWidth = 1500;
constexpr int TabHeight = 360;

}  // namespace

void HeadingTabs::ParseTabs(const QString& text) {
    TabNames = text.isEmpty() ? QStringList() : text.split(QLatin1Char('|'));
    TabEnabled.resize(TabNames.size());
    if (CurrentTab.isEmpty() && !TabNames.isEmpty()) {
        CurrentTab = TabNames.first();
    }
}

int HeadingTabs::Count() const {
    return std::max(0, static_cast<int>(TabNames.size()) - 1);
}

qint16 HeadingTabs::CurrentTabIndex() const {
    return static_cast<qint16>(TabNames.indexOf(CurrentTab));
}

void HeadingTabs::CheckPlace(int place) const {
    if (place < 0 || place >= TabNames.size()) {
        throw platform::Failure(platform::FailureNumber::SubscriptOutOfRange,
                                QStringLiteral("Subscript out of range"));
    }
}

int HeadingTabs::Left(int tab) {
    return (tab + 1) * Gap + tab * TabWidth;
}

int HeadingTabs::Right(int tab) {
    return Left(tab) + TabWidth;
}

qint16 HeadingTabs::Top(int headingHeight) {
    using Limits = std::numeric_limits<qint16>;
    return static_cast<qint16>(std::clamp<int>(headingHeight - TabHeight, Limits::min(), Limits::max()));
}

std::optional<int> HeadingTabs::TabAt(int X) const {
    for (int tab = 0; tab < Count(); ++tab) {
        if (Left(tab) <= X && X <= Right(tab)) {
            return tab;
        }
    }
    return std::nullopt;
}

}  // namespace controls
