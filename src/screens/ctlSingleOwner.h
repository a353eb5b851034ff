#pragma once

#include "screens/Page.h"

namespace controls {
class ctlTextBox;
}

namespace records {
class Owners;
}

namespace screens {

/// The page of owners as a landlord sees it: one name, and no list. Leaving it forward makes the owner anew;
/// whatever owners were entered before are gone then.
class ctlSingleOwner : public Page {
    Q_OBJECT

public:
    ctlSingleOwner(QWidget* parent, records::Owners& owners);

    /// Shows the first owner, if there is one.
    void Initialise();

    /// Always true: an empty name is an owner too.
    bool IsValid();

    QWidget* FirstField() const;

private:
    records::Owners& owners_;
    controls::ctlTextBox* txtName_;
};

}  // namespace screens
