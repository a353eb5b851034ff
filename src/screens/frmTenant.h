#pragma once

#include "screens/RecordDialog.h"

#include <memory>

class QLabel;
class QRadioButton;

namespace screens {

/// Adds a tenancy or changes one. The user has to decide about the rent balance, since the wizard either
/// makes up the payments that lead to it or writes none.
class frmTenant : public RecordDialog<records::Tenants, records::TenantEntry> {
public:
    frmTenant(QWidget* parent, records::Collections& all);

    std::shared_ptr<records::Tenant> EditTenant;
    std::shared_ptr<records::Tenant> AddTenant;

protected:
    records::Tenants& Records() override;
    void ShowRecord(const records::Tenant& record) override;
    records::TenantEntry Entered() const override;
    const QString& NameIn(const records::TenantEntry& entry) const override;
    QWidget& NameField() const override;
    QWidget& FieldOf(const records::EntryFault& fault) const override;
    bool IsConfirmed(const records::TenantEntry& entry) override;
    void Complete(records::TenantEntry& entry) const override;
    std::shared_ptr<records::Tenant> Make(const records::TenantEntry& entry) override;

private:
    void AddTenancyFields();
    void AddRentFields();
    void AddBalanceFields();
    void AddMonthDayFields();
    /// The lists and dates of a dialog that has just been loaded.
    void Load();
    void ShowMonthDay();

    controls::ctlTextBox* txtName_ = nullptr;
    controls::akDate* datStart_ = nullptr;
    controls::akDate* datEnd_ = nullptr;
    QComboBox* cboProperty_ = nullptr;
    controls::ctlTextBox* txtRent_ = nullptr;
    controls::ctlTextBox* txtFreqNumber_ = nullptr;
    QComboBox* cboFrequency_ = nullptr;
    controls::ctlTextBox* txtBond_ = nullptr;
    controls::ctlTextBox* txtBalance_ = nullptr;
    QRadioButton* optDont_ = nullptr;
    QRadioButton* optSet_ = nullptr;
    QLabel* lblMonthDay1_ = nullptr;
    controls::ctlTextBox* txtMonthDay_ = nullptr;
    QLabel* lblMonthDay2_ = nullptr;
};

}  // namespace screens
