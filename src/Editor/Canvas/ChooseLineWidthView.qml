import QtQuick
import QtQuick.Controls.Basic
import Quorvane.SdkImage

// The stroke width, 4 to 20 points; letting go of the slider (or a key that moves it) sets it.
Item {
    id: root

    required property CanvasViewModel viewModel

    implicitHeight: 44

    Slider {
        id: slider
        objectName: "lineWidthSlider"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: 16
        anchors.verticalCenter: parent.verticalCenter
        from: 4
        to: 20
        stepSize: 1
        value: root.viewModel.selectedlineWidth
        Accessible.name: qsTr("Line width")
        onPressedChanged: if (!pressed) root.viewModel.setLineWidthFromPicker(value)
        // Arrow keys move it without a press.
        onMoved: if (!pressed) root.viewModel.setLineWidthFromPicker(value)

        background: Rectangle {
            x: slider.leftPadding
            y: slider.topPadding + slider.availableHeight / 2 - height / 2
            width: slider.availableWidth
            height: 4
            radius: 2
            color: "#48484a"
            Rectangle {
                width: slider.visualPosition * parent.width
                height: parent.height
                radius: 2
                color: BrandColor.ambar
            }
        }
    }
}
