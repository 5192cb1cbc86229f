import QtQuick
import QtQuick.Controls.Basic
import Quorvane.SdkImage

// Text entry over the canvas: the text, its style and colour; the confirm button adds it as an item.
Rectangle {
    id: root

    required property CanvasViewModel canvas
    property real topInset: 0
    property real bottomInset: 0

    // Opaque: the page's own bars must not show through.
    color: "black"

    TextImageViewModel {
        id: textModel
        // Wrapped within the picture, and made smaller where it would still be too tall, as it will be
        // placed on it.
        maximumWidth: root.canvas.imageFrameSize.width
        maximumHeight: root.canvas.imageFrameSize.height
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

    Row {
        id: topButtons
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.topMargin: root.topInset + 16
        anchors.rightMargin: 16
        spacing: 12
        OutlineButton {
            objectName: "textCancelButton"
            title: qsTr("CANCEL")
            onClicked: root.canvas.cancelText()
        }
        CircularButton {
            objectName: "textConfirmButton"
            anchors.verticalCenter: parent.verticalCenter
            iconSource: BrandImage.checkmark
            tint: BrandColor.ambar
            accessibleName: qsTr("Add the text")
            onClicked: root.canvas.confirmText(textModel)
        }
    }
    // Below the buttons everything scrolls, so that in landscape or above a keyboard nothing covers them.
    Flickable {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: topButtons.bottom
        anchors.bottom: parent.bottom
        anchors.topMargin: 16
        anchors.bottomMargin: root.bottomInset
        contentHeight: controls.height + 16
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        // A column centred on wide screens, never narrower than the picture the text is wrapped to.
        Column {
            id: controls
            width: Math.min(root.width - 32, Math.max(600, root.canvas.imageFrameSize.width))
            x: (root.width - width) / 2
            spacing: 16

            BrandTextField {
                objectName: "textField"
                width: parent.width
                editsOnOpen: true
                placeholder: qsTr("Add some text...")
                onTextChanged: textModel.text = text
            }
            // The very picture the canvas will get, reduced only when it is wider than the screen.
            ImagePreview {
                objectName: "textPreview"
                width: parent.width
                height: implicitHeight
                image: textModel.image
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
                objectName: "textColours"
                width: parent.width
                colors: root.canvas.colorItems
                selectedColor: textModel.selectedColor
                selectedIndex: root.canvas.colorIndex(textModel.selectedColor)
                onChosen: (color) => textModel.selectedColor = color
            }
        }
    }
}
