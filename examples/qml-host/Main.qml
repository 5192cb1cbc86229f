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
        anchors.centerIn: parent
        spacing: 16
        Button {
            text: "Edit photo"
            enabled: window.photo !== ""
            onClicked: window.editing = true
        }
        Label { text: window.saved }
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
