import QtQuick
import Quorvane.SdkImage

// A round icon button: 44-point touch target, white disc, tinted brand icon.
Item {
    id: root

    property string icon
    property color tint: BrandColor.gray
    property string accessibleName
    property real iconRotation: 0
    property bool iconMirrored: false

    signal clicked()

    implicitWidth: 44
    implicitHeight: 44
    Accessible.role: Accessible.Button
    Accessible.name: root.accessibleName
    Accessible.ignored: !root.enabled
    Accessible.onPressAction: if (root.enabled) root.clicked()

    Rectangle {
        anchors.centerIn: parent
        width: 38
        height: 38
        radius: 19
        color: tap.pressed ? "#d1d1d6" : "white"
    }
    BrandIcon {
        anchors.centerIn: parent
        width: 22
        height: 22
        source: root.icon
        color: root.tint
        rotation: root.iconRotation
        transform: Scale {
            origin.x: 11
            xScale: root.iconMirrored ? -1 : 1
        }
    }
    TapHandler {
        id: tap
        onTapped: root.clicked()
    }
}
