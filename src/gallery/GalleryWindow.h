#pragma once

#include <QWidget>

#include <vector>

class QTabWidget;

namespace gallery {

class EventLog;
class Sheet;

/// The one window of the gallery: a tab for each sheet, and the log of events below.
class GalleryWindow : public QWidget {
public:
    GalleryWindow();

    const std::vector<Sheet*>& Sheets() const { return sheets_; }
    void ShowSheet(Sheet* sheet);
    EventLog& Log() const { return *log_; }

private:
    QTabWidget* tabs_;
    EventLog* log_;
    std::vector<Sheet*> sheets_;
};

}  // namespace gallery
