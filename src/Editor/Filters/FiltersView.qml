import QtQuick
import Quorvane.SdkImage

// The filters page: undo above, the picture with the chosen swatch over it, the carousel of entries and the
// intensity ruler, and "CANCEL" / "ACCEPT" below.
Rectangle {
    id: root

    required property FiltersViewModel viewModel
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
            objectName: "filtersUndoButton"
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
        anchors.bottom: selectFilter.top
        anchors.margins: 16
        onWidthChanged: root.viewModel.setupImageSize(Qt.size(width, height))
        onHeightChanged: root.viewModel.setupImageSize(Qt.size(width, height))

        Item {
            objectName: "filtersImageFrame"
            anchors.centerIn: parent
            width: root.viewModel.imageFrameSize.width
            height: root.viewModel.imageFrameSize.height

            ImagePreview {
                anchors.fill: parent
                showsTransparency: true
                image: root.viewModel.image
                Accessible.role: Accessible.Graphic
                Accessible.name: qsTr("Picture with the chosen filter")
            }
            Rectangle {
                objectName: "filtersSwatch"
                anchors.fill: parent
                color: root.viewModel.selectedSwatchColor
            }
        }
    }

    SelectFilterView {
        id: selectFilter
        objectName: "selectFilterView"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: chooseIntensity.top
        anchors.bottomMargin: 12
        viewModel: root.viewModel.selectFilterViewModel
    }

    ChooseIntensityView {
        id: chooseIntensity
        objectName: "chooseIntensityView"
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
