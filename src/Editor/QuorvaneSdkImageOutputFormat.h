#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// How the result is encoded: JPEG at a quality percentage (100 = best), or lossless PNG.
class QuorvaneSdkImageOutputFormat
{
    Q_GADGET
    QML_VALUE_TYPE(quorvaneSdkImageOutputFormat)
    Q_PROPERTY(Kind kind READ kind CONSTANT)
    Q_PROPERTY(int compressionQuality READ compressionQuality CONSTANT)

public:
    enum class Kind { jpg, png };
    Q_ENUM(Kind)

    static QuorvaneSdkImageOutputFormat jpg(int compressionQuality)
    {
        return QuorvaneSdkImageOutputFormat(Kind::jpg, compressionQuality);
    }
    static QuorvaneSdkImageOutputFormat png() { return QuorvaneSdkImageOutputFormat(Kind::png, 0); }

    /// JPEG at quality 100.
    QuorvaneSdkImageOutputFormat() = default;

    Kind kind() const { return m_kind; }
    /// Meaningful for jpg only.
    int compressionQuality() const { return m_compressionQuality; }

    friend bool operator==(const QuorvaneSdkImageOutputFormat& a, const QuorvaneSdkImageOutputFormat& b)
    {
        return a.m_kind == b.m_kind && a.m_compressionQuality == b.m_compressionQuality;
    }
    friend bool operator!=(const QuorvaneSdkImageOutputFormat& a, const QuorvaneSdkImageOutputFormat& b)
    {
        return !(a == b);
    }

private:
    QuorvaneSdkImageOutputFormat(Kind kind, int compressionQuality)
        : m_kind(kind)
        , m_compressionQuality(compressionQuality)
    {}

    Kind m_kind = Kind::jpg;
    int m_compressionQuality = 100;
};
