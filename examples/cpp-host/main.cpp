// A widget application that hands one photo to the editor and shows where the result went.
//   cpp-host IMAGE
#include <QuorvaneSdkImageEditorPresenter.h>

#include <QApplication>
#include <QLabel>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QLabel window(QStringLiteral("Editing…"));
    window.setAlignment(Qt::AlignCenter);
    window.resize(390, 844);
    window.show();

    const QuorvaneSdkImageEditorPreset preset(QUrl::fromLocalFile(app.arguments().value(1)),
                                              QuorvaneSdkImageOutputFormat::png());
    // The editor covers the screen; once it has slid away, the callback runs.
    const bool shown = presentQuorvaneSdkImageEditorView(
        &window, preset, [&window](const QuorvaneSdkImageEditorResult& result) {
            window.setText(result.editedImageURL() ? result.editedImageURL()->toLocalFile()
                                                   : QStringLiteral("No image"));
        });
    return shown ? app.exec() : 1;
}
