import QtQuick
import Quorvane.SdkImage

// What every tool page ends with: "CANCEL" and the page's accept button, with Escape and Undo keys.
Row {
    id: root

    required property ToolPageViewModel viewModel
    property string acceptTitle: qsTr("ACCEPT")
    property bool acceptEnabled: true
    // Off while the page shows a screen of its own that takes the keys (text entry).
    property bool keysEnabled: true

    spacing: 16

    Shortcut {
        // Qt 6.4's qmllint cannot see StandardKey, which QtQuick registers as a value type.
        sequences: [StandardKey.Undo] // qmllint disable unqualified
        enabled: root.keysEnabled && !root.viewModel.isWorking
        onActivated: root.viewModel.undoLastAction()
    }
    Shortcut {
        sequence: "Escape"
        autoRepeat: false
        enabled: root.keysEnabled && !root.viewModel.isWorking
        onActivated: root.viewModel.cancel()
    }
    OutlineButton {
        objectName: "cancelButton"
        title: qsTr("CANCEL")
        onClicked: root.viewModel.cancel()
    }
    FilledButton {
        objectName: "acceptButton"
        title: root.acceptTitle
        isDisabled: !root.acceptEnabled
        isWorking: root.viewModel.isWorking
        onClicked: root.viewModel.acceptInBackground()
    }
}
