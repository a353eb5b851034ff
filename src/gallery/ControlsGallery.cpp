#include "controls/base/Palette.h"
#include "gallery/DarkDesktop.h"
#include "gallery/GalleryPictures.h"
#include "gallery/GalleryWindow.h"
#include "platform/Locale.h"
#include "platform/Process.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QStyleFactory>

namespace {

int Run(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("controls-gallery"));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows every control of the wizard in all its states, and what they raise."));
    const QCommandLineOption pictures(QStringLiteral("pictures"),
                                      QStringLiteral("Save a picture of each page there, and end."),
                                      QStringLiteral("folder"));
    const QCommandLineOption suffix(QStringLiteral("suffix"),
                                    QStringLiteral("What the names of the pictures end with."),
                                    QStringLiteral("text"));
    const QCommandLineOption dark(QStringLiteral("dark"), QStringLiteral("Pretend a dark desktop."));
    parser.addOptions({pictures, suffix, dark});
    parser.addHelpOption();
    parser.process(application);

    platform::LoadSystemLocale();
    controls::InitialiseColours();
    if (parser.isSet(pictures) || parser.isSet(dark)) {
        // The style of the desktop would have a say in both.
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    }
    if (parser.isSet(dark)) {
        gallery::PretendDarkDesktop();
    }
    gallery::GalleryWindow window;
    if (parser.isSet(pictures)) {
        gallery::SavePictures(window, parser.value(pictures), parser.value(suffix));
        return 0;
    }
    window.show();
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    platform::RunProcess([argc, argv] { return Run(argc, argv); });
}
