import QtQuick
import Quorvane.SdkImage

// A one-line text field with a "Done" button that ends the editing: the keyboard goes, the text stays.
Rectangle {
    id: root

    property alias text: input.text
    property string placeholder
    /// Takes the focus and raises the keyboard as soon as it is shown.
    property bool editsOnOpen: false

    /// "Done" or Enter ended the editing (the keyboard has gone).
    signal done()

    implicitWidth: 300
    implicitHeight: 44
    radius: 8
    color: "#2c2c2e"
    Component.onCompleted: {
        if (!root.editsOnOpen)
            return
        input.forceActiveFocus()
        Qt.inputMethod.show()
    }

    TextInput {
        id: input
        anchors.left: parent.left
        anchors.right: doneButton.left
        anchors.verticalCenter: parent.verticalCenter
        anchors.leftMargin: 12
        anchors.rightMargin: 8
        color: "white"
        font.pixelSize: 17
        clip: true
        Accessible.role: Accessible.EditableText
        Accessible.name: root.placeholder
        onAccepted: {
            input.focus = false
            root.done()
        }

        Text {
            anchors.fill: parent
            visible: input.text.length === 0
            text: root.placeholder
            color: "#8e8e93"
            font: input.font
        }
    }
    Text {
        id: doneButton
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.rightMargin: 12
        text: qsTr("Done")
        color: BrandColor.ambar
        font.pixelSize: 17
        font.bold: true
        Accessible.role: Accessible.Button
        Accessible.name: text
        Accessible.onPressAction: {
            input.focus = false
            root.done()
        }

        TapHandler {
            margin: 14
            onTapped: {
                input.focus = false
                root.done()
            }
        }
    }
}
