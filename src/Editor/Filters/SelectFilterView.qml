pragma ComponentBehavior: Bound
import QtQuick
import Quorvane.SdkImage

// A carousel of catalogue entries: the strip follows the finger, snaps to an entry when it lifts, and marks
// and names the entry selected.
Item {
    id: root

    required property SelectFilterViewModel viewModel
    // Photos and swatches sit on a checkerboard where transparent; symbols do not.
    property bool showsTransparency: true

    implicitHeight: root.viewModel.filterImageSize + 36
    clip: true
    activeFocusOnTab: true
    onWidthChanged: root.viewModel.setupElementsSize(width)
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Choices")
    // An arrow key moves the selection by one entry, as a short swipe does.
    Keys.onLeftPressed: root.viewModel.step(-1)
    Keys.onRightPressed: root.viewModel.step(1)

    Row {
        id: strip
        objectName: "carouselStrip"

        y: 6
        x: root.viewModel.offset + drag.translationX
        spacing: root.viewModel.spacing

        // Snaps into place when the finger lifts; follows the finger exactly while it is down.
        Behavior on x {
            enabled: !drag.active
            NumberAnimation {
                duration: 160
                easing.type: Easing.OutCubic
            }
        }

        Repeater {
            model: root.viewModel.entries

            Item {
                id: entry

                required property var modelData
                readonly property bool isSelected: entry.modelData.index === root.viewModel.selectedIndex

                width: root.viewModel.filterImageSize
                height: root.viewModel.filterImageSize
                Accessible.role: Accessible.ListItem
                Accessible.name: qsTranslate("Filter", entry.modelData.name)
                Accessible.selected: entry.isSelected

                ImagePreview {
                    anchors.fill: parent
                    showsTransparency: root.showsTransparency
                    image: entry.modelData.image
                }
                Rectangle {
                    anchors.fill: parent
                    anchors.margins: -4
                    radius: 6
                    color: "transparent"
                    border.color: BrandColor.ambar
                    border.width: 2
                    visible: entry.isSelected
                }
            }
        }
    }

    Text {
        objectName: "selectedEntryName"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        text: qsTranslate("Filter", root.viewModel.selectedName)
        color: "white"
        font.pixelSize: 13
    }

    // Inside the carousel, which clips.
    FocusRing {
        margin: 0
        radius: 8
        visible: root.activeFocus
    }

    // Only once the carousel knows its width: a drag before that has no bounds to keep to.
    SidewaysDragHandler {
        id: drag
        enabled: root.width > 0
        onDragChanged: (translation) => root.viewModel.handleDragOnChange(translation)
        onDragEnded: (translation) => root.viewModel.handleDragOnEnded(translation)
    }
}
