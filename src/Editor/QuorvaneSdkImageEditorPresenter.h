#pragma once

#include "QuorvaneSdkImageEditorPreset.h"
#include "QuorvaneSdkImageEditorResult.h"

#include <functional>

class QQuickView;
class QWindow;

/// Shows the editor full screen in a window of its own, for hosts written in C++. When the user leaves, the
/// window closes first and then \a onComplete receives the result; the window deletes itself afterwards.
/// The host links the QML plugin (Q_IMPORT_QML_PLUGIN(Quorvane_SdkImagePlugin)); without it this returns
/// nullptr and the callback is never called.
QQuickView*
presentQuorvaneSdkImageEditorView(const QuorvaneSdkImageEditorPreset& preset,
                                  std::function<void(const QuorvaneSdkImageEditorResult&)> onComplete,
                                  QWindow* transientParent = nullptr);
