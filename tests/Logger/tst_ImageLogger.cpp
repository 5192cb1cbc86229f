#include "LogRecorder.h"
#include "Logger/ImageLogger.h"
#include "TestImages.h"

#include <QTemporaryDir>
#include <QTest>

class tst_ImageLogger : public QObject
{
    Q_OBJECT

private slots:
    void parseModuleVersion_data()
    {
        QTest::addColumn<QString>("properties");
        QTest::addColumn<QString>("expected");

        QTest::newRow("plain") << QStringLiteral("version=1.4.2") << QStringLiteral("1.4.2");
        QTest::newRow("among other keys")
            << QStringLiteral("name=shared\nversion=2.0\nbuild=7") << QStringLiteral("2.0");
        QTest::newRow("last match wins") << QStringLiteral("version=1\nversion=2") << QStringLiteral("2");
        QTest::newRow("blanks around equals") << QStringLiteral("version = 1") << QStringLiteral("fallback");
        QTest::newRow("other key") << QStringLiteral("versions=1") << QStringLiteral("fallback");
        QTest::newRow("key in capitals") << QStringLiteral("VERSION=1") << QStringLiteral("fallback");
        QTest::newRow("empty text") << QString() << QStringLiteral("fallback");
        // Split literally: an empty value is a value, and a doubled "=" makes three parts.
        QTest::newRow("no value") << QStringLiteral("version=") << QString();
        QTest::newRow("doubled equals sign") << QStringLiteral("version==1") << QStringLiteral("fallback");
        QTest::newRow("leading equals sign") << QStringLiteral("=version=1") << QStringLiteral("fallback");
        QTest::newRow("valid line after an invalid one")
            << QStringLiteral("version=1=2\nversion=5") << QStringLiteral("5");
    }

    void parseModuleVersion()
    {
        QFETCH(QString, properties);
        QFETCH(QString, expected);
        QCOMPARE(ImageLogger::parseModuleVersion(properties, QStringLiteral("fallback")), expected);
    }

    // The shared logger reads the library's version resource; another logger the file it is given.
    void logger_readsItsVersionResource()
    {
        QCOMPARE(ImageLogger::shared().moduleVersion(), QStringLiteral(QUORVANE_VERSION));
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("version.properties"));
        QVERIFY(TestImages::writeFile(path, "name=x\nversion=9.8.7\n"));
        QCOMPARE(ImageLogger(path).moduleVersion(), QStringLiteral("9.8.7"));
    }

    // Without its version resource, a logger stamps the default version.
    void log_sendsRecordWithImageModuleAndVersion_infoByDefault()
    {
        LogRecorder recorder;
        ImageLogger logger(QStringLiteral(":/no/such/version.properties"));
        logger.log(QStringLiteral("ImageCropperImp"), QStringLiteral("crop image"));
        logger.log(QStringLiteral("ImageSaverImp"), QStringLiteral("compress image failed"),
                   SharedQuorvaneSdkLogSeverity::error);

        QCOMPARE(recorder.lines(),
                 (QStringList{"ImageCropperImp: crop image", "ImageSaverImp: compress image failed"}));
        const auto records = recorder.records();
        QCOMPARE(toString(records[0].severity), toString(SharedQuorvaneSdkLogSeverity::info));
        QCOMPARE(toString(records[0].module), toString(SharedQuorvaneSdkLogModule::image));
        QCOMPARE(records[0].moduleVersion, QStringLiteral("0.0.01"));
        QCOMPARE(toString(records[1].severity), toString(SharedQuorvaneSdkLogSeverity::error));
    }
};

QTEST_GUILESS_MAIN(tst_ImageLogger)
#include "tst_ImageLogger.moc"
