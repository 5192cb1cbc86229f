import QtQuick
import Quorvane.SdkImage

// A rectangular button filled with the brand colour, for the main choice. Disabled, it is dimmed and inert.
Rectangle {
    id: root

    property string title
    property bool isDisabled: false

    signal clicked()

    implicitWidth: Math.max(120, label.implicitWidth + 32)
    implicitHeight: 44
    radius: 8
    color: BrandColor.ambar
    opacity: root.isDisabled ? 0.4 : (tap.pressed ? 0.8 : 1)
    // Disabled, it is also announced as unavailable.
    enabled: !root.isDisabled
    Accessible.role: Accessible.Button
    Accessible.name: root.title
    Accessible.onPressAction: if (!root.isDisabled) root.clicked()

    Text {
        id: label
        anchors.centerIn: parent
        text: root.title
        color: "black"
        font.pixelSize: 16
        font.bold: true
    }
    TapHandler {
        id: tap
        onTapped: root.clicked()
    }
}
