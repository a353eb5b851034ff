#include "controls/base/Palette.h"
#include "gallery/Pages.h"
#include "gallery/Sheet.h"
#include "gallery/SkinSample.h"

namespace gallery {

namespace {

constexpr int Columns = 4;
constexpr Size Area{2700, 2100};

void AddSkin(Sheet* sheet, const QString& caption, const controls::clsSkin& skin) {
    auto* sample = new SkinSample(skin, sheet);
    sample->setObjectName(caption);
    sample->setAccessibleName(caption);
    sheet->Add(sample, caption, Area);
}

controls::clsSkin WizardSkin(qint32 style) {
    controls::clsSkin skin;
    skin.Style = style;
    skin.SetStartColour(controls::ThePalette().BannerStart);
    skin.SetEndColour(controls::ThePalette().BannerEnd);
    return skin;
}

}  // namespace

Sheet* SkinPage(QWidget* parent) {
    auto* sheet = new Sheet(QStringLiteral("Skin"), Columns, parent);
    AddSkin(sheet, QStringLiteral("Style 0: top to bottom"), WizardSkin(0));
    AddSkin(sheet, QStringLiteral("Style 1: left to right"), WizardSkin(1));
    AddSkin(sheet, QStringLiteral("Style 2: middle to top, bottom"), WizardSkin(2));
    AddSkin(sheet, QStringLiteral("Style 3: middle to left, right"), WizardSkin(3));
    AddSkin(sheet, QStringLiteral("Style 4: diagonal"), WizardSkin(4));
    controls::clsSkin fewBands = WizardSkin(0);
    fewBands.ColourBandCount = 10;
    AddSkin(sheet, QStringLiteral("ColourBandCount 10"), fewBands);
    AddSkin(sheet, QStringLiteral("As a new skin paints"), controls::clsSkin());
    return sheet;
}

}  // namespace gallery
