#pragma once

#include <QWidget>

namespace shell {

/// The opening page: what the wizard is for and what it deletes.
class ctlPageIntro : public QWidget {
    Q_OBJECT

public:
    explicit ctlPageIntro(QWidget* parent);
};

}  // namespace shell
