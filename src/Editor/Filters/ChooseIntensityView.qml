pragma ComponentBehavior: Bound
import QtQuick
import Quorvane.SdkImage

// The intensity ruler: ticks that follow the finger under a fixed centre marker, the value above them.
Item {
    id: root

    required property ChooseIntensityViewModel viewModel
    // The ends of the ruler fade into the page.
    property bool fadesEnds: false

    implicitHeight: valueLabel.height + 8 + root.viewModel.segmentSize.height + 8
    clip: true
    activeFocusOnTab: true
    onWidthChanged: root.viewModel.setupElementsSize(width)
    Accessible.role: Accessible.Slider
    Accessible.name: qsTr("Intensity")
    Accessible.description: root.viewModel.intensityText
    Accessible.onIncreaseAction: root.viewModel.step(1)
    Accessible.onDecreaseAction: root.viewModel.step(-1)
    // An arrow key moves the ruler by one tick, as a short drag does.
    Keys.onLeftPressed: root.viewModel.step(-1)
    Keys.onRightPressed: root.viewModel.step(1)

    Text {
        id: valueLabel
        objectName: "intensityValue"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: parent.top
        text: root.viewModel.intensityText
        color: "white"
        font.pixelSize: 13
        font.bold: true
    }

    Row {
        id: ruler
        objectName: "intensityRuler"

        anchors.top: valueLabel.bottom
        anchors.topMargin: 8
        x: root.viewModel.offset + drag.translationX
        spacing: root.viewModel.segmentSpacing

        Repeater {
            model: root.viewModel.segmentNumber

            Rectangle {
                width: root.viewModel.segmentSize.width
                height: root.viewModel.segmentSize.height
                radius: width / 2
                color: "#8e8e93"
            }
        }
    }

    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: ruler.top
        anchors.bottom: ruler.bottom
        visible: root.fadesEnds
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0.0; color: "black" }
            GradientStop { position: 0.3; color: "transparent" }
            GradientStop { position: 0.7; color: "transparent" }
            GradientStop { position: 1.0; color: "black" }
        }
    }

    Rectangle {
        objectName: "intensityMarker"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.verticalCenter: ruler.verticalCenter
        width: 3
        height: root.viewModel.segmentSize.height + 8
        radius: 1.5
        color: BrandColor.ambar
    }

    // Inside the ruler, which clips.
    FocusRing {
        margin: 0
        radius: 8
        visible: root.activeFocus
    }

    // Only once the ruler knows its width: before that a drag of nothing would give no number.
    SidewaysDragHandler {
        id: drag
        enabled: root.width > 0
        onDragChanged: (translation) => root.viewModel.handleDragOnChange(translation)
        onDragEnded: (translation) => root.viewModel.handleDragOnEnded(translation)
    }
}
