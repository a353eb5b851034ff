#pragma once

#include <QListWidget>
#include <QString>

namespace gallery {

/// What the samples raise, a line for each event, the newest at the end and current. A list is what every
/// screen reader can go through line by line.
class EventLog : public QListWidget {
public:
    explicit EventLog(QWidget* parent);

    /// The sample's name and what it raised: "Add: Click".
    void Write(const QString& sample, const QString& event);
};

}  // namespace gallery
