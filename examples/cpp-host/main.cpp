// A widget application that hands one photo to the editor and shows where the result went.
//   cpp-host IMAGE
#include <QuorvaneSdkImageEditorPresenter.h>

#include <QApplication>
#include <QFileInfo>
#include <QLabel>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QLabel window(QStringLiteral("Editing…"));
    window.setAlignment(Qt::AlignCenter);
    window.setWordWrap(true);
    window.resize(390, 844);
    window.show();

    const QString photo = QFileInfo(app.arguments().value(1)).absoluteFilePath();
    const QuorvaneSdkImageEditorPreset preset(QUrl::fromLocalFile(photo),
                                              QuorvaneSdkImageOutputFormat::png());
    // The editor covers the screen; once it has slid away, the callback runs.
    QQuickWindow* editor = presentQuorvaneSdkImageEditorView(
        &window, preset, [&window](const QuorvaneSdkImageEditorResult& result) {
            window.setText(result.editedImageURL() ? result.editedImageURL()->toLocalFile()
                                                   : QStringLiteral("No image"));
        });
    return editor ? app.exec() : 1;
}
