import QtQuick
import Quorvane.SdkImage

// A rectangular button with a white outline, for the secondary choice.
BrandButton {
    id: root

    property string title

    implicitWidth: Math.max(120, label.implicitWidth + 32)
    implicitHeight: 44
    text: root.title

    background: Rectangle {
        radius: 8
        color: root.pressed ? "#48484a" : "transparent"
        border.color: "white"
        border.width: 2
    }
    Text {
        id: label
        anchors.centerIn: parent
        text: root.title
        color: "white"
        font.pixelSize: 16
        font.bold: true
    }
}
