#pragma once

#include "screens/Page.h"

namespace shell {

/// The opening page: what the wizard is for and what it deletes.
class ctlPageIntro : public screens::Page {
    Q_OBJECT

public:
    explicit ctlPageIntro(QWidget* parent);
};

}  // namespace shell
