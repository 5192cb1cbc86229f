// The smallest C++ host: edit one file, print where the result went.
//   quorvane-cpp-host IMAGE
#include "Editor/QuorvaneSdkImageEditorPresenter.h"

#include <QGuiApplication>
#include <QtQml/QQmlExtensionPlugin>
#include <cstdio>

Q_IMPORT_QML_PLUGIN(Quorvane_SdkImagePlugin)

int main(int argc, char* argv[])
{
    QGuiApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: quorvane-cpp-host IMAGE\n");
        return 64;
    }
    const QuorvaneSdkImageEditorPreset preset(QUrl::fromLocalFile(QString::fromLocal8Bit(argv[1])),
                                              QuorvaneSdkImageOutputFormat::png());
    presentQuorvaneSdkImageEditorView(preset, [](const QuorvaneSdkImageEditorResult& result) {
        std::printf("%s\n", result.editedImageURL() ? qPrintable(result.editedImageURL()->toLocalFile())
                                                    : "no image");
        QGuiApplication::quit();
    });
    return app.exec();
}
