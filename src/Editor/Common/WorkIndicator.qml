import QtQuick
import QtQuick.Controls.Basic

// A spinner over an area while work runs. It shows only past about 150 ms, so quick work never flashes it,
// and goes the moment the work ends.
Item {
    id: root

    property bool running: false

    visible: root.running && root.opacity > 0
    opacity: root.running ? 1 : 0
    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("Working")
    Accessible.ignored: !root.visible

    Behavior on opacity {
        SequentialAnimation {
            PauseAnimation { duration: 150 }
            NumberAnimation { duration: 100 }
        }
    }

    Rectangle {
        anchors.centerIn: parent
        width: 72
        height: 72
        radius: 16
        color: "#b3000000"

        BusyIndicator {
            objectName: "busyIndicator"
            anchors.centerIn: parent
            width: 48
            height: 48
            // White on the dark square, seen over any photo.
            palette.dark: "white"
            running: root.visible
        }
    }
}
