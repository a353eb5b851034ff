#include "OrderText.h"

namespace {

const QString& Mark() {
    static const QString mark = QStringLiteral("--import");
    return mark;
}

}  // namespace

QStringList ToArguments(const ImportOrder& order) {
    return {Mark(),
            order.portfolio,
            order.database,
            order.log,
            order.progress,
            QString::number(order.endAt),
            QString::number(static_cast<int>(order.end)),
            QString::number(order.writesOfGroup),
            order.strike,
            QString::number(order.strikeAfter),
            QString::number(int{order.strikeBetweenGroups})};
}

bool AreOrder(const QStringList& arguments) {
    return arguments.value(0) == Mark();
}

ImportOrder OrderOf(const QStringList& arguments) {
    ImportOrder order;
    order.portfolio = arguments[1];
    order.database = arguments[2];
    order.log = arguments[3];
    order.progress = arguments[4];
    order.endAt = arguments[5].toInt();
    order.end = static_cast<FaultyDisk::Fault>(arguments[6].toInt());
    order.writesOfGroup = arguments[7].toULongLong();
    order.strike = arguments[8];
    order.strikeAfter = arguments[9].toULongLong();
    order.strikeBetweenGroups = arguments[10].toInt() != 0;
    return order;
}
