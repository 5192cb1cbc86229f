import QtQuick

// A one-finger sideways drag that reports its translation while it runs and once more when it ends. Until it
// ends, translationX is how far the dragged content is drawn from where its model keeps it.
DragHandler {
    id: root

    property real translationX: 0

    signal dragChanged(real translation)
    signal dragEnded(real translation)

    target: null
    yAxis.enabled: false
    onActiveTranslationChanged: {
        if (!root.active)
            return
        root.translationX = root.activeTranslation.x
        root.dragChanged(root.translationX)
    }
    onActiveChanged: {
        if (root.active)
            return
        root.dragEnded(root.translationX)
        root.translationX = 0
    }
}
