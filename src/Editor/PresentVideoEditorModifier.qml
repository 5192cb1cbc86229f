import QtQuick
import Quorvane.SdkImage

// Covers the whole window with a new editing session while the host's `isPresented` is true, wherever in
// the host's items it is declared. It never writes `isPresented`: the host closes the cover by setting its
// own flag to false, usually in its `onCompletion` handler. The name is kept from the first host API,
// although the editor edits images.
Item {
    id: modifier

    property bool isPresented: false
    property quorvaneSdkImageEditorPreset preset
    /// The session's result, each time the user leaves the editor, as the editor screen hands it over.
    signal completion(quorvaneSdkImageEditorResult result)

    readonly property Item window: Window.contentItem
    /// The editor screen shown (a QuorvaneSdkImageEditorView), or null while the cover is closed.
    readonly property Item editor: loader.item as Item

    onIsPresentedChanged: modifier.isPresented ? cover.open() : cover.close()
    Component.onCompleted: if (modifier.isPresented) cover.open()

    FocusScope {
        id: cover

        function open() {
            // Every opening is a new session, even one that interrupts the cover sliding away.
            loader.sourceComponent = null
            loader.sourceComponent = editorScreen
            slide.enabled = false
            cover.y = cover.height
            slide.enabled = true
            cover.y = 0
            cover.forceActiveFocus()
        }
        function close() {
            cover.y = cover.height
        }

        parent: modifier.window ? modifier.window : modifier
        width: parent.width
        height: parent.height
        // Above everything the host puts in its window.
        z: 1e6
        visible: loader.item !== null
        focus: visible

        Behavior on y {
            id: slide
            NumberAnimation {
                duration: 250
                easing.type: Easing.OutCubic
                onRunningChanged: if (!running && !modifier.isPresented) loader.sourceComponent = null
            }
        }

        // Taps and wheels never reach the host under the cover.
        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.AllButtons
            onWheel: (wheel) => wheel.accepted = true
        }

        Loader {
            id: loader
            anchors.fill: parent
            focus: true
        }
    }

    // Bound components stop Loader from creating anything on Qt 6.4, so the screen reaches the modifier by id.
    // qmllint disable unqualified
    Component {
        id: editorScreen
        QuorvaneSdkImageEditorView {
            preset: modifier.preset
            onCompletion: (result) => modifier.completion(result)
        }
    }
    // qmllint enable unqualified
}
