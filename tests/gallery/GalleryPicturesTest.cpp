#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct Ended {
    int status = -1;
    QByteArray errors;
};

Ended RunGallery(const QStringList& arguments, const QString& scaleFactor = QStringLiteral("1")) {
    QProcess gallery;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), scaleFactor);
    gallery.setProcessEnvironment(environment);
    gallery.start(QStringLiteral(GALLERY_PROGRAM), arguments);
    if (!gallery.waitForFinished(-1) || gallery.exitStatus() != QProcess::NormalExit) {
        return {};
    }
    return {gallery.exitCode(), gallery.readAllStandardError()};
}

TEST(GalleryPicturesTest, OfEverySheetAreSavedAsDenseAsTheDisplay) {
    const QTemporaryDir folder;
    ASSERT_EQ(RunGallery({QStringLiteral("--pictures"), folder.path()}).status, 0);
    ASSERT_EQ(RunGallery({QStringLiteral("--pictures"), folder.path(), QStringLiteral("--suffix"),
                          QStringLiteral("@2x")},
                         QStringLiteral("2"))
                  .status,
              0);
    for (const char* name : {"button", "text-box", "date", "grid", "skin", "group-box", "heading"}) {
        const QString file = folder.filePath(QString::fromLatin1(name));
        const QImage single(file + QStringLiteral(".png"));
        const QImage twice(file + QStringLiteral("@2x.png"));
        ASSERT_FALSE(single.isNull()) << name;
        EXPECT_EQ(single.width(), 812) << name;
        EXPECT_EQ(twice.width(), 2 * single.width()) << name;
        EXPECT_EQ(twice.height(), 2 * single.height()) << name;
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 14);
}

TEST(GalleryPicturesTest, OfADarkDesktopHaveItsGround) {
    const QTemporaryDir folder;
    ASSERT_EQ(RunGallery({QStringLiteral("--pictures"), folder.path(), QStringLiteral("--dark")}).status, 0);
    EXPECT_LT(QImage(folder.filePath(QStringLiteral("button.png"))).pixelColor(0, 0).lightness(), 60);
}

TEST(GalleryPicturesTest, AFolderThatCanNotBeWrittenIsTold) {
    const Ended ended = RunGallery({QStringLiteral("--pictures"), QStringLiteral("/nonexistent")});
    EXPECT_EQ(ended.status, 1);
    EXPECT_TRUE(ended.errors.contains("/nonexistent/button.png")) << ended.errors.constData();
}

}  // namespace
