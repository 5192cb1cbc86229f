#include "ErrorType.h"

QString ErrorType::text(Value type)
{
    switch (type) {
    case unloadedImage:
        return QStringLiteral("Could not preview input image.");
    }
    return {};
}
