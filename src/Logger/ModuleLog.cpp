#include "ModuleLog.h"

Q_LOGGING_CATEGORY(quorvaneSdkImage, "quorvane.sdkimage")
