import QtQuick
import Quorvane.SdkImage

// The adjustments' dial: an arc that fills with the intensity, over a ruler of ticks whose ends fade.
Column {
    id: root

    required property ChooseIntensityLevelViewModel viewModel

    spacing: 4

    PartialCircle {
        objectName: "intensityArc"
        anchors.horizontalCenter: parent.horizontalCenter
        width: 96
        height: 56
        // The upper half of a circle, filled from the left.
        startAngle: 180
        sweepAngle: -180
        progress: root.viewModel.intensityFraction
        lineWidth: 5
        color: BrandColor.ambar
        trackColor: "#3a3a3c"
    }
    ChooseIntensityView {
        width: root.width
        viewModel: root.viewModel
        fadesEnds: true
    }
}
