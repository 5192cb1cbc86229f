#include "LogRecorder.h"
#include "Logger/ImageLogger.h"

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

        QTest::newRow("plain") << "version=1.4.2"
                               << "1.4.2";
        QTest::newRow("among other keys") << "name=shared\nversion=2.0\nbuild=7"
                                          << "2.0";
        QTest::newRow("last match wins") << "version=1\nversion=2"
                                         << "2";
        QTest::newRow("blank before key") << " version=1"
                                          << "fallback";
        QTest::newRow("blanks around equals") << "version = 1"
                                              << "fallback";
        QTest::newRow("two equals signs") << "version=1=2"
                                          << "fallback";
        QTest::newRow("other key") << "versions=1"
                                   << "fallback";
        QTest::newRow("key in capitals") << "VERSION=1"
                                         << "fallback";
        // Split literally: an empty value is a value, and a doubled "=" makes three parts.
        QTest::newRow("no value") << "version="
                                  << "";
        QTest::newRow("doubled equals sign") << "version==1"
                                             << "fallback";
        QTest::newRow("leading equals sign") << "=version=1"
                                             << "fallback";
        QTest::newRow("empty text") << ""
                                    << "fallback";
        QTest::newRow("trailing newline") << "version=3.1\n"
                                          << "3.1";
        QTest::newRow("valid line after an invalid one") << "version=1=2\nversion=5"
                                                         << "5";
    }

    void parseModuleVersion()
    {
        QFETCH(QString, properties);
        QFETCH(QString, expected);
        QCOMPARE(ImageLogger::parseModuleVersion(properties, QStringLiteral("fallback")), expected);
    }

    void sharedLogger_readsTheSharedLibrarysVersionResource()
    {
        QCOMPARE(ImageLogger::shared().moduleVersion(), QStringLiteral(QUORVANE_VERSION));
    }

    void logger_withoutVersionResource_stampsDefaultVersion()
    {
        const ImageLogger logger(QStringLiteral(":/no/such/version.properties"));
        QCOMPARE(logger.moduleVersion(), QStringLiteral("0.0.01"));
    }

    void logger_readsVersionFromAPropertiesFile()
    {
        QTemporaryDir dir;
        QFile file(dir.filePath(QStringLiteral("version.properties")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("name=x\nversion=9.8.7\n");
        file.close();
        QCOMPARE(ImageLogger(file.fileName()).moduleVersion(), QStringLiteral("9.8.7"));
    }

    void log_sendsRecordWithImageModuleAndVersion_infoByDefault()
    {
        LogRecorder recorder;
        ImageLogger logger(QStringLiteral(":/no/such/version.properties"));
        logger.log(QStringLiteral("ImageCropperImp"), QStringLiteral("crop image"));
        logger.log(QStringLiteral("ImageSaverImp"), QStringLiteral("compress image failed"),
                   SharedQuorvaneSdkLogSeverity::error);

        const auto records = recorder.records();
        QCOMPARE(records.size(), 2);
        QCOMPARE(records[0].tag, QStringLiteral("ImageCropperImp"));
        QCOMPARE(records[0].message, QStringLiteral("crop image"));
        QCOMPARE(toString(records[0].severity), toString(SharedQuorvaneSdkLogSeverity::info));
        QCOMPARE(toString(records[0].module), toString(SharedQuorvaneSdkLogModule::image));
        QCOMPARE(records[0].moduleVersion, QStringLiteral("0.0.01"));
        QCOMPARE(toString(records[1].severity), toString(SharedQuorvaneSdkLogSeverity::error));
    }
};

QTEST_GUILESS_MAIN(tst_ImageLogger)
#include "tst_ImageLogger.moc"
