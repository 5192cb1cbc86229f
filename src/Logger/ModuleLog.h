#pragma once

#include <QLoggingCategory>

/// The component's own diagnostics (a host can filter them as "quorvane.sdkimage"); the events a host
/// receives go through ImageLogger instead.
Q_DECLARE_LOGGING_CATEGORY(quorvaneSdkImage)
