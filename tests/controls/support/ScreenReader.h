#pragma once

#include <QAccessible>
#include <QStringList>

#include <functional>

/// A screen reader that runs while it lives: accessibility is switched on, and what the controls tell is
/// noted in words, with the name of what it is about.
///
///     "focus r1"  "selection r1"  "deselection r1"  "state disabled pressed Save"  "name March 2009"  "shown
///     March 2009" "hidden March 2009"  "reorder Wizard"  "rows reset"  "rows inserted 3"  "rows removed 1"
///
/// Rows are counted from 0. Events of other kinds are not noted.
class ScreenReader {
public:
    using Interest = std::function<bool(const QAccessibleInterface&)>;

    /// Notes what is told about anything, or only about what is of interest.
    explicit ScreenReader(Interest interest = {});
    ScreenReader(const ScreenReader&) = delete;
    ScreenReader& operator=(const ScreenReader&) = delete;
    ~ScreenReader();

    /// What was told since the last call.
    QStringList Heard();

private:
    static void Hear(QAccessibleEvent* event);

    Interest interest_;
    QStringList heard_;
    QAccessible::UpdateHandler previous_;
};
