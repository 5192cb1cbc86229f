import QtQuick
import Quorvane.SdkImage

// The adjustments page: the picture, the carousel of adjustments and the intensity dial, and "CANCEL" /
// "ACCEPT" below.
Rectangle {
    id: root

    required property AdjustImageViewModel viewModel
    property real topInset: 0
    property real bottomInset: 0

    color: "black"
    // While the result is made, the page takes nothing more.
    enabled: !root.viewModel.isWorking

    EditorLayout {
        id: layout
        size: Qt.size(root.width, root.height)
        topInset: root.topInset
        bottomInset: root.bottomInset
    }

    Item {
        id: topOptions
        x: layout.topBar.x
        y: layout.topBar.y
        width: layout.topBar.width
        height: layout.topBar.height

        CircularButton {
            objectName: "adjustUndoButton"
            anchors.left: parent.left
            anchors.leftMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            visible: root.viewModel.hasTrackedActions
            iconSource: BrandImage.undo
            accessibleName: qsTr("Undo")
            onClicked: root.viewModel.undoLastAction()
        }
    }

    Item {
        id: imageArea
        // The page's controls are taller than the canvas's: in portrait the picture ends above them.
        x: layout.picture.x
        y: layout.picture.y
        width: layout.picture.width
        height: layout.isLandscape ? layout.picture.height
                                   : Math.min(layout.picture.height, selectAdjustment.y - 12 - layout.picture.y)
        onWidthChanged: root.viewModel.setupImageSize(Qt.size(width, height))
        onHeightChanged: root.viewModel.setupImageSize(Qt.size(width, height))

        ImagePreview {
            objectName: "adjustImageFrame"
            anchors.centerIn: parent
            width: root.viewModel.imageFrameSize.width
            height: root.viewModel.imageFrameSize.height
            showsTransparency: true
            image: root.viewModel.image
            Accessible.role: Accessible.Graphic
            Accessible.name: qsTr("Picture being adjusted")
        }
    }

    SelectAdjustmentView {
        id: selectAdjustment
        objectName: "selectAdjustmentView"
        x: layout.controls.x
        width: layout.controls.width
        anchors.bottom: chooseIntensity.top
        anchors.bottomMargin: 12
        viewModel: root.viewModel.selectAdjustmentViewModel
    }

    ChooseIntensityLevelView {
        id: chooseIntensity
        objectName: "chooseIntensityLevelView"
        x: layout.controls.x
        width: layout.controls.width
        y: layout.bottomBar.y - height - 8
        viewModel: root.viewModel.chooseIntensityViewModel
    }

    ToolPageBar {
        id: bottomOptions
        x: layout.bottomBar.x + (layout.bottomBar.width - width) / 2
        y: layout.bottomBar.y + (layout.bottomBar.height - height) / 2
        viewModel: root.viewModel
    }
}
