import QtQuick
import QtQuick.Templates as T
import Quorvane.SdkImage

// What every button of the editor is built on: Qt's own button, so that Tab reaches it, Space presses it and
// screen readers announce it by its text. Return and Enter press it too, and a ring marks it while the
// keyboard is on it.
T.AbstractButton {
    id: root

    /// Whether the focus ring shows: while the keyboard has brought the focus here.
    property bool showsFocusRing: root.visualFocus
    /// How far outside the button the focus ring lies (inside when negative), and its corner radius.
    property real focusMargin: 4
    property real focusRadius: 12

    // A tap leaves the focus where it was (in a text field, say): only the keyboard brings it here.
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.Button
    Accessible.name: root.text
    // The template itself presses on Space alone in Qt 6.4. A held key clicks once, as Space does.
    Keys.onReturnPressed: (event) => { if (!event.isAutoRepeat) root.clicked() }
    Keys.onEnterPressed: (event) => { if (!event.isAutoRepeat) root.clicked() }
    // Hidden (its page closed, its row swapped), it lets go of the focus: keys must not reach it unseen.
    onVisibleChanged: if (!root.visible) root.focus = false

    FocusRing {
        margin: root.focusMargin
        radius: root.focusRadius
        visible: root.showsFocusRing
    }
}
