import QtQuick
import Quorvane.SdkImage

// Stands in for a tool page that is not built yet: it can only be left, without a change.
Rectangle {
    id: root

    property string title

    signal returnAction()

    color: "black"

    Shortcut {
        sequence: "Escape"
        autoRepeat: false
        onActivated: root.returnAction()
    }
    Text {
        anchors.centerIn: parent
        text: qsTr("Coming soon")
        color: "white"
        font.pixelSize: 17
    }
    OutlineButton {
        objectName: "cancelButton"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 24
        title: qsTr("CANCEL")
        onClicked: root.returnAction()
    }
}
