#include "EditCommand.h"

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);

    const auto parsed = parseEditCommand(app.arguments().mid(1));
    if (const auto* usage = std::get_if<UsageError>(&parsed)) {
        err << usage->sentence << "\n" << usageText();
        return kExitUsage;
    }
    return runEditCommand(std::get<EditOptions>(parsed), out, err);
}
