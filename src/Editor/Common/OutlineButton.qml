import QtQuick

// A rectangular button with a white outline, for the secondary choice.
Rectangle {
    id: root

    property string title

    signal clicked()

    implicitWidth: Math.max(120, label.implicitWidth + 32)
    implicitHeight: 44
    radius: 8
    color: tap.pressed ? "#48484a" : "transparent"
    border.color: "white"
    border.width: 2
    Accessible.role: Accessible.Button
    Accessible.name: root.title
    Accessible.onPressAction: root.clicked()

    Text {
        id: label
        anchors.centerIn: parent
        text: root.title
        color: "white"
        font.pixelSize: 16
        font.bold: true
    }
    TapHandler {
        id: tap
        onTapped: root.clicked()
    }
}
