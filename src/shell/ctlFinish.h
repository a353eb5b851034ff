#pragma once

#include "screens/Page.h"

class QLabel;

namespace shell {

/// The closing page: what Finish will create, and what it deletes.
class ctlFinish : public screens::Page {
    Q_OBJECT

public:
    explicit ctlFinish(QWidget* parent);

    /// Counts the records anew.
    void Initialise();

private:
    QLabel* lblResult_;
};

}  // namespace shell
