import QtQuick
import Quorvane.SdkImage

// The canvas page: tool buttons above, the image with its overlay items in the middle, the active tool's
// controls, and "CANCEL" / "ACCEPT" below.
Rectangle {
    id: root

    required property CanvasViewModel viewModel
    property real topInset: 0
    property real bottomInset: 0

    color: "black"

    EditorLayout {
        id: layout
        size: Qt.size(root.width, root.height)
        topInset: root.topInset
        bottomInset: root.bottomInset
    }

    // While text is entered or the picture is flattened, the canvas underneath takes no touches.
    Item {
        anchors.fill: parent
        enabled: !root.viewModel.isEnteringText && !root.viewModel.isWorking
        // Text entry covers it whole: nothing of it shows through.
        visible: !root.viewModel.isEnteringText

        Item {
            id: topOptions
            // Above the canvas, whatever an item is dragged or scaled to.
            z: 1
            x: layout.topBar.x
            y: layout.topBar.y
            width: layout.topBar.width
            height: layout.topBar.height

            CircularButton {
                objectName: "canvasUndoButton"
                anchors.left: parent.left
                anchors.leftMargin: 12
                anchors.verticalCenter: parent.verticalCenter
                // Kept in its place while hidden, as the move button is.
                opacity: root.viewModel.hasPreviousStates ? 1 : 0
                enabled: root.viewModel.hasPreviousStates
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
                    objectName: "drawButton"
                    iconSource: BrandImage.draw
                    tint: root.viewModel.selectedOption === CanvasViewModel.Drawing ? BrandColor.ambar : BrandColor.gray
                    accessibleName: qsTr("Draw")
                    onClicked: root.viewModel.enableDraw()
                }
                CircularButton {
                    objectName: "textButton"
                    iconSource: BrandImage.text
                    tint: root.viewModel.selectedOption === CanvasViewModel.Text ? BrandColor.ambar : BrandColor.gray
                    accessibleName: qsTr("Text")
                    onClicked: root.viewModel.enableText()
                }
                CircularButton {
                    objectName: "moveButton"
                    // Its slot is kept while it is hidden, so the draw and text buttons never move.
                    opacity: root.viewModel.hasPreviousStates ? 1 : 0
                    enabled: root.viewModel.hasPreviousStates
                    iconSource: BrandImage.move
                    tint: root.viewModel.selectedOption === CanvasViewModel.Transform ? BrandColor.ambar : BrandColor.gray
                    accessibleName: qsTr("Move")
                    onClicked: root.viewModel.enableMove()
                }
            }
        }

        Item {
            id: canvasArea
            x: layout.picture.x
            y: layout.picture.y
            width: layout.picture.width
            height: layout.picture.height
            onWidthChanged: root.viewModel.setupScreenSize(Qt.size(width, height))
            onHeightChanged: root.viewModel.setupScreenSize(Qt.size(width, height))

            Item {
                id: frame
                objectName: "canvasFrame"

                anchors.centerIn: parent
                width: root.viewModel.imageFrameSize.width
                height: root.viewModel.imageFrameSize.height
                clip: true

                ImagePreview {
                    anchors.fill: parent
                    showsTransparency: true
                    image: root.viewModel.image
                }
                Repeater {
                    model: root.viewModel.lineImageViewModels
                    LineImageView {
                        required property LineImageViewModel modelData
                        viewModel: modelData
                    }
                }
                // One tap for the whole canvas: the model picks the uppermost item drawn where the finger is.
                TapHandler {
                    enabled: root.viewModel.selectedOption === CanvasViewModel.Transform
                    onTapped: (point) => root.viewModel.handleTapOnScreen(point.position)
                }
                DrawingView {
                    anchors.fill: parent
                    visible: root.viewModel.selectedOption === CanvasViewModel.Drawing
                    viewModel: root.viewModel
                }
            }
        }

        Item {
            id: toolControls
            // Above the canvas too, and one height for every tool: the image is fitted once, so the space
            // around it must not change.
            z: 1
            x: layout.controls.x
            y: layout.controls.y
            width: layout.controls.width
            height: layout.controls.height

            Column {
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.bottom: parent.bottom
                spacing: 8
                visible: root.viewModel.selectedOption === CanvasViewModel.Drawing

                ChooseLineWidthView {
                    width: parent.width
                    viewModel: root.viewModel
                }
                ChooseColorView {
                    objectName: "strokeColours"
                    width: parent.width
                    colors: root.viewModel.colorItems
                    selectedColor: root.viewModel.selectedColor
                    selectedIndex: root.viewModel.colorIndex(root.viewModel.selectedColor)
                    onChosen: (color) => root.viewModel.setColorFromPicker(color)
                }
            }
            TransformView {
                objectName: "transformToolbar"
                anchors.fill: parent
                visible: root.viewModel.selectedOption === CanvasViewModel.Transform && root.viewModel.hasShownSelection
                viewModel: root.viewModel
            }
        }

        WorkIndicator {
            objectName: "canvasWorkIndicator"
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
            acceptEnabled: root.viewModel.hasPreviousStates
            keysEnabled: !root.viewModel.isEnteringText
        }
    }

    Loader {
        anchors.fill: parent
        active: root.viewModel.isEnteringText
        // Qt 6.4's Loader cannot create bound components (pragma ComponentBehavior: Bound), so qmllint
        // cannot tell that the ids below always resolve here.
        // qmllint disable unqualified
        sourceComponent: TextImageView {
            canvas: root.viewModel
            topInset: root.topInset
            bottomInset: root.bottomInset
        }
        // qmllint enable unqualified
    }
}
