#pragma once

#include <QtCore/qglobal.h>

#if defined(QUORVANE_SHARED_BUILD)
#define QUORVANE_SHARED_EXPORT Q_DECL_EXPORT
#else
#define QUORVANE_SHARED_EXPORT Q_DECL_IMPORT
#endif
