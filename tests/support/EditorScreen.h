#pragma once

#include "Editor/ImageEditorViewModel.h"
#include "Editor/QuorvaneSdkImageEditorPreset.h"
#include "Editor/QuorvaneSdkImageEditorResult.h"

#include <QPointingDevice>
#include <QQuickItem>
#include <QQuickView>
#include <QSignalSpy>
#include <memory>

/// The public editor screen in a real offscreen window, driven as a person would: taps and drags through
/// the window. A warning from the editor's QML fails the running test. The test executable imports the QML
/// plugin.
class EditorScreen
{
public:
    explicit EditorScreen(const QuorvaneSdkImageEditorPreset& preset, QSize size = QSize(390, 844));

    QQuickView& view() { return m_view; }
    /// The editor of the screen's session (null on the error screen).
    ImageEditorViewModel* editor() const;
    QQuickItem* find(const char* objectName) const;
    QString text(const char* objectName) const;
    /// Whether the item exists and a person could see it (itself and every ancestor visible and opaque).
    bool isShown(const char* objectName) const;

    /// A finger taps the item's centre.
    void tap(const char* objectName);
    void tap(const QQuickItem* item);
    /// A finger taps \a point in the item's own coordinates.
    void tap(const QQuickItem* item, QPointF point);
    /// A one-finger drag on \a item from \a from to \a to, in the item's own coordinates, in small steps.
    void drag(const QQuickItem* item, QPointF from, QPointF to);
    /// The same drag made by a finger on the touch screen, in steps of at most 4 points.
    void touchDrag(const QQuickItem* item, QPointF from, QPointF to);
    /// Two fingers on \a item, placed \a spread apart either side of \a centre (item coordinates), turned by
    /// \a degrees and spread \a scale times further in small steps, then lifted.
    void twoFingerGesture(const QQuickItem* item, QPointF centre, qreal spread, qreal degrees, qreal scale);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});

    /// Waits until the tool page has sprung into place.
    bool waitForToolPage();
    /// The tool page shown, or null on the base page.
    QQuickItem* toolPage() const;

    int completionCount() const { return int(m_completions->count()); }
    QuorvaneSdkImageEditorResult completion(int index) const;

private:
    QQuickView m_view;
    QPointingDevice* m_touch = nullptr;
    std::unique_ptr<QSignalSpy> m_completions;
};
