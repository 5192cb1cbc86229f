import QtQuick
import Quorvane.SdkImage

// One tab of the editor's tab bar: its icon above its title, in white.
Item {
    id: root

    property string title
    property string icon

    signal clicked()

    implicitWidth: Math.max(56, label.implicitWidth)
    implicitHeight: 56
    Accessible.role: Accessible.PageTab
    Accessible.name: root.title
    Accessible.ignored: !root.enabled
    Accessible.onPressAction: if (root.enabled) root.clicked()

    BrandIcon {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: parent.top
        anchors.topMargin: 4
        width: 26
        height: 26
        source: root.icon
        color: "white"
    }
    Text {
        id: label
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        text: root.title
        color: "white"
        font.pixelSize: 12
    }
    TapHandler {
        onTapped: root.clicked()
    }
}
