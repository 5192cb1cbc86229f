import QtQuick
import Quorvane.SdkImage

// The editor: the current image between a top bar and a tab bar, with one tool page at a time over it.
Rectangle {
    id: root

    required property ImageEditorViewModel viewModel
    property real topInset: 0
    property real bottomInset: 0

    color: "black"
    // Once the editor has answered, the host takes it away: until then nothing in it acts.
    enabled: !root.viewModel.hasReturned

    Item {
        id: basePage
        objectName: "basePage"

        anchors.fill: parent
        visible: root.viewModel.page === ImageEditorViewModel.Base
        // Springs back into place when a tool page closes, as tool pages spring open.
        scale: visible ? 1 : 0.95

        Behavior on scale {
            SpringAnimation {
                spring: 5
                damping: 0.4
                epsilon: 0.001
            }
        }

        Shortcut {
            enabled: basePage.visible
            // Qt 6.4's qmllint cannot see StandardKey, which QtQuick registers as a value type.
            sequences: [StandardKey.Undo] // qmllint disable unqualified
            onActivated: root.viewModel.restoreLastImageVersion()
        }

        Rectangle {
            id: topBar
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: parent.top
            height: root.topInset + 60
            color: "black"

            Row {
                anchors.left: parent.left
                anchors.leftMargin: 12
                anchors.bottom: parent.bottom
                anchors.bottomMargin: 8

                CircularButton {
                    objectName: "closeButton"
                    iconSource: BrandImage.close
                    accessibleName: qsTr("Close")
                    onClicked: root.viewModel.close()
                }
            }
            Row {
                anchors.right: parent.right
                anchors.rightMargin: 12
                anchors.bottom: parent.bottom
                anchors.bottomMargin: 8
                spacing: 12
                visible: root.viewModel.hasPreviousImageVersions

                CircularButton {
                    objectName: "undoButton"
                    iconSource: BrandImage.undo
                    accessibleName: qsTr("Undo")
                    onClicked: root.viewModel.restoreLastImageVersion()
                }
                BrandButton {
                    objectName: "continueButton"
                    implicitWidth: continueLabel.implicitWidth + 32
                    implicitHeight: 44
                    text: continueLabel.text
                    onClicked: root.viewModel.finish()

                    background: Rectangle {
                        radius: 8
                        color: BrandColor.gray
                        border.color: "white"
                        border.width: 2
                    }
                    Text {
                        id: continueLabel
                        anchors.centerIn: parent
                        text: qsTr("CONTINUE")
                        color: "white"
                        font.pixelSize: 16
                        font.bold: true
                    }
                }
            }
        }

        ImagePreview {
            objectName: "currentImage"
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: topBar.bottom
            anchors.bottom: tabBar.top
            anchors.margins: 8
            showsTransparency: true
            image: root.viewModel.image
            Accessible.role: Accessible.Graphic
            Accessible.name: qsTr("Picture being edited")
        }

        Rectangle {
            id: tabBar
            objectName: "tabBar"

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: 72 + root.bottomInset
            color: BrandColor.gray

            Row {
                anchors.left: parent.left
                anchors.leftMargin: 16
                anchors.top: parent.top
                anchors.topMargin: 8
                spacing: 24

                EditorTab {
                    objectName: "cropTab"
                    title: qsTr("Crop")
                    iconSource: BrandImage.crop
                    onClicked: root.viewModel.navigate(ImageEditorViewModel.Crop)
                }
                EditorTab {
                    objectName: "drawTab"
                    title: qsTr("Draw")
                    iconSource: BrandImage.canvas
                    onClicked: root.viewModel.navigate(ImageEditorViewModel.Canvas)
                }
                // Built and reachable, but not offered: they keep their place so the others do not move.
                EditorTab {
                    objectName: "filtersTab"
                    title: qsTr("Filters")
                    iconSource: BrandImage.filters
                    opacity: 0
                    enabled: false
                    onClicked: root.viewModel.navigate(ImageEditorViewModel.Filters)
                }
                EditorTab {
                    objectName: "adjustTab"
                    title: qsTr("Adjust")
                    iconSource: BrandImage.resize
                    opacity: 0
                    enabled: false
                    onClicked: root.viewModel.navigate(ImageEditorViewModel.Adjust)
                }
            }
        }
    }

    Loader {
        id: toolPage
        objectName: "toolPage"

        anchors.fill: parent
        active: root.viewModel.page !== ImageEditorViewModel.Base
        sourceComponent: {
            switch (root.viewModel.page) {
            case ImageEditorViewModel.Crop: return cropPage
            case ImageEditorViewModel.Canvas: return canvasPage
            case ImageEditorViewModel.Filters: return filtersPage
            case ImageEditorViewModel.Adjust: return adjustPage
            }
            return null
        }
        // Each page springs into place once, when it opens.
        onLoaded: pageSpring.restart()
    }

    // The spring moves the loader, which outlives every page it shows: a page closed mid-spring takes
    // nothing down with it.
    SpringAnimation {
        id: pageSpring
        objectName: "pageSpring"
        target: toolPage
        property: "scale"
        from: 0.9
        to: 1
        spring: 5
        damping: 0.4
        epsilon: 0.001
    }

    // Qt 6.4's Loader cannot create bound components (pragma ComponentBehavior: Bound), so qmllint
    // cannot tell that the ids below always resolve here.
    // qmllint disable unqualified
    Component {
        id: cropPage
        CropperView {
            viewModel: root.viewModel.cropper
            topInset: root.topInset
            bottomInset: root.bottomInset
        }
    }

    Component {
        id: canvasPage
        CanvasView {
            viewModel: root.viewModel.canvas
            topInset: root.topInset
            bottomInset: root.bottomInset
        }
    }

    Component {
        id: filtersPage
        FiltersView {
            viewModel: root.viewModel.filters
            topInset: root.topInset
            bottomInset: root.bottomInset
        }
    }

    Component {
        id: adjustPage
        AdjustImageView {
            viewModel: root.viewModel.adjustment
            topInset: root.topInset
            bottomInset: root.bottomInset
        }
    }
    // qmllint enable unqualified
}
