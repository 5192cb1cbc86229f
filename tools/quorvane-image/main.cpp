#include "EditCommand.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <memory>

int main(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    QTextStream out(stdout);
    QTextStream err(stderr);

    const auto parsed = parseEditCommand(arguments);
    if (const auto* usage = std::get_if<UsageError>(&parsed)) {
        err << usage->sentence << "\n" << usageText();
        return kExitUsage;
    }
    const auto& options = std::get<EditOptions>(parsed);

    // Only the colour engine needs the GPU, and only a GUI application reaches it.
    std::unique_ptr<QCoreApplication> app;
    if (options.color && options.engine != FiltersManager::Engine::Cpu) {
        // Points stay pixels whatever the display, as without a GUI.
        if (qEnvironmentVariableIsEmpty("QT_ENABLE_HIGHDPI_SCALING"))
            qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
#ifdef Q_OS_LINUX
        // Without a display, the GUI application starts anyway, and the CPU engine does the work.
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY") &&
            qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    return runEditCommand(options, out, err);
}
