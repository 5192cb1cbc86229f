#include "LogRecorder.h"

#include <QTest>

namespace {

QStringList captured;

void captureMessages(QtMsgType, const QMessageLogContext& context, const QString& message)
{
    captured.append(QString::fromLatin1(context.category) + u'|' + message);
}

void addLog(const QString& message)
{
    SharedQuorvaneSdkCommonKt::sdk_common().log().addLog(
        {QStringLiteral("ImageSaverImp"), message, SharedQuorvaneSdkLogSeverity::error,
         SharedQuorvaneSdkLogModule::image, QStringLiteral("1.2.3")});
}

} // namespace

class tst_SharedQuorvaneSdkLog : public QObject
{
    Q_OBJECT

private slots:
    // An installed service takes every record while it lives; then the default one writes each as one line.
    void installedServiceReceivesRecords_thenTheDefaultWritesOneLine()
    {
        const QtMessageHandler previous = qInstallMessageHandler(captureMessages);
        {
            LogRecorder recorder;
            addLog(QStringLiteral("while installed"));
            QCOMPARE(recorder.lines(), QStringList{QStringLiteral("ImageSaverImp: while installed")});
        }
        addLog(QStringLiteral("compress image failed"));
        qInstallMessageHandler(previous);

        QCOMPARE(captured, QStringList{QStringLiteral(
                               "quorvane.sdk|image 1.2.3 error ImageSaverImp: compress image failed")});
    }
};

QTEST_GUILESS_MAIN(tst_SharedQuorvaneSdkLog)
#include "tst_SharedQuorvaneSdkLog.moc"
