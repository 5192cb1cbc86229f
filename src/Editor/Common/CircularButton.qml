import QtQuick
import Quorvane.SdkImage

// A round icon button: 44-point touch target, white disc, tinted brand icon.
BrandButton {
    id: root

    property string iconSource
    property color tint: BrandColor.gray
    /// What screen readers call it: the button shows no text.
    property string accessibleName
    property real iconRotation: 0
    property bool iconMirrored: false

    implicitWidth: 44
    implicitHeight: 44
    focusRadius: 26
    text: root.accessibleName
    // Disabled means hidden in its place (undo with nothing to undo) or inert: screen readers skip it too.
    Accessible.ignored: !root.enabled

    Rectangle {
        anchors.centerIn: parent
        width: 38
        height: 38
        radius: 19
        color: root.pressed ? "#d1d1d6" : "white"
    }
    BrandIcon {
        anchors.centerIn: parent
        width: 22
        height: 22
        source: root.iconSource
        color: root.tint
        rotation: root.iconRotation
        transform: Scale {
            origin.x: 11
            xScale: root.iconMirrored ? -1 : 1
        }
    }
}
