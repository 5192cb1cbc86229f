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

    EditorLayout {
        id: layout
        size: Qt.size(root.width, root.height)
        topInset: root.topInset
        bottomInset: root.bottomInset
    }

    Item {
        id: basePage
        objectName: "basePage"

        anchors.fill: parent
        visible: root.viewModel.page === ImageEditorViewModel.Base
        // Nothing else is taken while the editor asks before closing or saves.
        enabled: !root.viewModel.isConfirmingClose && !root.viewModel.isWorking
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
            enabled: basePage.visible && basePage.enabled
            // Qt 6.4's qmllint cannot see StandardKey, which QtQuick registers as a value type.
            sequences: [StandardKey.Undo] // qmllint disable unqualified
            onActivated: root.viewModel.restoreLastImageVersion()
        }

        ImagePreview {
            objectName: "currentImage"
            x: layout.picture.x
            y: layout.picture.y
            width: layout.picture.width
            height: layout.picture.height
            showsTransparency: true
            image: root.viewModel.image
            Accessible.role: Accessible.Graphic
            Accessible.name: qsTr("Picture being edited")
        }

        Item {
            id: topBar
            x: layout.topBar.x
            y: layout.topBar.y
            width: layout.topBar.width
            height: layout.topBar.height

            CircularButton {
                objectName: "closeButton"
                anchors.left: parent.left
                anchors.leftMargin: 12
                anchors.verticalCenter: parent.verticalCenter
                iconSource: BrandImage.close
                accessibleName: qsTr("Close")
                onClicked: root.viewModel.requestClose()
            }
            Row {
                anchors.right: parent.right
                anchors.rightMargin: 12
                anchors.verticalCenter: parent.verticalCenter
                spacing: 12
                visible: root.viewModel.hasPreviousImageVersions

                CircularButton {
                    objectName: "undoButton"
                    iconSource: BrandImage.undo
                    accessibleName: qsTr("Undo")
                    onClicked: root.viewModel.restoreLastImageVersion()
                }
                BrandButton {
                    id: continueButton
                    objectName: "continueButton"
                    implicitWidth: continueLabel.implicitWidth + 32
                    implicitHeight: 44
                    text: continueLabel.text
                    onClicked: root.viewModel.finish()

                    background: Rectangle {
                        radius: 8
                        // Held down while the picture is written.
                        color: continueButton.pressed || root.viewModel.isWorking ? "#5a5a5e" : BrandColor.gray
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

        Rectangle {
            id: tabBar
            objectName: "tabBar"

            x: layout.tabBar.x
            y: layout.tabBar.y
            width: layout.tabBar.width
            height: layout.tabBar.height
            color: BrandColor.gray

            // The tabs lead; on a wide screen they lead a centred column rather than the screen's edge.
            Row {
                x: layout.controls.x - layout.tabBar.x + 16
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

        WorkIndicator {
            objectName: "savingIndicator"
            x: layout.picture.x
            y: layout.picture.y
            width: layout.picture.width
            height: layout.picture.height
            running: root.viewModel.isWorking
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

    Loader {
        anchors.fill: parent
        // Keys go to the question while it is open.
        focus: active
        active: root.viewModel.isConfirmingClose
        // qmllint disable unqualified
        sourceComponent: DiscardEditsView {
            onDiscard: root.viewModel.discardEdits()
            onKeepEditing: root.viewModel.keepEditing()
        }
        // qmllint enable unqualified
    }
}
