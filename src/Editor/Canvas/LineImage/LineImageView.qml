import QtQuick
import Quorvane.SdkImage

// One overlay item. While transforms are on, one finger drags it and two fingers turn and scale it; the
// gesture shows live and is committed to the item when it ends.
Item {
    id: root

    required property LineImageViewModel viewModel
    property real twistAngle: 0
    property real pinchMagnification: 1
    property point dragOffset: Qt.point(0, 0)

    objectName: "lineImage"
    x: root.viewModel.offset.width
    y: root.viewModel.offset.height
    width: root.viewModel.imageSize.width
    height: root.viewModel.imageSize.height

    Item {
        id: visual
        anchors.fill: parent
        // Scale, then turn, then move, all about the item's centre.
        transform: [
            Scale {
                origin.x: visual.width / 2
                origin.y: visual.height / 2
                xScale: root.viewModel.magnification * root.pinchMagnification
                yScale: root.viewModel.magnification * root.pinchMagnification
            },
            Rotation {
                origin.x: visual.width / 2
                origin.y: visual.height / 2
                angle: root.viewModel.rotationAngle + root.twistAngle
            },
            Translate {
                x: root.dragOffset.x
                y: root.dragOffset.y
            }
        ]

        ImagePreview {
            anchors.fill: parent
            image: root.viewModel.image
        }
        Rectangle {
            anchors.fill: parent
            visible: root.viewModel.isSelected
            color: "transparent"
            border.color: BrandColor.ambar
            border.width: 2
        }

        // On the item as drawn: a turned or scaled item is moved and pinched where the user sees it. Taps are
        // the canvas's, which knows which item lies on top.
        DragHandler {
            id: drag
            target: null
            enabled: root.viewModel.isTransformEnabled
            maximumPointCount: 1
            onTranslationChanged: root.dragOffset = Qt.point(translation.x, translation.y)
            onActiveChanged: {
                if (active)
                    return
                root.viewModel.endDrag(Qt.size(root.dragOffset.x, root.dragOffset.y))
                root.dragOffset = Qt.point(0, 0)
            }
        }
        PinchHandler {
            id: pinch
            target: null
            enabled: root.viewModel.isTransformEnabled
            onActiveScaleChanged: root.pinchMagnification = activeScale
            onRotationChanged: root.twistAngle = rotation
            onActiveChanged: {
                if (active)
                    return
                root.viewModel.endRotation(root.twistAngle)
                root.viewModel.endMagnification(root.pinchMagnification)
                root.twistAngle = 0
                root.pinchMagnification = 1
            }
        }
    }
}
