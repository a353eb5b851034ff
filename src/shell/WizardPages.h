#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <vector>

class QWidget;

namespace shell {

/// What the form has to know of one of its pages.
struct PageKind {
    QString tab;                   ///< The caption of its tab. Two pages can share one, for different users.
    QString name;                  ///< What its widget is called.
    std::optional<int> helpTopic;  ///< Without one, help opens with its contents.

    std::function<bool()> IsMeant;  ///< Whether it is the one of its tab that this user sees.
    std::function<QWidget*(QWidget* parent)> Make;
    std::function<void(QWidget& page)> Initialise;  ///< Fills it from the records, each time it comes up.
    /// Whether it may be left forward; the user has been told why not.
    std::function<bool(QWidget& page)> IsValid;
    /// Where the user begins on it; null where there is nothing to enter.
    std::function<QWidget*(const QWidget& page)> FirstField;
};

/// All pages, in the order of their tabs. A page that comes is a line here.
const std::vector<PageKind>& Pages();

}  // namespace shell
