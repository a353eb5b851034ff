#pragma once

#include "screens/Page.h"

class QLabel;
class QRadioButton;

namespace controls {
class akDate;
class ctlTextBox;
}  // namespace controls

namespace shell {

/// The page on which the user says whether he is a landlord or a property manager. What was entered stays on
/// the page for as long as the process lives; it counts from the next Next on.
class ctlPageType : public screens::Page {
    Q_OBJECT

public:
    explicit ctlPageType(QWidget* parent);

    /// Whether a type is chosen; tells the user if not. If so, the choices become those of the process
    /// (records::CurrentSettings). The fee and the date are taken for a landlord too, from the disabled
    /// controls.
    bool IsValid();

    /// The chosen option, or the first while none is.
    QWidget* FirstField() const;

private:
    void AddOptions();
    void AddManagerFields();
    /// The fields that only a property manager fills in are enabled for him alone. Their values stay.
    void UpdateControls();

    QRadioButton* optLandlord_ = nullptr;
    QRadioButton* optManager_ = nullptr;
    QLabel* Label2_ = nullptr;
    controls::ctlTextBox* txtManagementFee_ = nullptr;
    QLabel* Label3_ = nullptr;
    QLabel* Label4_ = nullptr;
    controls::akDate* datLastDisbursement_ = nullptr;
};

}  // namespace shell
