#pragma once

#include <QPushButton>

namespace shell {

/// The link to the tutorial on the product's web site. It opens in the user's browser; a browser that can't
/// be started is passed over in silence. A double click is one click, and opens it once.
class TutorialLink : public QPushButton {
    Q_OBJECT

public:
    explicit TutorialLink(QWidget* parent);

protected:
    void mouseDoubleClickEvent(QMouseEvent* /*event*/) override {}

private:
    static void OpenTutorial();
};

}  // namespace shell
