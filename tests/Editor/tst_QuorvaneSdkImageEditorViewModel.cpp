#include "Editor/Helpers/ImageHelpers.h"
#include "Editor/QuorvaneSdkImageEditorViewModel.h"
#include "LogRecorder.h"
#include "TestImages.h"

#include <QDir>
#include <QImageReader>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace TestImages;

namespace {

QuorvaneSdkImageEditorPreset presetWith(QuorvaneSdkImageOutputFormat format, std::optional<QUrl> outputURL,
                                        std::optional<QSizeF> newSize)
{
    return QuorvaneSdkImageEditorPreset(quadrants(QSize(60, 40)), format, std::move(outputURL), newSize);
}

} // namespace

class tst_QuorvaneSdkImageEditorViewModel : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void construction_logsOnceAndTakesThePresetsImageForGood()
    {
        LogRecorder log;
        QuorvaneSdkImageEditorViewModel session(presetWith(QuorvaneSdkImageOutputFormat::png(), {}, {}));
        QCOMPARE(log.lines(),
                 QStringList{QStringLiteral("QuorvaneSdkImageEditorViewModel: initialize image editor")});
        QCOMPARE(toString(log.records().first().severity), toString(SharedQuorvaneSdkLogSeverity::info));
        QVERIFY(session.image());
        QCOMPARE(session.image()->deviceIndependentSize(), QSizeF(60, 40));
        // A preset changed once the session has started is ignored.
        session.setPreset(QuorvaneSdkImageEditorPreset());
        QVERIFY(session.hasImage());
        QVERIFY(session.preset().hasImage());
    }

    void getResult_resizesWhenAsked_data()
    {
        QTest::addColumn<std::optional<QSizeF>>("newSize");
        // Without one, a new file in Documents.
        QTest::addColumn<bool>("outputURL");
        QTest::addColumn<QSize>("expected");
        QTest::newRow("no new size") << std::optional<QSizeF>() << true << QSize(60, 40);
        QTest::newRow("smaller, other aspect")
            << std::optional<QSizeF>(QSizeF(25, 25)) << true << QSize(25, 25);
        QTest::newRow("zero keeps the size") << std::optional<QSizeF>(QSizeF(0, 0)) << true << QSize(60, 40);
        QTest::newRow("no output URL") << std::optional<QSizeF>(QSizeF(30, 20)) << false << QSize(30, 20);
    }

    void getResult_resizesWhenAsked()
    {
        QFETCH(std::optional<QSizeF>, newSize);
        QFETCH(bool, outputURL);
        QFETCH(QSize, expected);
        const QUrl target = QUrl::fromLocalFile(m_dir.filePath(QStringLiteral("result.png")));
        QuorvaneSdkImageEditorViewModel session(presetWith(
            QuorvaneSdkImageOutputFormat::png(), outputURL ? std::optional(target) : std::nullopt, newSize));

        const QuorvaneSdkImageEditorResult result = session.getResult(session.image());

        QVERIFY(result.editedImage() && result.editedImageURL());
        QCOMPARE(result.editedImage()->deviceIndependentSize(), QSizeF(expected));
        const QString written = result.editedImageURL()->toLocalFile();
        if (outputURL)
            QCOMPARE(written, target.toLocalFile());
        else
            QCOMPARE(
                QFileInfo(written).absolutePath(),
                QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)).absolutePath());
        QCOMPARE(QImageReader(written).size(), expected * ImageHelpers::screenScale());
    }

    void getResult_whenSavingFails_stillReturnsTheImage()
    {
        const QUrl target = QUrl::fromLocalFile(m_dir.filePath(QStringLiteral("missing/folder/result.jpg")));
        QuorvaneSdkImageEditorViewModel session(
            presetWith(QuorvaneSdkImageOutputFormat::jpg(90), target, QSizeF(30, 20)));
        LogRecorder log;

        const QuorvaneSdkImageEditorResult result = session.getResult(session.image());

        QVERIFY(result.editedImage());
        QCOMPARE(result.editedImage()->deviceIndependentSize(), QSizeF(30, 20));
        QVERIFY(!result.editedImageURL());
        QCOMPARE(log.lines(), QStringList{QStringLiteral("ImageSaverImp: save image data to local failed")});
    }

    void resultFor_treatsNullAndUndefinedAsNoImage_data()
    {
        QTest::addColumn<QVariant>("image");
        QTest::addColumn<bool>("hasImage");
        QTest::newRow("undefined") << QVariant() << false;
        QTest::newRow("null image") << QVariant::fromValue(QImage()) << false;
        QTest::newRow("not an image") << QVariant(42) << false;
        QTest::newRow("image") << QVariant::fromValue(quadrants(QSize(4, 4))) << true;
    }

    // No image, from C++ or from QML, is an empty result: nothing is saved or logged.
    void resultFor_treatsNullAndUndefinedAsNoImage()
    {
        QFETCH(QVariant, image);
        QFETCH(bool, hasImage);
        const QUrl target = QUrl::fromLocalFile(m_dir.filePath(QStringLiteral("variant.png")));
        QFile::remove(target.toLocalFile());
        QuorvaneSdkImageEditorViewModel session(presetWith(QuorvaneSdkImageOutputFormat::png(), target, {}));
        LogRecorder log;

        const QuorvaneSdkImageEditorResult result = session.resultFor(image);

        QCOMPARE(result.hasImage(), hasImage);
        QCOMPARE(bool(result.editedImage()), hasImage);
        QCOMPARE(result.editedImageURL(), hasImage ? std::optional(target) : std::nullopt);
        QCOMPARE(QFileInfo::exists(target.toLocalFile()), hasImage);
        QVERIFY(log.lines().isEmpty());
    }
};

QTEST_MAIN(tst_QuorvaneSdkImageEditorViewModel)
#include "tst_QuorvaneSdkImageEditorViewModel.moc"
