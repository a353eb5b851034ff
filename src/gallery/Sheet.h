#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

namespace gallery {

/// In twips.
struct Size {
    int width = 0;
    int height = 0;
};

/// One page of the gallery: samples on a grid of columns, each below its caption. They stand on the ground of
/// the desktop, where a colour that a control leaves to the theme shows at once.
class Sheet : public QWidget {
public:
    /// Columns are counted from the width, which is that of all sheets.
    Sheet(const QString& title, int columns, QWidget* parent);

    const QString& Title() const { return title_; }

    /// Puts a sample in the next place, or in the next row if it spans more columns than this one has left.
    /// A size of 0 leaves the sample as large as it has made itself.
    void Add(QWidget* sample, const QString& caption, Size size, int span = 1);

    /// The next sample begins a row.
    void EndRow();

    /// Has the focus whenever the sheet comes on view.
    void FocusOn(QWidget* sample) { focused_ = sample; }

    /// Brings samples into states that no property sets, each time the sheet comes on view: leaving it takes
    /// them back.
    void WhenShown(std::function<void()> stage) { stages_.push_back(std::move(stage)); }

    /// The part of the sheet that the samples take as they are now, in pixels.
    QRect Used() const;

    /// Twips that all sheets have.
    static constexpr Size Extent{12180, 6600};

protected:
    void showEvent(QShowEvent* event) override;

private:
    static constexpr int Margin = 225;
    static constexpr int Gap = 150;
    static constexpr int CaptionHeight = 240;

    void AddCaption(const QString& text, int left, int width);

    QString title_;
    int columns_;
    int column_ = 0;
    int top_ = Margin;
    int rowHeight_ = 0;
    QWidget* focused_ = nullptr;
    std::vector<std::function<void()>> stages_;
};

}  // namespace gallery
