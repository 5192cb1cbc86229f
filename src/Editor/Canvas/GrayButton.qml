import QtQuick
import Quorvane.SdkImage

// A toolbar button: an optional icon beside its label, on gray.
Rectangle {
    id: root

    property string title
    property string icon
    property bool iconMirrored: false

    signal clicked()

    objectName: root.title
    implicitWidth: content.implicitWidth + 20
    implicitHeight: 44
    radius: 8
    color: tap.pressed ? "#636366" : BrandColor.gray
    Accessible.role: Accessible.Button
    Accessible.name: root.title
    Accessible.onPressAction: root.clicked()

    Row {
        id: content
        anchors.centerIn: parent
        spacing: 6

        BrandIcon {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.icon.length > 0
            width: 18
            height: 18
            source: root.icon
            color: "white"
            transform: Scale {
                origin.x: 9
                xScale: root.iconMirrored ? -1 : 1
            }
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: root.title
            color: "white"
            font.pixelSize: 14
        }
    }
    TapHandler {
        id: tap
        onTapped: root.clicked()
    }
}
