#include "ByteSink.h"

#include <cstring>

namespace {

// Big enough that a photo costs a few hundred system calls, small enough to stay in cache.
constexpr std::size_t kFileBuffer = std::size_t(1) << 18;

} // namespace

bool BufferSink::write(const char* data, qsizetype size)
{
    m_bytes.append(data, size);
    return true;
}

bool BufferSink::overwrite(qint64 position, const char* data, qsizetype size)
{
    if (position < 0 || position + size > m_bytes.size())
        return false;
    std::memcpy(m_bytes.data() + position, data, size_t(size));
    return true;
}

FileSink::FileSink(const QString& path)
    : m_file(path)
{
    m_buffer.reserve(kFileBuffer);
}

bool FileSink::open()
{
    // Unbuffered: Qt 6.4's commit() renames a file whose buffered bytes did not all reach the disk.
    return m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || fail();
}

bool FileSink::fail()
{
    if (!m_failed && m_file.error() != QFileDevice::NoError)
        m_error = m_file.errorString();
    m_failed = true;
    m_file.cancelWriting();
    return false;
}

bool FileSink::flush()
{
    // A full disk first shows as a short write with no error; only the next write says why.
    for (qsizetype done = 0; done < qsizetype(m_buffer.size());) {
        const qint64 count = m_file.write(m_buffer.data() + done, qsizetype(m_buffer.size()) - done);
        if (count <= 0)
            return fail();
        done += qsizetype(count);
    }
    m_written += qint64(m_buffer.size());
    m_buffer.clear();
    return true;
}

bool FileSink::write(const char* data, qsizetype size)
{
    if (m_failed)
        return false;
    if (m_buffer.size() + size_t(size) > kFileBuffer && !flush())
        return false;
    if (size_t(size) >= kFileBuffer) {
        m_buffer.assign(data, data + size);
        return flush();
    }
    m_buffer.insert(m_buffer.end(), data, data + size);
    return true;
}

bool FileSink::overwrite(qint64 position, const char* data, qsizetype size)
{
    if (m_failed || position < 0 || position + size > this->position())
        return false;
    if (!flush())
        return false;
    if (!m_file.seek(position))
        return fail();
    for (qsizetype done = 0; done < size;) {
        const qint64 count = m_file.write(data + done, size - done);
        if (count <= 0)
            return fail();
        done += qsizetype(count);
    }
    return m_file.seek(m_written) || fail();
}

bool FileSink::commit()
{
    if (m_failed || !flush())
        return false;
    return m_file.commit() || fail();
}
