import QtQuick
import Quorvane.SdkImage

// The toolbar for the selected item: rotation, scale, alignment and delete. It only calls the canvas.
Item {
    id: root

    enum Group { None, Rotation, Scale, Alignment }

    required property CanvasViewModel viewModel
    /// The group of buttons shown.
    property int selectedOption: TransformView.None

    // One row at a time, wrapped to the screen's width; what does not fit scrolls up and down.
    Flickable {
        anchors.fill: parent
        contentHeight: rows.height
        flickableDirection: Flickable.VerticalFlick
        clip: true

        Column {
            id: rows
            width: parent.width
            leftPadding: 12
            rightPadding: 12

            Flow {
                width: rows.width - 24
                spacing: 8
                visible: root.selectedOption === TransformView.None
                GrayButton { title: qsTr("Rotation"); iconSource: BrandImage.rotate; onClicked: root.selectedOption = TransformView.Rotation }
                GrayButton { title: qsTr("Scale"); iconSource: BrandImage.resize; onClicked: root.selectedOption = TransformView.Scale }
                GrayButton { title: qsTr("Alignment"); iconSource: BrandImage.alignCenter; onClicked: root.selectedOption = TransformView.Alignment }
                GrayButton { title: qsTr("Delete"); iconSource: BrandImage.trash; onClicked: root.viewModel.deleteSelection() }
                GrayButton { title: qsTr("Done"); onClicked: root.viewModel.closeSelection() }
            }
            Flow {
                width: rows.width - 24
                spacing: 8
                visible: root.selectedOption === TransformView.Rotation
                GrayButton { objectName: "rotationBack"; title: qsTr("Back"); iconSource: BrandImage.back; onClicked: root.selectedOption = TransformView.None }
                GrayButton { title: qsTr("To left"); iconSource: BrandImage.rotate; onClicked: root.viewModel.rotateBy(-90) }
                GrayButton { title: qsTr("To right"); iconSource: BrandImage.rotate; iconMirrored: true; onClicked: root.viewModel.rotateBy(90) }
                GrayButton { title: qsTr("90°"); onClicked: root.viewModel.rotateTo(90) }
                GrayButton { title: qsTr("180°"); onClicked: root.viewModel.rotateTo(180) }
                GrayButton { title: qsTr("270°"); onClicked: root.viewModel.rotateTo(270) }
            }
            Flow {
                width: rows.width - 24
                spacing: 8
                visible: root.selectedOption === TransformView.Scale
                GrayButton { objectName: "scaleBack"; title: qsTr("Back"); iconSource: BrandImage.back; onClicked: root.selectedOption = TransformView.None }
                GrayButton { title: qsTr("Scale down"); iconSource: BrandImage.scaleDown; onClicked: root.viewModel.scaleDown() }
                GrayButton { title: qsTr("Scale up"); iconSource: BrandImage.scaleUp; onClicked: root.viewModel.scaleUp() }
                GrayButton { title: qsTr("0.25x"); onClicked: root.viewModel.scaleTo(0.25) }
                GrayButton { title: qsTr("0.5x"); onClicked: root.viewModel.scaleTo(0.5) }
                GrayButton { title: qsTr("1x"); onClicked: root.viewModel.scaleTo(1.0) }
                GrayButton { title: qsTr("1.25x"); onClicked: root.viewModel.scaleTo(1.25) }
                GrayButton { title: qsTr("2x"); onClicked: root.viewModel.scaleTo(2.0) }
                GrayButton { title: qsTr("4x"); onClicked: root.viewModel.scaleTo(4.0) }
            }
            // The nine places laid out as they lie in the frame, three rows beside the way back.
            Row {
                spacing: 8
                visible: root.selectedOption === TransformView.Alignment

                GrayButton { objectName: "alignmentBack"; title: qsTr("Back"); iconSource: BrandImage.back; showsTitle: false; onClicked: root.selectedOption = TransformView.None }
                Grid {
                    id: alignments
                    // Each label gets a third of what is left beside the way back.
                    readonly property real labelWidth: Math.min(120, (rows.width - 24 - 52 - 16) / 3 - 20)

                    columns: 3
                    spacing: 8
                    GrayButton { title: qsTr("Top leading"); labelWidth: alignments.labelWidth; onClicked: root.viewModel.alignTo(CanvasAlignment.TopLeading) }
                    GrayButton { title: qsTr("Top"); labelWidth: alignments.labelWidth; onClicked: root.viewModel.alignTo(CanvasAlignment.Top) }
                    GrayButton { title: qsTr("Top trailing"); labelWidth: alignments.labelWidth; onClicked: root.viewModel.alignTo(CanvasAlignment.TopTrailing) }
                    GrayButton { title: qsTr("Leading"); labelWidth: alignments.labelWidth; onClicked: root.viewModel.alignTo(CanvasAlignment.Leading) }
                    GrayButton { title: qsTr("Center"); labelWidth: alignments.labelWidth; onClicked: root.viewModel.alignTo(CanvasAlignment.Center) }
                    GrayButton { title: qsTr("Trailing"); labelWidth: alignments.labelWidth; onClicked: root.viewModel.alignTo(CanvasAlignment.Trailing) }
                    GrayButton { title: qsTr("Bottom leading"); labelWidth: alignments.labelWidth; onClicked: root.viewModel.alignTo(CanvasAlignment.BottomLeading) }
                    GrayButton { title: qsTr("Bottom"); labelWidth: alignments.labelWidth; onClicked: root.viewModel.alignTo(CanvasAlignment.Bottom) }
                    GrayButton { title: qsTr("Bottom trailing"); labelWidth: alignments.labelWidth; onClicked: root.viewModel.alignTo(CanvasAlignment.BottomTrailing) }
                }
            }
        }
    }
}
