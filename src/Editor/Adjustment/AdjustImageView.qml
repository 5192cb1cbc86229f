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

    Item {
        id: topOptions
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.topMargin: root.topInset
        height: 60

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
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: topOptions.bottom
        anchors.bottom: selectAdjustment.top
        anchors.margins: 16
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
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: chooseIntensity.top
        anchors.bottomMargin: 12
        viewModel: root.viewModel.selectAdjustmentViewModel
    }

    ChooseIntensityLevelView {
        id: chooseIntensity
        objectName: "chooseIntensityLevelView"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: bottomOptions.top
        anchors.bottomMargin: 16
        viewModel: root.viewModel.chooseIntensityViewModel
    }

    ToolPageBar {
        id: bottomOptions
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: root.bottomInset + 16
        viewModel: root.viewModel
    }
}
