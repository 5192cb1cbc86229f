import QtQuick
import Quorvane.SdkImage

// The public screen: one session for its lifetime, the editor when there is an image, the error screen when
// there is none. `completion` is emitted with the session's result each time the user leaves.
Rectangle {
    id: root

    required property quorvaneSdkImageEditorPreset preset
    readonly property QuorvaneSdkImageEditorViewModel viewModel: session
    /// Space the host's system bars take at the top and bottom, in points.
    property real topInset: 0
    property real bottomInset: 0

    signal completion(quorvaneSdkImageEditorResult result)

    color: "black"

    QuorvaneSdkImageEditorViewModel {
        id: session
        preset: root.preset
        // The screen keeps drawing, and shows progress, while a large photo is written.
        savesInBackground: true
        onCompletion: (result) => root.completion(result)
    }

    Loader {
        anchors.fill: parent
        // Keys reach the screen shown: Return accepts the alert, Ctrl+Z and Escape reach the pages.
        focus: true
        sourceComponent: !session.started ? null : session.hasImage ? editor : errorScreen
    }

    // Qt 6.4's Loader cannot create bound components (pragma ComponentBehavior: Bound), so qmllint
    // cannot tell that the ids below always resolve here.
    // qmllint disable unqualified
    Component {
        id: editor
        ImageEditorView {
            viewModel: session.editor
            topInset: root.topInset
            bottomInset: root.bottomInset
        }
    }

    Component {
        id: errorScreen
        ErrorView {
            onReturnAction: session.acceptError()
        }
    }
    // qmllint enable unqualified
}
