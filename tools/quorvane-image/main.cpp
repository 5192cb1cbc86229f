#include "EditCommand.h"
#include "Logger/ImageLogger.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <cstring>
#include <memory>

namespace {

// Only the colour engine needs the GPU, and only a GUI application reaches it. Decided on the raw words,
// before an application exists to decode them.
bool needsGpu(int argc, char* argv[])
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

} // namespace

int main(int argc, char* argv[])
{
    std::unique_ptr<QCoreApplication> app;
    if (needsGpu(argc, argv)) {
        // Points stay pixels whatever the display, as without a GUI.
        if (qEnvironmentVariableIsEmpty("QT_ENABLE_HIGHDPI_SCALING"))
            qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
#ifdef Q_OS_LINUX
        // Without a display that answers, the application starts offscreen and the CPU engine does the work.
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
            if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
                qputenv("QT_QPA_PLATFORM", "offscreen");
            else
                qputenv("QT_QPA_PLATFORM", qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
                                               ? "xcb;offscreen"
                                               : "wayland;xcb;offscreen");
        }
#endif
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    QCoreApplication::setApplicationVersion(ImageLogger::shared().moduleVersion());
    QTextStream out(stdout);
    QTextStream err(stderr);

    const auto parsed = parseEditCommand(QCoreApplication::arguments().mid(1));
    if (const auto* usage = std::get_if<UsageError>(&parsed)) {
        err << usage->sentence << "\n" << usageText();
        return kExitUsage;
    }
    if (const auto* info = std::get_if<InfoRequest>(&parsed)) {
        out << info->text;
        return 0;
    }
    return runEditCommand(std::get<EditOptions>(parsed), out, err);
}
