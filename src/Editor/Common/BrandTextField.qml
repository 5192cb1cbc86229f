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
        // Qt 6.4's qmllint types Qt.inputMethod as a bare QObject; the object is the QInputMethod.
        Qt.inputMethod.show() // qmllint disable type
    }

    TextInput {
        id: input
        anchors.left: parent.left
        anchors.right: doneLabel.left
        anchors.verticalCenter: parent.verticalCenter
        anchors.leftMargin: 12
        anchors.rightMargin: 8
        color: "white"
        font.pixelSize: 17
        clip: true
        activeFocusOnTab: true
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
        id: doneLabel
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.rightMargin: 12
        text: qsTr("Done")
        color: BrandColor.ambar
        font.pixelSize: 17
        font.bold: true
    }
    // Reaches 14 points around the word, which is smaller than a finger.
    BrandButton {
        objectName: "doneButton"
        anchors.fill: doneLabel
        anchors.margins: -14
        focusMargin: -10
        focusRadius: 6
        text: doneLabel.text
        onClicked: {
            input.focus = false
            root.done()
        }
    }
}
