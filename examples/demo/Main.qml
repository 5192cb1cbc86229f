import QtQuick
import QtQuick.Window
import Quorvane.SdkImage

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

    QuorvaneSdkImageEditorView {
        anchors.fill: parent
        visible: !window.finished
        preset: window.preset
        onCompletion: (result) => {
            window.result = result
            window.finished = true
        }
    }

    Column {
        anchors.centerIn: parent
        width: parent.width - 32
        spacing: 12
        visible: window.finished

        Image {
            width: parent.width
            height: width
            fillMode: Image.PreserveAspectFit
            source: window.result.editedImageURL
            sourceSize.width: width
            asynchronous: true
        }
        Text {
            width: parent.width
            color: "white"
            wrapMode: Text.Wrap
            text: window.result.hasImage
                  ? qsTr("%1 × %2 pixels\n%3").arg(window.result.pixelSize.width)
                                               .arg(window.result.pixelSize.height)
                                               .arg(window.result.editedImageURL.toString() || qsTr("not saved"))
                  : qsTr("The editor returned no image.")
        }
    }
}
