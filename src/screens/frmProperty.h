#pragma once

#include "screens/RecordDialog.h"

#include <memory>

class QCheckBox;
class QLabel;

namespace screens {

/// Adds a property, or a building with its units, or changes a property. The one dialog that adds to its
/// collection by itself: one Save can make many records. The units of a record can't be changed, since they
/// are properties of their own by then.
class frmProperty : public RecordDialog<records::Properties, records::PropertyEntry> {
public:
    frmProperty(QWidget* parent, records::Collections& all);

    std::shared_ptr<records::Property> EditProperty;
    /// The record made last: the last unit, or the single property. It is in the collection already.
    std::shared_ptr<records::Property> AddProperty;

protected:
    records::Properties& Records() override;
    void FillLists() override;
    void ShowRecord(const records::Property& record) override;
    records::PropertyEntry Entered() const override;
    const QString& NameIn(const records::PropertyEntry& entry) const override;
    QWidget& NameField() const override;
    std::shared_ptr<records::Property> Make(const records::PropertyEntry& entry) override;

private:
    void AddUnitFields();
    void EnableUnitFields(bool on);
    /// The count and the list of units follow each other: a new count writes the numbers anew, and each
    /// change of the list is counted.
    void ReplaceUnitNumbers();
    void CountUnitNumbers();

    controls::ctlTextBox* txtAddress1_;
    controls::ctlTextBox* txtAddress2_;
    controls::ctlTextBox* txtAddress3_;
    QComboBox* cboOwner_;
    QComboBox* cboAccount_;
    QCheckBox* Check1_ = nullptr;
    QLabel* Label6_ = nullptr;
    QLabel* Label7_ = nullptr;
    controls::ctlTextBox* txtUnitCount_ = nullptr;
    controls::ctlTextBox* txtUnitNumbers_ = nullptr;
    QString rememberedCount_;
};

}  // namespace screens
