import QtQuick
import QtQuick.Templates as T
import Quorvane.SdkImage

// One tab of the editor's tab bar: its icon above its title, in white. A tab opens its page. Qt's tab
// button rather than BrandButton: Qt sets a control's role itself once a screen reader starts, and only this
// template's is a tab. Keys and focus ring as BrandButton's.
T.TabButton {
    id: root

    property string title
    property string iconSource

    implicitWidth: Math.max(56, label.implicitWidth)
    implicitHeight: 56
    // Each tap opens the page again: no tab stays selected.
    checkable: false
    focusPolicy: Qt.TabFocus
    text: root.title
    Accessible.name: root.text
    // The tabs not offered are disabled in their place: screen readers skip them as Tab does.
    Accessible.ignored: !root.enabled
    Keys.onReturnPressed: (event) => { if (!event.isAutoRepeat) root.clicked() }
    Keys.onEnterPressed: (event) => { if (!event.isAutoRepeat) root.clicked() }
    // Hidden with the base page, it lets go of the focus: keys must not reach it unseen.
    onVisibleChanged: if (!root.visible) root.focus = false

    BrandIcon {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: parent.top
        anchors.topMargin: 4
        width: 26
        height: 26
        source: root.iconSource
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
    FocusRing {
        radius: 12
        visible: root.visualFocus
    }
}
