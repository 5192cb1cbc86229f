import QtQuick
import QtQuick.Shapes
import Quorvane.SdkImage

// One finger draws: the stroke starts where it goes down, every move adds a point inside the frame, and
// lifting it ends the stroke.
Item {
    id: root

    required property CanvasViewModel viewModel

    Shape {
        anchors.fill: parent
        ShapePath {
            strokeColor: root.viewModel.selectedColor
            strokeWidth: root.viewModel.selectedlineWidth
            fillColor: "transparent"
            capStyle: ShapePath.FlatCap
            joinStyle: ShapePath.MiterJoin
            PathPolyline { path: root.viewModel.currentLinePoints }
        }
    }
    MouseArea {
        objectName: "drawingSurface"
        anchors.fill: parent
        preventStealing: true
        onPressed: (mouse) => root.viewModel.beginStroke(Qt.point(mouse.x, mouse.y), Qt.size(width, height))
        onPositionChanged: (mouse) => root.viewModel.handleNewPoint(Qt.point(mouse.x, mouse.y),
                                                                    Qt.size(width, height))
        onReleased: (mouse) => root.viewModel.addFinalPoint(Qt.point(mouse.x, mouse.y), Qt.size(width, height))
    }
}
