#pragma once

#include "gallery/EventLog.h"
#include "gallery/GalleryWindow.h"
#include "gallery/Sheet.h"

#include <gtest/gtest.h>

/// The gallery on the active window.
class GalleryOnScreen : public ::testing::Test {
protected:
    GalleryOnScreen();

    /// Brings a sheet on view, as its tab does.
    void Show(gallery::Sheet* sheet);
    gallery::Sheet* Show(const char* title);

    /// Runs a check on each sheet while it is on view.
    template <class Check>
    void OnEachSheet(Check check) {
        for (gallery::Sheet* sheet : window.Sheets()) {
            Show(sheet);
            check(sheet);
        }
    }

    /// All samples of a kind on the sheet.
    template <class Control>
    static QList<Control*> Samples(const gallery::Sheet* sheet) {
        return sheet->findChildren<Control*>();
    }

    /// The lines of the log from the newest backward.
    QStringList Logged(int lines) const;

    gallery::GalleryWindow window;
};
