import QtQuick
import Quorvane.SdkImage

// Marks the control the keyboard is on: an outline in the brand colour around its parent.
Rectangle {
    id: root

    /// How far outside the parent the outline lies (inside when negative).
    property real margin: 4

    anchors.fill: parent
    anchors.margins: -root.margin
    color: "transparent"
    border.color: BrandColor.ambar
    border.width: 2
}
