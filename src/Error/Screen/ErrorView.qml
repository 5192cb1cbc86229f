import QtQuick
import Quorvane.SdkImage

// A black screen with an alert that cannot be dismissed except by its one button.
Rectangle {
    id: root

    /// An ErrorType value; unloadedImage unless set.
    property alias errorType: viewModel.errorType

    signal returnAction(int errorType)

    color: "black"

    ErrorViewModel {
        id: viewModel
    }

    Rectangle {
        id: alert
        objectName: "alert"

        anchors.centerIn: parent
        width: Math.min(parent.width - 48, 300)
        height: content.implicitHeight
        radius: 14
        color: "#f2f2f2"
        // Return accepts the alert from the start. The button takes the focus only from Tab, so that its
        // ring shows for the keyboard and never for a finger.
        focus: true
        Accessible.role: Accessible.AlertMessage
        Accessible.name: title.text
        Accessible.description: message.text
        Keys.onReturnPressed: root.returnAction(root.errorType)
        Keys.onEnterPressed: root.returnAction(root.errorType)

        Column {
            id: content
            width: parent.width

            Item { width: 1; height: 20 }
            Text {
                id: title
                objectName: "alertTitle"
                width: parent.width - 32
                anchors.horizontalCenter: parent.horizontalCenter
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                text: qsTr("Sorry")
                font.pixelSize: 17
                font.bold: true
                color: "black"
            }
            Item { width: 1; height: 4 }
            Text {
                id: message
                objectName: "alertMessage"
                width: parent.width - 32
                anchors.horizontalCenter: parent.horizontalCenter
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                text: viewModel.text
                font.pixelSize: 13
                color: "black"
            }
            Item { width: 1; height: 20 }
            Rectangle { width: parent.width; height: 1; color: "#c6c6c8" }
            BrandButton {
                id: acceptButton
                objectName: "acceptButton"

                width: parent.width
                height: 44
                // Within the alert, clear of its rounded corners.
                focusMargin: -4
                focusRadius: 8
                text: acceptLabel.text
                onClicked: root.returnAction(root.errorType)

                Text {
                    id: acceptLabel
                    objectName: "acceptLabel"
                    anchors.centerIn: parent
                    text: qsTr("Accept")
                    font.pixelSize: 17
                    font.bold: true
                    color: "#007aff"
                }
            }
        }
    }
}
