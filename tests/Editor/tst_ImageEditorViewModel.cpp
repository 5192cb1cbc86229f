#include "Editor/ImageEditorViewModel.h"
#include "TestImages.h"

#include <QSignalSpy>
#include <QTest>

using Page = ImageEditorViewModel::Page;

namespace {

QImage image(int width)
{
    return TestImages::quadrants(QSize(width, 10));
}

} // namespace

class tst_ImageEditorViewModel : public QObject
{
    Q_OBJECT

private slots:
    void navigate_takesOnlyThePagesRawNames_data()
    {
        QTest::addColumn<QString>("raw");
        QTest::addColumn<bool>("isPage");
        for (const char* raw : {"base", "crop", "canvas", "filters", "adjust"})
            QTest::newRow(raw) << QString::fromLatin1(raw) << true;
        QTest::newRow("capitalised") << "Crop" << false;
        QTest::newRow("empty") << "" << false;
        QTest::newRow("other") << "draw" << false;
    }

    void navigate_takesOnlyThePagesRawNames()
    {
        QFETCH(QString, raw);
        QFETCH(bool, isPage);
        ImageEditorViewModel editor(image(1));
        editor.navigate(raw);
        QCOMPARE(editor.pageName(), isPage ? raw : QStringLiteral("base"));
    }

    void acceptedEdits_undoneOneByOne_restoreTheFirstImage()
    {
        ImageEditorViewModel editor(image(1));
        for (int width = 2; width <= 4; ++width) {
            editor.navigate(Page::crop);
            editor.addNewImageVerion(image(width));
        }
        QCOMPARE(editor.image(), image(4));
        QCOMPARE(editor.previousImageVersions(), (QList<QImage>{image(1), image(2), image(3)}));

        for (int width = 3; width >= 1; --width) {
            editor.restoreLastImageVersion();
            QCOMPARE(editor.image(), image(width));
        }
        QVERIFY(!editor.hasPreviousImageVersions());
        editor.restoreLastImageVersion();
        QCOMPARE(editor.image(), image(1));
        // An edit after an undo drops the version undone.
        editor.addNewImageVerion(image(5));
        QCOMPARE(editor.image(), image(5));
        QCOMPARE(editor.previousImageVersions(), QList<QImage>{image(1)});
    }

    void cropPage_hasAModelOnlyWhileShown_andItsResultBecomesAVersion()
    {
        ImageEditorViewModel editor(TestImages::quadrants(QSize(400, 300)));
        editor.navigate(Page::crop);
        QPointer<CropperViewModel> cropper = editor.cropper();
        QVERIFY(cropper);

        cropper->setupCropperLayout(QSizeF(400, 300));
        cropper->rotateRightTracked();
        cropper->crop();

        QCOMPARE(editor.page(), Page::base);
        QVERIFY(!editor.cropper());
        QCOMPARE(editor.image().size(), QSize(300, 400));
        QCOMPARE(editor.previousImageVersionCount(), 1);
        QTRY_VERIFY(!cropper);
    }

    void finishing_handsBackTheCurrentImageOnce()
    {
        ImageEditorViewModel editor(image(1));
        QSignalSpy returns(&editor, &ImageEditorViewModel::returnAction);
        editor.addNewImageVerion(image(2));
        editor.restoreLastImageVersion();

        editor.finish();
        editor.finish(); // a double tap
        editor.close();

        QCOMPARE(returns.count(), 1);
        QCOMPARE(returns.at(0).at(0).value<std::optional<QImage>>(), std::optional<QImage>(image(1)));
    }
};

QTEST_GUILESS_MAIN(tst_ImageEditorViewModel)
#include "tst_ImageEditorViewModel.moc"
