#include "LogRecorder.h"

#include <QTest>

namespace {

QStringList captured;

void captureMessages(QtMsgType, const QMessageLogContext& context, const QString& message)
{
    captured.append(QString::fromLatin1(context.category) + u'|' + message);
}

} // namespace

class tst_SharedQuorvaneSdkLog : public QObject
{
    Q_OBJECT

private slots:
    void defaultService_writesOneLineWithModuleVersionSeverityTagAndMessage()
    {
        captured.clear();
        const QtMessageHandler previous = qInstallMessageHandler(captureMessages);
        SharedQuorvaneSdkCommonKt::sdk_common().log().addLog(
            {QStringLiteral("ImageSaverImp"), QStringLiteral("compress image failed"),
             SharedQuorvaneSdkLogSeverity::error, SharedQuorvaneSdkLogModule::image,
             QStringLiteral("1.2.3")});
        qInstallMessageHandler(previous);

        QCOMPARE(captured, QStringList{QStringLiteral(
                               "quorvane.sdk|image 1.2.3 error ImageSaverImp: compress image failed")});
    }

    void installedService_receivesRecords_untilUninstalled()
    {
        captured.clear();
        const QtMessageHandler previous = qInstallMessageHandler(captureMessages);
        {
            LogRecorder recorder;
            SharedQuorvaneSdkCommonKt::sdk_common().log().addLog(
                {QStringLiteral("T"), QStringLiteral("m"), SharedQuorvaneSdkLogSeverity::info,
                 SharedQuorvaneSdkLogModule::image, QStringLiteral("1")});
            QCOMPARE(recorder.lines(), QStringList{QStringLiteral("T: m")});
            QVERIFY(captured.isEmpty());
        }
        SharedQuorvaneSdkCommonKt::sdk_common().log().addLog(
            {QStringLiteral("T"), QStringLiteral("after"), SharedQuorvaneSdkLogSeverity::info,
             SharedQuorvaneSdkLogModule::image, QStringLiteral("1")});
        qInstallMessageHandler(previous);

        QCOMPARE(captured.size(), 1);
        QVERIFY(captured.first().endsWith(QStringLiteral("T: after")));
    }
};

QTEST_GUILESS_MAIN(tst_SharedQuorvaneSdkLog)
#include "tst_SharedQuorvaneSdkLog.moc"
