#include "screens/Page.h"

#include "controls/base/Accessible.h"
#include "screens/Paper.h"

#include <QAccessibleWidget>

namespace screens {

namespace {

class PageAccessible : public QAccessibleWidget {
public:
    explicit PageAccessible(Page* page)
        : QAccessibleWidget(page, page->HasFields() ? QAccessible::Grouping : QAccessible::Notification) {}
};

}  // namespace

Page::Page(QWidget* parent, Fields fields) : QWidget(parent), fields_(fields) {
    controls::RegisterAccessible<Page, PageAccessible>();
    setPalette(PaperPalette());
}

}  // namespace screens
