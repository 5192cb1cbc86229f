#include "ApplyCommand.h"
#include "EditCommand.h"
#include "Logger/ImageLogger.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <cstring>
#include <memory>
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

// Only the colour engine needs the GPU. Decided on the raw words, before an application exists to decode
// them.
bool wantsGpu(int argc, char* argv[])
{
    bool color = false;
    bool cpu = false;
    for (int i = 1; i < argc; ++i) {
        color = color || std::strcmp(argv[i], "--color") == 0;
        cpu = cpu ||
              (std::strcmp(argv[i], "--engine") == 0 && i + 1 < argc && std::strcmp(argv[i + 1], "cpu") == 0);
    }
    return color && !cpu;
}

// The platform a GUI application would start on: the one asked for, else a display that answers, else none
// (the offscreen platform).
QByteArray guiPlatform()
{
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        return qgetenv("QT_QPA_PLATFORM");
#ifdef Q_OS_LINUX
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return "offscreen";
    return qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ? "xcb;offscreen" : "wayland;xcb;offscreen";
#else
    return {};
#endif
}

// The offscreen and minimal platforms reach no GPU: there the colour engine is the CPU's whatever the
// application, and a GUI application would only cost its start (and, without XDG_RUNTIME_DIR, a warning).
bool reachesGpu(const QByteArray& platform)
{
    const QByteArray first = platform.split(';').constFirst().split(':').constFirst();
    return first != "offscreen" && first != "minimal";
}

// Progress is drawn over itself with carriage returns: only a person at a terminal wants it.
bool onTerminal()
{
#ifdef Q_OS_UNIX
    return isatty(STDERR_FILENO) != 0;
#else
    return false;
#endif
}

// A usage error or --help/--version ends the program here; anything else is the command's to run.
template <typename Options, typename Run>
int runParsed(const std::variant<Options, UsageError, InfoRequest>& parsed, QTextStream& out,
              QTextStream& err, Run run)
{
    if (const auto* usage = std::get_if<UsageError>(&parsed)) {
        err << usage->sentence << "\n" << usageText();
        return kExitUsage;
    }
    if (const auto* info = std::get_if<InfoRequest>(&parsed)) {
        out << info->text;
        return 0;
    }
    return run(std::get<Options>(parsed));
}

} // namespace

int main(int argc, char* argv[])
{
    std::unique_ptr<QCoreApplication> app;
    const QByteArray platform = guiPlatform();
    const bool applying = argc > 1 && std::strcmp(argv[1], "apply") == 0;
    if (applying) {
        // Text overlays need fonts, which need a GUI application; a batch never needs a display, and with
        // none the text is drawn the same wherever it runs.
        qputenv("QT_QPA_PLATFORM", "offscreen");
        if (qEnvironmentVariableIsEmpty("QT_ENABLE_HIGHDPI_SCALING"))
            qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else if (wantsGpu(argc, argv) && reachesGpu(platform)) {
        // Points stay pixels whatever the display, as without a GUI.
        if (qEnvironmentVariableIsEmpty("QT_ENABLE_HIGHDPI_SCALING"))
            qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
        // A display that does not answer leaves the offscreen platform, and the CPU engine does the work.
        if (!platform.isEmpty())
            qputenv("QT_QPA_PLATFORM", platform);
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    QCoreApplication::setApplicationVersion(ImageLogger::shared().moduleVersion());
    QTextStream out(stdout);
    QTextStream err(stderr);

    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (applying)
        return runParsed(parseApplyCommand(arguments), out, err, [&](const ApplyOptions& options) {
            return runApplyCommand(options, out, err, onTerminal());
        });
    return runParsed(parseEditCommand(arguments), out, err,
                     [&](const EditOptions& options) { return runEditCommand(options, out, err); });
}
