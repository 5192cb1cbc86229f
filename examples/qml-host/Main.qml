import QtQuick
import QtQuick.Controls
import Quorvane.SdkImage

ApplicationWindow {
    id: window

    required property string photo
    property bool editing: photo !== ""
    property string saved: ""

    width: 390
    height: 844
    visible: true

    Column {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.margins: 16
        spacing: 16
        Button {
            anchors.horizontalCenter: parent.horizontalCenter
            text: "Edit photo"
            enabled: window.photo !== ""
            onClicked: window.editing = true
        }
        // A saved file's path is long: it wraps within the window instead of widening the column.
        Label {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WrapAnywhere
            text: window.saved
        }
    }

    // Covers the window while `editing` is true; the host closes it.
    PresentVideoEditorModifier {
        isPresented: window.editing
        preset: QuorvaneSdkImage.presetFromImageUrl(window.photo, QuorvaneSdkImage.jpg(90))
        onCompletion: (result) => {
            window.saved = result.editedImageURL.toString()
            window.editing = false
        }
    }
}
