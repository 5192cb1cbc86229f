#pragma once

#include <QObject>
#include <QString>
#include <exception>
#include <utility>

/// The component's errors. Services throw it; the code is the case's ordinal (0 is never produced).
class QuorvaneSdkImageError : public std::exception
{
    Q_GADGET

public:
    enum Code {
        invalidFile = 1,
        notFoundImage,
        invalidCropRange,
        unableToCropImage,
        unableToCompressImage,
        unableToResizeImage,
        unableToSaveCroppedImage,
    };
    Q_ENUM(Code)

    QuorvaneSdkImageError(Code code) noexcept // NOLINT(google-explicit-constructor): a case is an error
        : m_code(code)
    {}
    QuorvaneSdkImageError(Code code, QString reason) noexcept
        : m_code(code)
        , m_reason(std::move(reason))
    {}

    Code code() const noexcept { return m_code; }

    /// The system's own words for the failure when it gave any, e.g. "No space left on device" for
    /// unableToSaveCroppedImage; empty otherwise. Not part of the error's identity.
    QString reason() const { return m_reason; }

    /// The case's name, e.g. "invalidCropRange".
    const char* what() const noexcept override;

    friend bool operator==(const QuorvaneSdkImageError& a, const QuorvaneSdkImageError& b)
    {
        return a.m_code == b.m_code;
    }

private:
    Code m_code;
    QString m_reason;
};
