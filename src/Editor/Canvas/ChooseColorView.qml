pragma ComponentBehavior: Bound
import QtQuick
import Quorvane.SdkImage

// A row of colour swatches, each named after the row and its place; the chosen one wears a ring. The row
// opens with the chosen swatch in view, and a fade at an edge tells that more swatches lie beyond it.
ListView {
    id: root

    property var colors
    property color selectedColor
    /// The chosen swatch's place in `colors`, -1 for none.
    property int selectedIndex: -1

    signal chosen(color color)

    implicitHeight: 44
    orientation: ListView.Horizontal
    spacing: 6
    leftMargin: 12
    rightMargin: 12
    clip: true
    model: root.colors
    activeFocusOnTab: true
    // Laid out (or turned with the screen), the row centres the chosen swatch where it can: whichever of
    // its width and its swatches comes last.
    onWidthChanged: if (root.selectedIndex >= 0 && root.count > root.selectedIndex) positionViewAtIndex(root.selectedIndex, ListView.Center)
    onCountChanged: if (root.selectedIndex >= 0 && root.count > root.selectedIndex && root.width > 0) positionViewAtIndex(root.selectedIndex, ListView.Center)
    // The keyboard starts from the chosen swatch.
    onActiveFocusChanged: {
        if (root.activeFocus && root.selectedIndex >= 0)
            root.currentIndex = root.selectedIndex
    }
    boundsBehavior: Flickable.StopAtBounds
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Colours")

    delegate: BrandButton {
        id: swatch

        required property color modelData
        required property int index

        objectName: root.objectName + swatch.index
        width: 44
        height: 44
        // One stop for the whole row: the row hands the focus to its current swatch, the arrows move it
        // along, Space or Return chooses.
        focusPolicy: Qt.NoFocus
        // Within the chosen swatch's white ring, so that both show.
        showsFocusRing: swatch.activeFocus
        focusMargin: -4
        focusRadius: 18
        text: qsTr("Colour %1").arg(swatch.index + 1)
        onClicked: root.chosen(swatch.modelData)

        background: Rectangle {
            radius: 22
            color: "transparent"
            border.color: Qt.colorEqual(swatch.modelData, root.selectedColor) ? "white" : "transparent"
            border.width: 3
        }
        Rectangle {
            anchors.centerIn: parent
            width: 32
            height: 32
            radius: 16
            color: swatch.modelData
            border.color: "#8e8e93"
            border.width: 1
        }
    }

    Rectangle {
        objectName: root.objectName + "FadeStart"
        anchors.left: parent.left
        width: 28
        height: parent.height
        visible: !root.atXBeginning
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0; color: "black" }
            GradientStop { position: 1; color: "transparent" }
        }
    }
    Rectangle {
        objectName: root.objectName + "FadeEnd"
        anchors.right: parent.right
        width: 28
        height: parent.height
        visible: !root.atXEnd
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0; color: "transparent" }
            GradientStop { position: 1; color: "black" }
        }
    }
}
