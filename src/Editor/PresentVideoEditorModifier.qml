import QtQuick
import QtQuick.Templates as T
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

    /// The editor screen shown (a QuorvaneSdkImageEditorView), or null while the cover is closed.
    readonly property Item editor: loader.item as Item

    // A modal popup on the window's overlay: above everything the host shows, and neither a finger nor
    // the Tab key reaches the host's controls under it.
    T.Popup {
        id: cover

        parent: T.Overlay.overlay
        width: parent ? parent.width : 0
        height: parent ? parent.height : 0
        padding: 0
        modal: true
        focus: true
        closePolicy: T.Popup.NoAutoClose
        visible: modifier.isPresented

        // Every opening is a new session, even one that interrupts the cover sliding away.
        onAboutToShow: {
            loader.active = false
            loader.active = true
        }
        onClosed: loader.active = false

        enter: Transition {
            NumberAnimation { property: "y"; from: cover.height; to: 0; duration: 250; easing.type: Easing.OutCubic }
        }
        exit: Transition {
            NumberAnimation { property: "y"; from: 0; to: cover.height; duration: 250; easing.type: Easing.InCubic }
        }

        Loader {
            id: loader
            anchors.fill: parent
            active: false
            // Once the host takes the cover away, nothing on it answers any more.
            enabled: modifier.isPresented
            focus: true
            // Bound components stop Loader from creating anything on Qt 6.4, so the screen reaches the
            // modifier by id.
            // qmllint disable unqualified
            sourceComponent: QuorvaneSdkImageEditorView {
                preset: modifier.preset
                onCompletion: (result) => modifier.completion(result)
            }
            // qmllint enable unqualified
        }
    }
}
