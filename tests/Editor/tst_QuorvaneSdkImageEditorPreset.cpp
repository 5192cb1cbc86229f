#include "Editor/Helpers/ImageHelpers.h"
#include "Editor/QuorvaneSdkImage.h"
#include "Editor/QuorvaneSdkImageEditorPreset.h"
#include "NonFinite.h"
#include "TestImages.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace TestImages;

using PresetCall = std::function<QuorvaneSdkImageEditorPreset(QSizeF newSize)>;
Q_DECLARE_METATYPE(PresetCall)

class tst_QuorvaneSdkImageEditorPreset : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

private slots:
    void fromImage_keepsAnUprightCopy_neverWithMorePixels_data()
    {
        QTest::addColumn<qreal>("imageScale");
        for (const qreal scale : {1.0, 2.0, 3.0, 4.0})
            QTest::addRow("image scale %g", scale) << scale;
    }

    // Run at screen scales 1 and 3 (a second test entry sets QT_SCALE_FACTOR).
    void fromImage_keepsAnUprightCopy_neverWithMorePixels()
    {
        QFETCH(qreal, imageScale);
        QImage original = quadrants(QSize(120, 60));
        original.setDevicePixelRatio(imageScale);
        const QuorvaneSdkImageEditorPreset preset(original, QuorvaneSdkImageOutputFormat::png(), std::nullopt,
                                                  QSizeF(10, 10));
        original.fill(Qt::black);

        QVERIFY(preset.image());
        const QImage& copy = *preset.image();
        QCOMPARE(copy.deviceIndependentSize(), QSizeF(120, 60) / imageScale);
        const qreal screen = ImageHelpers::screenScale();
        if (screen >= imageScale) {
            QCOMPARE(copy.size(), QSize(120, 60)); // its own pixels, not invented ones
            QCOMPARE(copy.devicePixelRatio(), imageScale);
        } else {
            QCOMPARE(copy.devicePixelRatio(), screen);
            QCOMPARE(copy.size(), (QSizeF(120, 60) / imageScale * screen).toSize());
        }
        QVERIFY(quartersMatch(copy, quadrants(QSize(120, 60)), 2));
        QVERIFY(!QuorvaneSdkImageEditorPreset(QImage(), QuorvaneSdkImageOutputFormat::png(), {}, {}).image());
    }

    void fromURL_takesAFileURLOrAPlainPath()
    {
        const QString path = m_dir.filePath(QStringLiteral("photo #1.png"));
        QVERIFY(writeFile(path, encode(quadrants(QSize(12, 10)), "png")));
        // A plain path, as QML hands over a string such as "/home/me/photo #1.png".
        for (const QUrl& url : {QUrl::fromLocalFile(path), QUrl(path)}) {
            const QuorvaneSdkImageEditorPreset preset{url};
            QVERIFY2(preset.image(), qPrintable(preset.loadFailure()));
            QCOMPARE(preset.image()->size(), QSize(12, 10));
        }
    }

    void fromURL_thatCannotBeLoaded_hasNoImageAndSaysWhy_data()
    {
        QTest::addColumn<QUrl>("url");
        QTest::addColumn<QString>("reason");
        QTest::newRow("remote") << QUrl(QStringLiteral("https://example.invalid/a.jpg"))
                                << "not a local file";
        QTest::newRow("relative path") << QUrl(QStringLiteral("photos/a.jpg")) << "relative path";
    }

    void fromURL_thatCannotBeLoaded_hasNoImageAndSaysWhy()
    {
        QFETCH(QUrl, url);
        QFETCH(QString, reason);
        const QuorvaneSdkImageEditorPreset preset{url};
        QVERIFY(!preset.image());
        QVERIFY2(preset.loadFailure().contains(reason), qPrintable(preset.loadFailure()));
        // QML shows the error screen only; the warning tells the host's developer why.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QRegularExpression::escape(reason)));
        QVERIFY(!QuorvaneSdkImage().presetFromImageUrl(url).image());
    }

    void fromURL_honoursTheHostsPixelLimit_data()
    {
        QTest::addColumn<bool>("fromQml");
        QTest::addColumn<qint64>("limit");
        QTest::addColumn<bool>("loads");
        QTest::newRow("C++, one pixel short") << false << qint64(9999) << false;
        QTest::newRow("C++, exactly enough") << false << qint64(10000) << true;
        QTest::newRow("QML, one pixel short") << true << qint64(9999) << false;
        QTest::newRow("QML, exactly enough") << true << qint64(10000) << true;
    }

    void fromURL_honoursTheHostsPixelLimit()
    {
        QFETCH(bool, fromQml);
        QFETCH(qint64, limit);
        QFETCH(bool, loads);
        const QString path = m_dir.filePath(QStringLiteral("big.png"));
        QVERIFY(writeFile(path, encode(quadrants(QSize(100, 100)), "png")));
        const QUrl url = QUrl::fromLocalFile(path);
        const QuorvaneSdkImageEditorPreset preset =
            fromQml ? QuorvaneSdkImage().presetFromImageUrl(url, QuorvaneSdkImageOutputFormat::png(), QUrl(),
                                                            QSizeF(), limit)
                    : QuorvaneSdkImageEditorPreset(url, QuorvaneSdkImageOutputFormat::png(), std::nullopt,
                                                   std::nullopt, limit);
        QCOMPARE(bool(preset.image()), loads);
        QCOMPARE(preset.loadFailure().contains(QStringLiteral("limit")), !loads);
    }

    void nonFiniteNewSize_keepsThePicturesSize_data()
    {
        // Whether the file loads does not matter: the size is taken either way.
        const QUrl url = QUrl::fromLocalFile(m_dir.filePath(QStringLiteral("none.png")));
        addNonFiniteRows<PresetCall>({
            {"from an image",
             [](QSizeF size) {
                 return QuorvaneSdkImageEditorPreset(quadrants(QSize(12, 10)),
                                                     QuorvaneSdkImageOutputFormat::png(), std::nullopt, size);
             }},
            {"from a URL",
             [url](QSizeF size) {
                 return QuorvaneSdkImageEditorPreset(url, QuorvaneSdkImageOutputFormat::png(), std::nullopt,
                                                     size);
             }},
        });
    }

    void nonFiniteNewSize_keepsThePicturesSize()
    {
        QFETCH(PresetCall, call);
        QFETCH(qreal, value);
        QVERIFY(!call(QSizeF(value, 10)).newSize());
        QVERIFY(!call(QSizeF(10, value)).newSize());
    }
};

QTEST_MAIN(tst_QuorvaneSdkImageEditorPreset)
#include "tst_QuorvaneSdkImageEditorPreset.moc"
