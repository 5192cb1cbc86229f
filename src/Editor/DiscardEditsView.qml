import QtQuick
import Quorvane.SdkImage

// Asked when the close button would throw edits away. "Keep editing" is the safe answer: Escape gives it,
// and a tap beside the question does nothing.
Rectangle {
    id: root

    signal discard()
    signal keepEditing()

    color: "#99000000"

    // The editor underneath takes no touch while the question is open.
    MouseArea {
        anchors.fill: parent
    }
    Shortcut {
        sequence: "Escape"
        autoRepeat: false
        onActivated: root.keepEditing()
    }

    Rectangle {
        id: alert
        objectName: "discardAlert"

        anchors.centerIn: parent
        width: Math.min(parent.width - 48, 300)
        height: content.implicitHeight
        radius: 14
        color: "#f2f2f2"
        Accessible.role: Accessible.AlertMessage
        Accessible.name: title.text

        Column {
            id: content
            width: parent.width

            Item { width: 1; height: 20 }
            Text {
                id: title
                objectName: "discardTitle"
                width: parent.width - 32
                anchors.horizontalCenter: parent.horizontalCenter
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                text: qsTr("Discard your edits?")
                font.pixelSize: 17
                font.bold: true
                color: "black"
            }
            Item { width: 1; height: 20 }
            Rectangle { width: parent.width; height: 1; color: "#c6c6c8" }
            Row {
                width: parent.width

                BrandButton {
                    objectName: "keepEditingButton"
                    width: parent.width / 2
                    height: 44
                    // The keyboard starts on the safe answer.
                    focus: true
                    focusMargin: -4
                    focusRadius: 8
                    text: keepLabel.text
                    onClicked: root.keepEditing()

                    Text {
                        id: keepLabel
                        anchors.centerIn: parent
                        text: qsTr("Keep editing")
                        font.pixelSize: 17
                        font.bold: true
                        color: "#007aff"
                    }
                }
                BrandButton {
                    objectName: "discardButton"
                    width: parent.width / 2
                    height: 44
                    focusMargin: -4
                    focusRadius: 8
                    text: discardLabel.text
                    onClicked: root.discard()

                    Rectangle {
                        width: 1
                        height: parent.height
                        color: "#c6c6c8"
                    }
                    Text {
                        id: discardLabel
                        anchors.centerIn: parent
                        text: qsTr("Discard")
                        font.pixelSize: 17
                        color: "#ff3b30"
                    }
                }
            }
        }
    }
}
