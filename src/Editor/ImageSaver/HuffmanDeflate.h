#pragma once

#include <QByteArray>
#include <cstddef>
#include <cstdint>

/// Writes a zlib stream whose deflate blocks use Huffman codes alone (no string matching), block by block,
/// so the caller never holds all the uncompressed data. On filtered photographs it is several times faster
/// than LZ compressors at a modest cost in size; any inflater reads it.
class HuffmanZlibStream
{
public:
    /// Appends the stream to \a out, starting with its header.
    explicit HuffmanZlibStream(QByteArray& out);

    /// Codes \a size bytes as one block; the block marked \a last ends the deflate data.
    void addBlock(const unsigned char* data, std::size_t size, bool last);

    /// Ends the stream with its checksum. Call once, after the last block.
    void finish();

    /// The bytes complete so far (from the start of the output), handed over: the next block reuses their
    /// room, so that a long stream needs no more memory than a block. The view lasts until then.
    QByteArrayView take();

private:
    QByteArray& m_out;
    qsizetype m_position;
    std::uint64_t m_bits = 0;
    int m_bitCount = 0;
    std::uint32_t m_adler = 1;
};
