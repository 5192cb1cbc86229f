// A Qt Quick application that opens the editor from a button.
//   qml-host [IMAGE]   (with IMAGE it opens the editor at once)
#include <QFileInfo>
#include <QGuiApplication>
#include <QQmlApplicationEngine>

int main(int argc, char* argv[])
{
    QGuiApplication app(argc, argv);
    QQmlApplicationEngine engine;
    const QString photo = app.arguments().value(1);
    engine.setInitialProperties(
        {{QStringLiteral("photo"),
          photo.isEmpty() ? QString()
                          : QUrl::fromLocalFile(QFileInfo(photo).absoluteFilePath()).toString()}});
    engine.load(QUrl(QStringLiteral("qrc:/QmlHost/Main.qml")));
    return engine.rootObjects().isEmpty() ? 1 : app.exec();
}
