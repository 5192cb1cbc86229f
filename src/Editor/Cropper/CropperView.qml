import QtQuick
import Quorvane.SdkImage

// The crop page: edit buttons above, the turned and mirrored image with the crop frame in the middle, and
// "CANCEL" / "CROP" below.
Rectangle {
    id: root

    required property CropperViewModel viewModel
    property real topInset: 0
    property real bottomInset: 0

    color: "black"

    Shortcut {
        sequences: [StandardKey.Undo]
        onActivated: root.viewModel.undoLastAction()
    }
    Shortcut {
        sequence: "Escape"
        autoRepeat: false
        onActivated: root.viewModel.cancel()
    }

    Item {
        id: topOptions
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.topMargin: root.topInset
        height: 60

        CircularButton {
            objectName: "cropUndoButton"
            anchors.left: parent.left
            anchors.leftMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            visible: root.viewModel.hasTrackedActions
            icon: BrandImage.undo
            accessibleName: qsTr("Undo")
            onClicked: root.viewModel.undoLastAction()
        }
        Row {
            anchors.right: parent.right
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            spacing: 8

            CircularButton {
                objectName: "rotateLeftButton"
                icon: BrandImage.rotate
                accessibleName: qsTr("Rotate left")
                onClicked: root.viewModel.rotateLeftTracked()
            }
            CircularButton {
                objectName: "rotateRightButton"
                icon: BrandImage.rotate
                iconMirrored: true
                accessibleName: qsTr("Rotate right")
                onClicked: root.viewModel.rotateRightTracked()
            }
            CircularButton {
                objectName: "flipHorizontallyButton"
                icon: BrandImage.flip
                tint: root.viewModel.flipHorizontallyButtonColor
                accessibleName: qsTr("Flip horizontally")
                onClicked: root.viewModel.toggleFlipHorizontally()
            }
            CircularButton {
                objectName: "flipVerticallyButton"
                icon: BrandImage.flip
                iconRotation: -90
                tint: root.viewModel.flipVericallyButtonColor
                accessibleName: qsTr("Flip vertically")
                onClicked: root.viewModel.toggleFlipVertically()
            }
        }
    }

    Item {
        id: cropperArea
        objectName: "cropperArea"

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: topOptions.bottom
        anchors.bottom: bottomOptions.top
        anchors.margins: 16
        onWidthChanged: root.viewModel.setupCropperLayout(Qt.size(width, height))
        onHeightChanged: root.viewModel.setupCropperLayout(Qt.size(width, height))

        // The frame lives in the image's own axes; turning and mirroring it turns the bands and the border too.
        Item {
            id: frame
            objectName: "cropFrame"

            anchors.centerIn: parent
            width: root.viewModel.imageFrameSize.width
            height: root.viewModel.imageFrameSize.height
            transform: [
                Scale {
                    origin.x: frame.width / 2
                    origin.y: frame.height / 2
                    xScale: root.viewModel.flipHorizontally ? -1 : 1
                    yScale: root.viewModel.flipVertically ? -1 : 1
                },
                Rotation {
                    origin.x: frame.width / 2
                    origin.y: frame.height / 2
                    angle: root.viewModel.rotationAngle
                }
            ]

            ImagePreview {
                anchors.fill: parent
                image: root.viewModel.currentImage
            }
            Rectangle {
                x: 0
                y: 0
                width: frame.width
                height: root.viewModel.topCropHeight
                color: "#a6000000"
            }
            Rectangle {
                x: 0
                y: frame.height - root.viewModel.bottomCropHeight
                width: frame.width
                height: root.viewModel.bottomCropHeight
                color: "#a6000000"
            }
            Rectangle {
                x: 0
                y: root.viewModel.topCropHeight
                width: root.viewModel.leadingCropWidth
                height: cropBorder.height
                color: "#a6000000"
            }
            Rectangle {
                x: frame.width - root.viewModel.trailingCropWidth
                y: root.viewModel.topCropHeight
                width: root.viewModel.trailingCropWidth
                height: cropBorder.height
                color: "#a6000000"
            }
            Rectangle {
                id: cropBorder
                objectName: "cropBorder"

                x: root.viewModel.leadingCropWidth
                y: root.viewModel.topCropHeight
                width: frame.width - root.viewModel.leadingCropWidth - root.viewModel.trailingCropWidth
                height: frame.height - root.viewModel.topCropHeight - root.viewModel.bottomCropHeight
                color: "transparent"
                border.color: root.viewModel.cropBorderColor
                border.width: 2
            }
            MouseArea {
                anchors.fill: parent
                preventStealing: true
                Accessible.role: Accessible.Graphic
                Accessible.name: qsTr("Crop frame: drag an edge, a corner or the middle")
                onPositionChanged: (mouse) => root.viewModel.handleDragging(Qt.point(mouse.x, mouse.y))
                onReleased: root.viewModel.finishCropping()
                onCanceled: root.viewModel.finishCropping()
            }
        }
    }

    Row {
        id: bottomOptions
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: root.bottomInset + 16
        spacing: 16

        OutlineButton {
            objectName: "cancelButton"
            title: qsTr("CANCEL")
            onClicked: root.viewModel.cancel()
        }
        FilledButton {
            objectName: "cropButton"
            title: qsTr("CROP")
            isDisabled: !root.viewModel.hasTrackedActions
            onClicked: root.viewModel.crop()
        }
    }
}
