import QtQuick
import Quorvane.SdkImage

// The toolbar for the selected item: rotation, scale, alignment and delete. It only calls the canvas.
Item {
    id: root

    required property CanvasViewModel viewModel
    /// The group shown: "none", "rotation", "scale" or "alignment".
    property string selectedOption: "none"

    Flickable {
        anchors.fill: parent
        contentWidth: rows.width
        clip: true

        Column {
            id: rows
            spacing: 8
            leftPadding: 12
            rightPadding: 12

            Row {
                spacing: 8
                GrayButton { title: qsTr("Rotation"); icon: BrandImage.rotate; onClicked: root.selectedOption = "rotation" }
                GrayButton { title: qsTr("Scale"); icon: BrandImage.resize; onClicked: root.selectedOption = "scale" }
                GrayButton { title: qsTr("Alignment"); icon: BrandImage.move; onClicked: root.selectedOption = "alignment" }
                GrayButton { title: qsTr("Delete"); icon: BrandImage.close; onClicked: root.viewModel.deleteSelection() }
                GrayButton { title: qsTr("Done"); icon: BrandImage.back; onClicked: root.viewModel.closeSelection() }
            }
            Row {
                spacing: 8
                visible: root.selectedOption === "rotation"
                GrayButton { title: qsTr("To left"); icon: BrandImage.rotate; onClicked: root.viewModel.rotateBy(-90) }
                GrayButton { title: qsTr("To right"); icon: BrandImage.rotate; iconMirrored: true; onClicked: root.viewModel.rotateBy(90) }
                GrayButton { title: qsTr("90°"); onClicked: root.viewModel.rotateTo(90) }
                GrayButton { title: qsTr("180°"); onClicked: root.viewModel.rotateTo(180) }
                GrayButton { title: qsTr("270°"); onClicked: root.viewModel.rotateTo(270) }
            }
            Row {
                spacing: 8
                visible: root.selectedOption === "scale"
                GrayButton { title: qsTr("Scale down"); icon: BrandImage.scaleDown; onClicked: root.viewModel.scaleDown() }
                GrayButton { title: qsTr("Scale up"); icon: BrandImage.scaleUp; onClicked: root.viewModel.scaleUp() }
                GrayButton { title: qsTr("0.25x"); onClicked: root.viewModel.scaleTo(0.25) }
                GrayButton { title: qsTr("0.5x"); onClicked: root.viewModel.scaleTo(0.5) }
                GrayButton { title: qsTr("1x"); onClicked: root.viewModel.scaleTo(1.0) }
                GrayButton { title: qsTr("1.25x"); onClicked: root.viewModel.scaleTo(1.25) }
                GrayButton { title: qsTr("2x"); onClicked: root.viewModel.scaleTo(2.0) }
                GrayButton { title: qsTr("4x"); onClicked: root.viewModel.scaleTo(4.0) }
            }
            Row {
                spacing: 8
                visible: root.selectedOption === "alignment"
                GrayButton { title: qsTr("Top leading"); onClicked: root.viewModel.alignTo("topLeading") }
                GrayButton { title: qsTr("Top"); onClicked: root.viewModel.alignTo("top") }
                GrayButton { title: qsTr("Top trailing"); onClicked: root.viewModel.alignTo("topTrailing") }
                GrayButton { title: qsTr("Leading"); onClicked: root.viewModel.alignTo("leading") }
                GrayButton { title: qsTr("Center"); onClicked: root.viewModel.alignTo("center") }
                GrayButton { title: qsTr("Trailing"); onClicked: root.viewModel.alignTo("trailing") }
                GrayButton { title: qsTr("Bottom leading"); onClicked: root.viewModel.alignTo("bottomLeading") }
                GrayButton { title: qsTr("Bottom"); onClicked: root.viewModel.alignTo("bottom") }
                GrayButton { title: qsTr("Bottom trailing"); onClicked: root.viewModel.alignTo("bottomTrailing") }
            }
        }
    }
}
