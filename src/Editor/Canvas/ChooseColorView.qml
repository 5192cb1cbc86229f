import QtQuick

// A row of colour swatches; the chosen one wears a ring.
Flickable {
    id: root

    property var colors
    property color selectedColor

    signal chosen(color color)

    implicitHeight: 44
    contentWidth: swatches.width
    clip: true

    Row {
        id: swatches
        spacing: 6
        leftPadding: 12
        rightPadding: 12

        Repeater {
            model: root.colors
            Rectangle {
                required property color modelData
                required property int index
                objectName: "swatch" + index
                width: 44
                height: 44
                radius: 22
                color: "transparent"
                border.color: Qt.colorEqual(modelData, root.selectedColor) ? "white" : "transparent"
                border.width: 3
                Accessible.role: Accessible.Button
                Accessible.name: qsTr("Colour %1").arg(index + 1)
                Accessible.onPressAction: root.chosen(modelData)

                Rectangle {
                    anchors.centerIn: parent
                    width: 32
                    height: 32
                    radius: 16
                    color: parent.modelData
                    border.color: "#8e8e93"
                    border.width: 1
                }
                TapHandler {
                    onTapped: root.chosen(parent.modelData)
                }
            }
        }
    }
}
