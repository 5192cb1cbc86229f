// The demo host: opens the editor full screen on a photo and shows what came back.
//   quorvane-demo [IMAGE] [--screenshot FILE] [--size WxH] [--page PAGE] [--help] [--version]
#include "Editor/QuorvaneSdkImageEditorPreset.h"
#include "Editor/QuorvaneSdkImageEditorViewModel.h"
#include "Logger/ImageLogger.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

struct DemoOptions
{
    QString image;
    QString screenshot;
    bool takeScreenshot = false;
    QSize size{390, 844};
    QString page;
};

// Read once the application has taken its own arguments (-platform, -reverse, ...) out of the list. Help,
// the version and a usage error end the program here.
DemoOptions parseOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Opens the editor full screen on a photo."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("IMAGE"), QStringLiteral("The photo (default: a dragonfly)."),
                                 QStringLiteral("[IMAGE]"));
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"),
        QStringLiteral("Renders offscreen, writes a PNG of the window and exits."), QStringLiteral("FILE"));
    const QCommandLineOption size(QStringLiteral("size"), QStringLiteral("Window size in points (390x844)."),
                                  QStringLiteral("WxH"));
    const QCommandLineOption page(QStringLiteral("page"),
                                  QStringLiteral("Opens a page with a sample edit: crop, canvas, move, text, "
                                                 "filters or adjust."),
                                  QStringLiteral("PAGE"));
    parser.addOptions({screenshot, size, page});
    QCoreApplication::setApplicationVersion(ImageLogger::shared().moduleVersion());
    if (!parser.parse(arguments)) {
        std::fprintf(stderr, "%s\n", qPrintable(parser.errorText()));
        std::exit(64);
    }
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp(0);
    if (parser.isSet(QStringLiteral("version")))
        parser.showVersion();

    DemoOptions options;
    options.image = parser.positionalArguments().value(0);
    options.takeScreenshot = parser.isSet(screenshot);
    options.screenshot = parser.value(screenshot);
    options.page = parser.value(page);
    const QStringList parts = parser.value(size).split(u'x');
    if (parts.size() == 2 && parts[0].toInt() > 0 && parts[1].toInt() > 0)
        options.size = QSize(parts[0].toInt(), parts[1].toInt());
    return options;
}

// The platform is chosen before the application exists, so this one option is looked for by hand.
bool asksForScreenshot(int argc, char* argv[])
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--screenshot") == 0 || std::strncmp(argv[i], "--screenshot=", 13) == 0)
            return true;
    }
    return false;
}

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

} // namespace

int main(int argc, char* argv[])
{
    QElapsedTimer sinceStart;
    sinceStart.start();
    const bool offscreen = asksForScreenshot(argc, argv) || !hasDisplay();
    if (offscreen)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    DemoOptions options = parseOptions(QCoreApplication::arguments());
    if (offscreen) {
        options.takeScreenshot = true;
        if (options.screenshot.isEmpty())
            options.screenshot = QStringLiteral("demo.png");
    }

    const QuorvaneSdkImageEditorPreset preset =
        options.image.isEmpty()
            ? QuorvaneSdkImageEditorPreset(QImage(QStringLiteral(":/demo/assets/Dragonfly_by_Bolly.jpg")),
                                           QuorvaneSdkImageOutputFormat::jpg(90), std::nullopt, std::nullopt)
            : QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(QFileInfo(options.image).absoluteFilePath()));
    if (!preset.hasImage() && !preset.loadFailure().isEmpty())
        std::fprintf(stderr, "%s\n", qPrintable(preset.loadFailure()));

    QQmlApplicationEngine engine;
    engine.setInitialProperties({{QStringLiteral("preset"), QVariant::fromValue(preset)}});
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Main.qml")));
    if (engine.rootObjects().isEmpty())
        return 1;
    auto* window = qobject_cast<QQuickWindow*>(engine.rootObjects().first());
    if (!window)
        return 1;
    window->resize(options.size);
    // For screenshots of a tool page: open it, with a crop frame pulled in from its corner.
    auto* session = window->findChild<QuorvaneSdkImageEditorViewModel*>();
    ImageEditorViewModel* editor = session ? session->editor() : nullptr;
    if (!options.page.isEmpty() && editor) {
        // "move" is the draw page with its sample drawing and the text picked up by the move tool.
        // "text" is the draw page with its sample drawing and the text entry open.
        const bool move = options.page == u"move";
        const bool typing = options.page == u"text";
        // The draw page fits the picture once, to the size it first gets: the window takes its size first.
        QElapsedTimer resizing;
        resizing.start();
        while (window->contentItem()->size() != QSizeF(options.size) && resizing.elapsed() < 2000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        editor->navigate(move || typing ? QStringLiteral("canvas") : options.page);
        QTimer::singleShot(300, editor, [editor, move, typing] {
            if (CanvasViewModel* canvas = editor->canvas()) {
                const QSizeF frame = canvas->imageFrameSize();
                for (int step = 0; step <= 40; ++step)
                    canvas->handleNewPoint(QPointF(40 + step * 6, 60 + 30 * std::sin(step / 5.0)), frame);
                canvas->addFinalPoint(QPointF(280, 70), frame);
                TextImageViewModel text;
                text.setText(QStringLiteral("Dragonfly"));
                text.setBold(true);
                text.setTextSize(32);
                text.setSelectedColor(QColor(0xFF, 0xCC, 0x00));
                canvas->confirmText(&text);
                if (move) {
                    canvas->enableMove();
                    canvas->handleTap(canvas->lineImages().last());
                }
                if (typing)
                    canvas->enableText();
            }
            if (CropperViewModel* cropper = editor->cropper()) {
                for (int step = 1; step <= 8; ++step)
                    cropper->handleDragging(QPointF(4 * step, 4 * step));
                cropper->finishCropping();
            }
        });
    }

    // For benchmarks: how long a person waits, from launch to the first frame with the photo.
    if (qEnvironmentVariableIsSet("QUORVANE_DEMO_TIMING")) {
        QObject::connect(
            window, &QQuickWindow::frameSwapped, &app,
            [&] {
                std::fprintf(stderr, "first frame after %lld ms\n",
                             static_cast<long long>(sinceStart.elapsed()));
            },
            Qt::SingleShotConnection);
    }

    if (options.takeScreenshot) {
        QObject::connect(
            window, &QQuickWindow::frameSwapped, &app,
            [&] {
                // The first frames may still be laying out or animating; wait for what a person sees.
                QTimer::singleShot(options.page.isEmpty() ? 100 : 1500, &app, [&] {
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
