import QtQuick
import QtQuick.Dialogs
import QtQuick.Window
import Quorvane.SdkImage

// The demo host: the editor full screen, then what it handed back, with a way to edit another photo.
Window {
    id: window

    required property quorvaneSdkImageEditorPreset preset
    property quorvaneSdkImageEditorResult result
    property bool finished: false

    width: 390
    height: 844
    visible: true
    color: "black"
    title: qsTr("Quorvane SDK Image demo")

    Loader {
        id: editor
        anchors.fill: parent
        active: !window.finished
        // Qt 6.4's Loader cannot create bound components (pragma ComponentBehavior: Bound), so qmllint
        // cannot tell that `window` always resolves here.
        // qmllint disable unqualified
        sourceComponent: QuorvaneSdkImageEditorView {
            preset: window.preset
            onCompletion: (result) => {
                window.result = result
                window.finished = true
            }
        }
        // qmllint enable unqualified
    }

    Column {
        objectName: "resultPage"
        anchors.centerIn: parent
        width: parent.width - 32
        spacing: 16
        visible: window.finished

        Image {
            width: parent.width
            // Room for the text and the buttons below it in a landscape window too.
            height: Math.max(0, Math.min(width, window.height - 200))
            fillMode: Image.PreserveAspectFit
            source: window.result.editedImageURL
            sourceSize.width: width
            asynchronous: true
        }
        Text {
            width: parent.width
            color: "white"
            wrapMode: Text.Wrap
            font.pixelSize: 15
            text: window.result.hasImage
                  ? qsTr("%1 × %2 pixels\n%3").arg(window.result.pixelSize.width)
                                               .arg(window.result.pixelSize.height)
                                               .arg(String(window.result.editedImageURL) || qsTr("not saved"))
                  : qsTr("The editor returned no image.")
        }
        Row {
            spacing: 16
            OutlineButton {
                title: qsTr("EDIT AGAIN")
                onClicked: window.finished = false
            }
            FilledButton {
                title: qsTr("OPEN…")
                onClicked: picker.open()
            }
        }
    }

    FileDialog {
        id: picker
        title: qsTr("Choose a photo")
        nameFilters: [qsTr("Images (*.jpg *.jpeg *.png *.webp *.bmp *.gif *.tif *.tiff)")]
        onAccepted: {
            window.preset = QuorvaneSdkImage.presetFromImageUrl(selectedFile)
            window.finished = false
        }
    }
}
