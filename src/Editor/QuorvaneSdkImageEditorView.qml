import QtQuick
import Quorvane.SdkImage

// The public screen: one session for its lifetime, the editor when there is an image, the error screen when
// there is none. `completion` is emitted with the session's result each time the user leaves.
Rectangle {
    id: root

    required property quorvaneSdkImageEditorPreset preset
    readonly property QuorvaneSdkImageEditorViewModel viewModel: session

    signal completion(quorvaneSdkImageEditorResult result)

    color: "black"

    QuorvaneSdkImageEditorViewModel {
        id: session
        preset: root.preset
    }

    Loader {
        anchors.fill: parent
        sourceComponent: !session.started ? null : session.hasImage ? editor : errorScreen
    }

    Component {
        id: editor
        ImagePreview {
            objectName: "currentImage"
            image: session.image
        }
    }

    Component {
        id: errorScreen
        ErrorView {
            onReturnAction: root.completion(session.resultFor(undefined))
        }
    }
}
