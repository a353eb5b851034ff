#pragma once

#include "controls/akDate.h"
#include "controls/ctlButton.h"
#include "controls/ctlTextBox.h"
#include "platform/MessageBox.h"
#include "records/EntryRules.h"
#include "screens/Paper.h"

#include <QComboBox>
#include <QDialog>
#include <QString>

namespace screens {

/// The window of a record dialog: of a fixed size, without minimise and maximise buttons, not in the task
/// bar, in the middle of the screen, always shown with exec(). Controls are added in the order of the Tab
/// key. Neither Enter nor Escape does anything beyond the control that has the focus.
class DialogWindow : public QDialog {
    Q_OBJECT

protected:
    /// The size is that of its inside, in twips.
    DialogWindow(const QString& caption, int width, int height, QWidget* parent);

    /// Each with a label in front of it, which is also its name for assistive programs. The line is its place
    /// from above, counted from 0.
    controls::ctlTextBox* AddTextBox(const QString& name, const QString& label, int line, int width,
                                     const controls::ctlTextBox::Properties& properties);
    controls::akDate* AddDate(const QString& name, const QString& label, int line,
                              const controls::akDate::Properties& properties);
    QComboBox* AddList(const QString& name, const QString& label, int line, int width);

    /// What a box for an amount of money that may be negative is like.
    static const controls::ctlTextBox::Properties& MoneyBox();

    /// cmdSave and cmdCancel, side by side at the bottom.
    void AddSaveAndCancel();

    /// A list that offers its entries and nothing else, without a label.
    QComboBox* AddPlainList(const QString& name, const QString& accessibleName, const Place& place);

    /// Where a line begins, and where the fields of the lines stand, in twips.
    static int TopOfLine(int line);
    static constexpr int LeftOfFields = 2700;
    static constexpr int HeightOfFields = 285;

    /// The dialog is about to be seen for the first time.
    virtual void Activated() = 0;
    virtual void Save() = 0;

    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    /// What screen readers take for the label of a field is not told as a text of the dialog's own as well.
    QLabel* AddLabelOf(const QString& field, const QString& text, int line);

    bool activated_ = false;
};

/// A dialog that makes one new record, or changes one in place. It serves one use: the caller creates it,
/// sets the field of the record to be changed (or doesn't), runs it, looks at the field of the record made,
/// and destroys it. Nothing is written before all checks have passed; the first that fails is told and leaves
/// the dialog as it is, with the focus in the field to be mended.
///
/// Collection is one of the four collections, Entry what the rules of entry look at.
template <typename Collection, typename Entry>
class RecordDialog : public DialogWindow {
protected:
    using Record = typename Collection::Record;
    using Reference = typename Collection::Reference;

    /// The fields for the record to be changed and for the one made, which are members of the dialog itself.
    RecordDialog(const QString& caption, int width, int height, QWidget* parent, records::Collections& all,
                 Reference& edit, Reference& add)
        : DialogWindow(caption, width, height, parent), all_(all), edit_(edit), add_(add) {}

    records::Collections& All() { return all_; }

    virtual Collection& Records() = 0;
    /// Fills the lists that the user chooses from.
    virtual void FillLists() {}
    /// Puts the record to be changed on the screen.
    virtual void ShowRecord(const Record& record) = 0;
    /// What the user has entered, as far as the checks look at it.
    virtual Entry Entered() const = 0;
    virtual const QString& NameIn(const Entry& entry) const = 0;
    virtual QWidget& NameField() const = 0;
    /// Where the fault is mended. Most entries can be wrong in their name alone.
    virtual QWidget& FieldOf(const records::EntryFault& /*fault*/) const { return NameField(); }
    /// Asks about an entry that is unusual but can be meant. Where it isn't, the focus is in the field.
    virtual bool IsConfirmed(const Entry& /*entry*/) { return true; }
    /// Fills in what is only converted once all checks have passed.
    virtual void Complete(Entry& /*entry*/) const {}
    virtual Reference Make(const Entry& entry) = 0;

    void Activated() override {
        FillLists();
        if (edit_) {
            ShowRecord(*edit_);
        }
    }

    void Save() override {
        Entry entry = Entered();
        if (const records::EntryFaults faults = records::FaultsOf(entry); !faults.empty()) {
            platform::ShowMessageBox(faults.front().Message);
            FieldOf(faults.front()).setFocus();
            return;
        }
        if (!IsConfirmed(entry)) {
            return;
        }
        if (Records().NameExists(NameIn(entry), edit_)) {
            NameField().setFocus();
            return;
        }
        Complete(entry);
        if (edit_) {
            records::ChangeRecord(all_, *edit_, entry);
        } else {
            add_ = Make(entry);
        }
        accept();
    }

private:
    records::Collections& all_;
    Reference& edit_;
    Reference& add_;
};

/// The number as the edit box of a record shows it: no padding, no thousands separators.
QString TextOf(double number);

}  // namespace screens
