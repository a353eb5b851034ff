#pragma once

#include "controls/akGrid.h"
#include "controls/ctlButton.h"
#include "platform/MessageBox.h"
#include "records/Collections.h"
#include "screens/Page.h"
#include "screens/Paper.h"

#include <QLabel>
#include <QWidget>

#include <algorithm>
#include <memory>

namespace screens {

/// A page that shows one collection of records as a list, with the buttons Add, Edit and Remove. The page
/// holds no data: its grid is made anew from the collection, which is the only truth, and all of it stays in
/// memory until Finish.
///
/// Each page states what is its own:
///   Dialog                       the dialog that adds or changes one record
///   Label, Headings, Widths      what the page says and the columns of its list
///   List                         what assistive programs call the list
///   Collection(all)              the records
///   RowOf(record)                the record's row, the values separated by tabs; the first is its name
///   MayLeave(collection)         whether Next may leave the page; tells the user why not
///   EditFieldOf(dialog)          where the dialog takes the record to be changed
///   TakeFrom(dialog, all)        adds what the dialog has made; true if the list has to be shown anew
template <typename Own>
class ListPage : public Page {
public:
    ListPage(QWidget* parent, records::Collections& all) : Page(parent), all_(all) {
        AddLabel(this, QStringLiteral("Label1"), Own::Label, {0, 0, 11000, 300});
        const QString zeros = QStringLiteral("0|").repeated(Own::Headings.count(QLatin1Char('|')));
        akGrid1_ = new controls::akGrid({.ColumnHeadings = Own::Headings,
                                         .ColumnWidths = Own::Widths,
                                         .ColumnAlignments = zeros,
                                         .Hyperlinks = zeros,
                                         .RowCount = QStringLiteral("0")},
                                        this, QRect(0, 450, Width, HeightOfGrid));
        akGrid1_->setObjectName(QStringLiteral("akGrid1"));
        akGrid1_->setAccessibleName(Own::List);
        akGrid1_->SetBackColor(Ground);
        ShareWidth();
        // An empty grid reckons with lower rows than it lays out later. Told the true height now, it shows
        // all the rows that it counts as visible, also those that come while the page is on show.
        akGrid1_->SetRowHeight(HeightOfRows);
        PutAt(*akGrid1_, {0, 450, Width, HeightOfGrid});
        add_ = AddButton(QStringLiteral("ctlButton1"), QStringLiteral("Add"), 0, &ListPage::Add);
        AddButton(QStringLiteral("ctlButton2"), QStringLiteral("Edit"), 1, &ListPage::Edit);
        AddButton(QStringLiteral("ctlButton3"), QStringLiteral("Remove"), 2, &ListPage::Remove);
    }

    /// Shows the collection as it is now, in its own order.
    void Initialise() {
        akGrid1_->SetRows(0);
        for (const auto& record : Own::Collection(all_).Walk()) {
            akGrid1_->AddItem(Own::RowOf(*record));
        }
    }

    /// Whether the page may be left forward. Where it may not, the user has been told why.
    bool IsValid() { return Own::MayLeave(Own::Collection(all_)); }

    /// Who comes here mostly comes to add records, one after the other.
    QWidget* FirstField() const { return add_; }

private:
    static constexpr int HeightOfRows = 240;
    /// 20 rows, the heading and the grid's own margin.
    static constexpr int HeightOfGrid = 20 * 225 + 330;
    static constexpr int Width = 11490;
    /// The strip on the left, and the scroll bar with its margin.
    static constexpr int WidthBesideColumns = 255 + 255 + 2 * 60;
    /// Lets the white rows of a short list stand out, without a field of grey below them.
    static constexpr controls::Colour Ground = controls::RGB(238, 243, 248);

    /// The columns share the width of the page in the proportion of their own widths.
    void ShareWidth() {
        int all = 0;
        for (int column = 1; column <= akGrid1_->Cols(); ++column) {
            all += akGrid1_->ColWidth(column);
        }
        const double stretch = static_cast<double>(Width - WidthBesideColumns) / std::max(all, 1);
        for (int column = 1; column <= akGrid1_->Cols(); ++column) {
            akGrid1_->SetColWidth(column, static_cast<int>(akGrid1_->ColWidth(column) * stretch));
        }
    }

    controls::ctlButton* AddButton(const QString& name, const QString& caption, int place,
                                   void (ListPage::*action)()) {
        auto* button = new controls::ctlButton({.Caption = caption}, this);
        button->setObjectName(name);
        constexpr int Pitch = 1700;
        PutAt(*button, {place * Pitch, 450 + HeightOfGrid + 150, ButtonWidth, ButtonHeight});
        connect(button, &controls::ctlButton::Click, this, action);
        return button;
    }

    void Add() {
        const auto dialog = std::make_unique<typename Own::Dialog>(window(), all_);
        dialog->exec();
        if (Own::TakeFrom(*dialog, all_)) {
            Initialise();
        }
    }

    void Edit() {
        const QString name = NameInCurrentRow();
        if (name.isEmpty()) {
            return;
        }
        const auto dialog = std::make_unique<typename Own::Dialog>(window(), all_);
        if (const int place = PlaceOf(name); place > 0) {
            Own::EditFieldOf(*dialog) = Own::Collection(all_).Item(place);
        }
        dialog->exec();
        Initialise();
    }

    void Remove() {
        const QString name = NameInCurrentRow();
        if (name.isEmpty() || !platform::AskQuestion(QStringLiteral("Delete ") + name + QLatin1Char('?'))) {
            return;
        }
        if (const int place = PlaceOf(name); place > 0) {
            Own::Collection(all_).Remove(place);
        }
        Initialise();
    }

    QString NameInCurrentRow() const { return akGrid1_->TextMatrix(akGrid1_->AbsoluteRow(), 1); }

    /// The place of the first record of this name, 0 if there is none.
    int PlaceOf(const QString& name) const {
        int place = 0;
        for (const auto& record : Own::Collection(all_).Walk()) {
            ++place;
            if (Own::Collection(all_).NameOf(*record) == name) {
                return place;
            }
        }
        return 0;
    }

    records::Collections& all_;
    controls::akGrid* akGrid1_;
    controls::ctlButton* add_ = nullptr;
};

}  // namespace screens
