import QtQuick
import Quorvane.SdkImage

// A toolbar button: an optional icon beside its label, on gray.
BrandButton {
    id: root

    property string title
    property string iconSource
    property bool iconMirrored: false
    /// Without the label on screen (the icon says it); screen readers still read the title.
    property bool showsTitle: true
    /// A width for the label, which then wraps onto a second line; its natural width when not set.
    property real labelWidth: -1
    /// The fill: gray, lighter while pressed. Toggles show their state in it instead.
    property color color: root.pressed ? "#636366" : BrandColor.gray

    objectName: root.title
    implicitWidth: Math.max(44, content.implicitWidth + 20)
    implicitHeight: 44
    text: root.title

    background: Rectangle {
        radius: 8
        color: root.color
    }
    Row {
        id: content
        anchors.centerIn: parent
        spacing: 6

        BrandIcon {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.iconSource.length > 0
            width: 18
            height: 18
            source: root.iconSource
            color: "white"
            transform: Scale {
                origin.x: 9
                xScale: root.iconMirrored ? -1 : 1
            }
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            width: root.labelWidth > 0 ? root.labelWidth : implicitWidth
            visible: root.showsTitle
            text: root.title
            color: "white"
            font.pixelSize: 14
            wrapMode: Text.WordWrap
            maximumLineCount: 2
            horizontalAlignment: Text.AlignHCenter
        }
    }
}
