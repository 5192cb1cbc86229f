pragma ComponentBehavior: Bound
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
    // While the crop is made, the page takes nothing more.
    enabled: !root.viewModel.isWorking

    EditorLayout {
        id: layout
        size: Qt.size(root.width, root.height)
        topInset: root.topInset
        bottomInset: root.bottomInset
    }

    Item {
        id: topOptions
        // Above the frame's reach beyond the picture: a button near it still takes its tap.
        z: 1
        x: layout.topBar.x
        y: layout.topBar.y
        width: layout.topBar.width
        height: layout.topBar.height

        CircularButton {
            objectName: "cropUndoButton"
            anchors.left: parent.left
            anchors.leftMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            visible: root.viewModel.hasTrackedActions
            iconSource: BrandImage.undo
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
                iconSource: BrandImage.rotate
                accessibleName: qsTr("Rotate left")
                onClicked: root.viewModel.rotateLeftTracked()
            }
            CircularButton {
                objectName: "rotateRightButton"
                iconSource: BrandImage.rotate
                iconMirrored: true
                accessibleName: qsTr("Rotate right")
                onClicked: root.viewModel.rotateRightTracked()
            }
            CircularButton {
                objectName: "flipHorizontallyButton"
                iconSource: BrandImage.flip
                tint: root.viewModel.flipHorizontallyButtonColor
                accessibleName: qsTr("Flip horizontally")
                onClicked: root.viewModel.toggleFlipHorizontally()
            }
            CircularButton {
                objectName: "flipVerticallyButton"
                iconSource: BrandImage.flip
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

        x: layout.picture.x
        y: layout.picture.y
        width: layout.picture.width
        height: layout.picture.height
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
                showsTransparency: true
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
            // The crop rectangle; its border, corner marks and edge handles lie just outside it, so that they
            // never hide the picture, not even a sliver of one.
            Item {
                id: cropBorder
                objectName: "cropBorder"

                x: root.viewModel.leadingCropWidth
                y: root.viewModel.topCropHeight
                width: frame.width - root.viewModel.leadingCropWidth - root.viewModel.trailingCropWidth
                height: frame.height - root.viewModel.topCropHeight - root.viewModel.bottomCropHeight

                Rectangle {
                    anchors.fill: parent
                    anchors.margins: -2
                    color: "transparent"
                    border.color: root.viewModel.cropBorderColor
                    border.width: 2
                }
                // Corner marks and edge handles show where a finger can take hold of the frame.
                Repeater {
                    model: [Qt.point(0, 0), Qt.point(1, 0), Qt.point(0, 1), Qt.point(1, 1)]
                    Item {
                        required property point modelData
                        required property int index
                        objectName: "cropCorner" + index
                        x: modelData.x * (cropBorder.width + 8 - width) - 4
                        y: modelData.y * (cropBorder.height + 8 - height) - 4
                        width: 20
                        height: 20

                        Rectangle {
                            y: parent.modelData.y * (parent.height - height)
                            width: parent.width
                            height: 4
                            color: root.viewModel.cropBorderColor
                        }
                        Rectangle {
                            x: parent.modelData.x * (parent.width - width)
                            width: 4
                            height: parent.height
                            color: root.viewModel.cropBorderColor
                        }
                    }
                }
                Repeater {
                    model: [Qt.point(0.5, 0), Qt.point(0, 0.5), Qt.point(1, 0.5), Qt.point(0.5, 1)]
                    Rectangle {
                        required property point modelData
                        required property int index
                        readonly property bool across: modelData.y === 0.5
                        objectName: "cropEdgeHandle" + index
                        width: across ? 4 : 24
                        height: across ? 24 : 4
                        x: modelData.x * (cropBorder.width + 8 - width) - 4
                        y: modelData.y * (cropBorder.height + 8 - height) - 4
                        color: root.viewModel.cropBorderColor
                    }
                }
            }
            MouseArea {
                // A handle's reach beyond the frame: a drag begun just outside takes hold once it reaches the
                // frame, and a sliver of a picture, thinner than any finger, can be taken at all.
                anchors.fill: parent
                anchors.margins: -root.viewModel.handleRadius
                preventStealing: true
                Accessible.role: Accessible.Graphic
                Accessible.name: qsTr("Crop frame: drag an edge, a corner or the middle")
                onPressed: (mouse) => root.viewModel.beginTouch(mapToItem(frame, mouse.x, mouse.y))
                onPositionChanged: (mouse) => root.viewModel.handleTouch(mapToItem(frame, mouse.x, mouse.y))
                onReleased: root.viewModel.finishCropping()
                onCanceled: root.viewModel.finishCropping()
            }
        }
    }

    WorkIndicator {
        objectName: "cropWorkIndicator"
        x: layout.picture.x
        y: layout.picture.y
        width: layout.picture.width
        height: layout.picture.height
        running: root.viewModel.isWorking
    }

    ToolPageBar {
        id: bottomOptions
        z: 1
        x: layout.bottomBar.x + (layout.bottomBar.width - width) / 2
        y: layout.bottomBar.y + (layout.bottomBar.height - height) / 2
        viewModel: root.viewModel
        acceptTitle: qsTr("CROP")
        acceptEnabled: root.viewModel.hasTrackedActions
    }
}
