#pragma once

#include "QuorvaneSdkImageEditorPreset.h"
#include "QuorvaneSdkImageEditorResult.h"

#include <functional>

class QQuickWindow;
class QWindow;

/// Shows a new editing session full screen above \a host, for hosts written in C++. When the user leaves,
/// the editor slides away and closes, and only then \a onComplete receives the result; closing the editor's
/// window counts as leaving without an image. The host is held weakly: if it is destroyed first, the editor
/// closes with it and the result is dropped (\a onComplete is not called). A null \a host presents on the
/// primary screen, for an application without a window of its own.
///
/// The editor asks for portrait where the window system lets a window ask; an Android or iOS app declares
/// it in its manifest or Info.plist. Returns the editor's window, valid until it has been dismissed (it
/// deletes itself), or null when the editor screen cannot be loaded.
QQuickWindow*
presentQuorvaneSdkImageEditorView(QWindow* host, const QuorvaneSdkImageEditorPreset& preset,
                                  std::function<void(const QuorvaneSdkImageEditorResult&)> onComplete);

#if defined(QT_WIDGETS_LIB)
#include <QPointer>
#include <QWidget>
#include <QWindow>

/// The same above a widget: the editor covers the screen of the widget's window, and the widget itself is
/// the host that must still exist when the result arrives.
inline QQuickWindow*
presentQuorvaneSdkImageEditorView(QWidget* host, const QuorvaneSdkImageEditorPreset& preset,
                                  std::function<void(const QuorvaneSdkImageEditorResult&)> onComplete)
{
    QWindow* window = nullptr;
    if (host) {
        QWidget* topLevel = host->window();
        // A widget that was never shown has no native window yet.
        topLevel->winId();
        window = topLevel->windowHandle();
    }
    const QPointer<QWidget> presenter(host);
    const bool hasPresenter = host != nullptr;
    return presentQuorvaneSdkImageEditorView(window, preset,
                                             [presenter, hasPresenter, onComplete = std::move(onComplete)](
                                                 const QuorvaneSdkImageEditorResult& result) {
                                                 if (onComplete && (presenter || !hasPresenter))
                                                     onComplete(result);
                                             });
}
#endif
