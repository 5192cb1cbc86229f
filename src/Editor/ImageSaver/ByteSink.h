#pragma once

#include <QByteArray>
#include <QSaveFile>
#include <QString>
#include <vector>

/// Where an encoder's bytes go as they are made.
class ByteSink
{
public:
    virtual ~ByteSink() = default;
    /// False once anything could not be written; later writes are then ignored.
    virtual bool write(const char* data, qsizetype size) = 0;
    /// Replaces bytes written earlier at \a position: a length that is known only once what it counts is.
    virtual bool overwrite(qint64 position, const char* data, qsizetype size) = 0;
    /// How many bytes have been written.
    virtual qint64 position() const = 0;

    bool write(QByteArrayView bytes) { return write(bytes.data(), bytes.size()); }
};

/// The bytes, in memory.
class BufferSink final : public ByteSink
{
public:
    bool write(const char* data, qsizetype size) override;
    bool overwrite(qint64 position, const char* data, qsizetype size) override;
    qint64 position() const override { return m_bytes.size(); }

    QByteArray take() { return std::move(m_bytes); }

private:
    QByteArray m_bytes;
};

/// A file written beside its destination and renamed over it by commit() only when whole, so that a
/// failed or interrupted write never leaves a torn file and never destroys the file that was there.
class FileSink final : public ByteSink
{
public:
    explicit FileSink(const QString& path);

    /// False when the file cannot be made; error() says why.
    bool open();
    bool write(const char* data, qsizetype size) override;
    bool overwrite(qint64 position, const char* data, qsizetype size) override;
    qint64 position() const override { return m_written + qint64(m_buffer.size()); }
    /// Renames the complete file over the destination; false (and the destination untouched) otherwise.
    bool commit();
    /// The system's reason for the first failure; empty when it gave none.
    QString error() const { return m_error; }

private:
    bool flush();
    bool fail();

    QSaveFile m_file;
    std::vector<char> m_buffer;
    qint64 m_written = 0;
    bool m_failed = false;
    QString m_error;
};
