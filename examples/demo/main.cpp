// The demo host: opens the editor full screen on a photo and shows what came back.
//   quorvane-demo [IMAGE] [--screenshot FILE]
#include "Editor/QuorvaneSdkImageEditorPreset.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QTimer>
#include <QtQml/QQmlExtensionPlugin>
#include <cstdio>

Q_IMPORT_QML_PLUGIN(Quorvane_SdkImagePlugin)

namespace {

struct DemoOptions
{
    QString image;
    QString screenshot;
    bool takeScreenshot = false;
};

DemoOptions parseOptions(int argc, char* argv[])
{
    DemoOptions options;
    for (int i = 1; i < argc; ++i) {
        const QString argument = QString::fromLocal8Bit(argv[i]);
        if (argument == u"--screenshot") {
            options.takeScreenshot = true;
            if (i + 1 < argc)
                options.screenshot = QString::fromLocal8Bit(argv[++i]);
        } else {
            options.image = argument;
        }
    }
    return options;
}

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

} // namespace

int main(int argc, char* argv[])
{
    DemoOptions options = parseOptions(argc, argv);
    if (!hasDisplay())
        options.takeScreenshot = true;
    if (options.takeScreenshot) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        if (options.screenshot.isEmpty())
            options.screenshot = QStringLiteral("demo.png");
    }
    QGuiApplication app(argc, argv);

    const QuorvaneSdkImageEditorPreset preset =
        options.image.isEmpty()
            ? QuorvaneSdkImageEditorPreset(QImage(QStringLiteral(":/demo/assets/Dragonfly_by_Bolly.jpg")),
                                           QuorvaneSdkImageOutputFormat::jpg(90), std::nullopt, std::nullopt)
            : QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(QFileInfo(options.image).absoluteFilePath()));
    if (!preset.hasImage() && !preset.loadFailure().isEmpty())
        std::fprintf(stderr, "%s\n", qPrintable(preset.loadFailure()));

    QQmlApplicationEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine.setInitialProperties({{QStringLiteral("preset"), QVariant::fromValue(preset)}});
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Main.qml")));
    if (engine.rootObjects().isEmpty())
        return 1;
    auto* window = qobject_cast<QQuickWindow*>(engine.rootObjects().first());
    if (!window)
        return 1;

    if (options.takeScreenshot) {
        QObject::connect(
            window, &QQuickWindow::frameSwapped, &app,
            [&] {
                // The first frame may still be laying out; the next one is what a person sees.
                QTimer::singleShot(100, &app, [&] {
                    const QString path = QFileInfo(options.screenshot).absoluteFilePath();
                    if (!window->grabWindow().save(path)) {
                        std::fprintf(stderr, "Cannot write the screenshot %s.\n", qPrintable(path));
                        app.exit(1);
                        return;
                    }
                    std::printf("%s\n", qPrintable(path));
                    app.exit(0);
                });
            },
            Qt::SingleShotConnection);
    }
    return app.exec();
}
