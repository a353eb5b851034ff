#include "gallery/EventLog.h"

namespace gallery {

namespace {

/// More than anybody reads back; without an end, an afternoon of typing would fill the list for good.
constexpr int MostLines = 500;

}  // namespace

EventLog::EventLog(QWidget* parent) : QListWidget(parent) {
    setObjectName(QStringLiteral("EventLog"));
    setAccessibleName(QStringLiteral("Events"));
    setUniformItemSizes(true);
}

void EventLog::Write(const QString& sample, const QString& event) {
    if (count() == MostLines) {
        delete takeItem(0);
    }
    addItem(sample + QStringLiteral(": ") + event);
    setCurrentRow(count() - 1);
}

}  // namespace gallery
