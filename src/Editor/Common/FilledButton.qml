import QtQuick
import Quorvane.SdkImage

// A rectangular button filled with the brand colour, for the main choice. Disabled, it is dimmed and inert.
BrandButton {
    id: root

    property string title
    property bool isDisabled: false
    /// Held in its pressed look while the work it started runs.
    property bool isWorking: false

    implicitWidth: Math.max(120, label.implicitWidth + 32)
    implicitHeight: 44
    opacity: root.isDisabled ? 0.4 : (root.pressed || root.isWorking ? 0.8 : 1)
    // Disabled, it is also announced as unavailable, and Tab passes it by.
    enabled: !root.isDisabled
    text: root.title

    background: Rectangle {
        radius: 8
        color: BrandColor.ambar
    }
    Text {
        id: label
        anchors.centerIn: parent
        text: root.title
        color: "black"
        font.pixelSize: 16
        font.bold: true
    }
}
