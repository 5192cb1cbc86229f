import QtQuick
import QtQuick.Controls.Basic
import Quorvane.SdkImage

// Text entry over the canvas: the text, its style and colour; the confirm button adds it as an item.
Rectangle {
    id: root

    required property CanvasViewModel canvas
    property real topInset: 0

    color: "#e6000000"

    TextImageViewModel {
        id: textModel
    }

    Shortcut {
        sequence: "Escape"
        autoRepeat: false
        onActivated: root.canvas.cancelText()
    }
    // The canvas below must not receive the touches meant for this screen.
    MouseArea {
        anchors.fill: parent
    }

    Column {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.topMargin: root.topInset + 16
        anchors.margins: 16
        spacing: 16

        Row {
            anchors.right: parent.right
            spacing: 12
            OutlineButton {
                objectName: "textCancelButton"
                title: qsTr("CANCEL")
                onClicked: root.canvas.cancelText()
            }
            CircularButton {
                objectName: "textConfirmButton"
                anchors.verticalCenter: parent.verticalCenter
                icon: BrandImage.checkmark
                tint: BrandColor.ambar
                accessibleName: qsTr("Add the text")
                onClicked: root.canvas.confirmText(textModel)
            }
        }
        BrandTextField {
            objectName: "textField"
            width: parent.width
            placeholder: qsTr("Add some text...")
            onTextChanged: textModel.text = text
        }
        Row {
            spacing: 8
            GrayButton {
                objectName: "italicToggle"
                title: qsTr("Italic")
                color: textModel.isItalic ? BrandColor.ambar : BrandColor.gray
                onClicked: textModel.isItalic = !textModel.isItalic
            }
            GrayButton {
                objectName: "boldToggle"
                title: qsTr("Bold")
                color: textModel.isBold ? BrandColor.ambar : BrandColor.gray
                onClicked: textModel.isBold = !textModel.isBold
            }
            GrayButton {
                objectName: "uppercaseToggle"
                title: qsTr("Uppercase")
                color: textModel.isUppercase ? BrandColor.ambar : BrandColor.gray
                onClicked: textModel.isUppercase = !textModel.isUppercase
            }
        }
        Row {
            width: parent.width
            spacing: 8

            BrandIcon {
                anchors.verticalCenter: parent.verticalCenter
                width: 24
                height: 24
                source: BrandImage.textSize
                color: "white"
            }
            Slider {
                objectName: "textSizeSlider"
                width: parent.width - 32
                from: textModel.minimumTextSize
                to: textModel.maximumTextSize
                stepSize: 1
                value: textModel.textSize
                Accessible.name: qsTr("Text size")
                onMoved: textModel.textSize = value
            }
        }
        ChooseColorView {
            width: parent.width
            colors: root.canvas.colorItems
            selectedColor: textModel.selectedColor
            onChosen: (color) => textModel.selectedColor = color
        }
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: textModel.isUppercase ? textModel.text.toUpperCase() : textModel.text
            color: textModel.selectedColor
            font.pixelSize: textModel.textSize
            font.bold: textModel.isBold
            font.italic: textModel.isItalic
            wrapMode: Text.Wrap
        }
    }
}
