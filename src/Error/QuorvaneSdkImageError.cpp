#include "QuorvaneSdkImageError.h"

#include <QMetaEnum>

const char* QuorvaneSdkImageError::what() const noexcept
{
    const char* name = QMetaEnum::fromType<Code>().valueToKey(m_code);
    return name ? name : "unknown";
}
