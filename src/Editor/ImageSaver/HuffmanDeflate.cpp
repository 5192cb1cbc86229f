#include "HuffmanDeflate.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

namespace {

constexpr int kLiteralSymbols = 257; // 256 byte values and the end of block
constexpr int kEndOfBlock = 256;
constexpr int kMaxCodeLength = 15;
constexpr int kMaxCodeLengthCodeLength = 7;
constexpr std::array<int, 19> kCodeLengthOrder = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                  11, 4,  12, 3, 13, 2, 14, 1, 15};

// Code lengths of a Huffman code for \a frequencies, none longer than \a maxLength. Symbols of frequency 0
// get length 0. Too-long codes are avoided by flattening the frequencies and building again: rare in
// practice, and the cost in size is negligible.
template <std::size_t N>
std::array<std::uint8_t, N> codeLengths(std::array<std::uint32_t, N> frequencies, int maxLength)
{
    std::array<std::uint8_t, N> lengths{};
    for (;;) {
        struct Node
        {
            std::uint64_t weight;
            int left;
            int right;
        };
        std::vector<Node> nodes;
        nodes.reserve(2 * N);
        std::vector<int> leaves;
        for (std::size_t symbol = 0; symbol < N; ++symbol) {
            if (frequencies[symbol] > 0) {
                leaves.push_back(int(nodes.size()));
                nodes.push_back({frequencies[symbol], -1, int(symbol)});
            }
        }
        lengths.fill(0);
        if (leaves.empty())
            return lengths;
        if (leaves.size() == 1) {
            lengths[std::size_t(nodes[std::size_t(leaves[0])].right)] = 1;
            return lengths;
        }
        std::sort(leaves.begin(), leaves.end(),
                  [&](int a, int b) { return nodes[std::size_t(a)].weight < nodes[std::size_t(b)].weight; });
        // Two-queue construction: leaves in weight order, and merged nodes, which come out in weight order.
        std::vector<int> merged;
        std::size_t nextLeaf = 0;
        std::size_t nextMerged = 0;
        const auto takeLightest = [&] {
            if (nextMerged >= merged.size() ||
                (nextLeaf < leaves.size() && nodes[std::size_t(leaves[nextLeaf])].weight <=
                                                 nodes[std::size_t(merged[nextMerged])].weight))
                return leaves[nextLeaf++];
            return merged[nextMerged++];
        };
        while ((leaves.size() - nextLeaf) + (merged.size() - nextMerged) > 1) {
            const int a = takeLightest();
            const int b = takeLightest();
            merged.push_back(int(nodes.size()));
            nodes.push_back({nodes[std::size_t(a)].weight + nodes[std::size_t(b)].weight, a, b});
        }
        // Depths by walking down from the root; leaves are the nodes with left == -1.
        std::vector<std::uint8_t> depth(nodes.size(), 0);
        int longest = 0;
        for (int node = int(nodes.size()) - 1; node >= 0; --node) {
            const Node& n = nodes[std::size_t(node)];
            if (n.left < 0) {
                lengths[std::size_t(n.right)] = depth[std::size_t(node)];
                longest = std::max<int>(longest, depth[std::size_t(node)]);
            } else {
                depth[std::size_t(n.left)] = std::uint8_t(depth[std::size_t(node)] + 1);
                depth[std::size_t(n.right)] = std::uint8_t(depth[std::size_t(node)] + 1);
            }
        }
        if (longest <= maxLength)
            return lengths;
        for (auto& frequency : frequencies)
            frequency = frequency == 0 ? 0 : (frequency >> 1) | 1;
    }
}

// Canonical codes for \a lengths, bit-reversed because deflate sends Huffman codes first bit first.
template <std::size_t N>
std::array<std::uint16_t, N> canonicalCodes(const std::array<std::uint8_t, N>& lengths)
{
    std::array<int, kMaxCodeLength + 1> count{};
    for (const auto length : lengths)
        ++count[length];
    count[0] = 0;
    std::array<int, kMaxCodeLength + 2> next{};
    int code = 0;
    for (int bits = 1; bits <= kMaxCodeLength; ++bits) {
        code = (code + count[std::size_t(bits - 1)]) << 1;
        next[std::size_t(bits)] = code;
    }
    std::array<std::uint16_t, N> codes{};
    for (std::size_t symbol = 0; symbol < N; ++symbol) {
        const int length = lengths[symbol];
        if (length == 0)
            continue;
        int value = next[std::size_t(length)]++;
        int reversed = 0;
        for (int bit = 0; bit < length; ++bit, value >>= 1)
            reversed = (reversed << 1) | (value & 1);
        codes[symbol] = std::uint16_t(reversed);
    }
    return codes;
}

// Collects codes in a 64-bit buffer and moves whole bytes out with one unaligned 8-byte store, so that the
// hot loop has no branch. After a flush at most 7 bits wait, leaving room for three 15-bit codes. The output
// needs 8 bytes of slack past the last byte written.
class BitWriter
{
public:
    BitWriter(std::uint8_t* out, std::uint64_t bits, int count)
        : m_out(out)
        , m_buffer(bits)
        , m_count(count)
    {}

    void add(std::uint32_t bits, int count)
    {
        m_buffer |= std::uint64_t(bits) << m_count;
        m_count += count;
    }

    void flush()
    {
        std::memcpy(m_out, &m_buffer, 8); // little-endian, as deflate's bit order wants
        const int bytes = m_count >> 3;
        m_out += bytes;
        m_buffer = bytes == 0 ? m_buffer : m_buffer >> (bytes * 8);
        m_count &= 7;
    }

    void put(std::uint32_t bits, int count)
    {
        add(bits, count);
        flush();
    }

    std::uint8_t* out() const { return m_out; }
    std::uint64_t pendingBits() const { return m_buffer; }
    int pendingCount() const { return m_count; }

private:
    std::uint8_t* m_out;
    std::uint64_t m_buffer;
    int m_count;
};

struct LengthToken
{
    std::uint8_t symbol;
    std::uint8_t extra;
};

// The literal code lengths and the one distance code length, run-length coded with symbols 16, 17 and 18.
std::vector<LengthToken> runLengthCoded(const std::array<std::uint8_t, kLiteralSymbols + 1>& all)
{
    std::vector<LengthToken> tokens;
    std::size_t i = 0;
    while (i < all.size()) {
        const std::uint8_t length = all[i];
        std::size_t run = 1;
        while (i + run < all.size() && all[i + run] == length)
            ++run;
        std::size_t left = run;
        if (length == 0) {
            while (left >= 11) {
                const std::size_t n = std::min<std::size_t>(left, 138);
                tokens.push_back({18, std::uint8_t(n - 11)});
                left -= n;
            }
            if (left >= 3) {
                tokens.push_back({17, std::uint8_t(left - 3)});
                left = 0;
            }
        } else {
            tokens.push_back({length, 0});
            --left;
            while (left >= 3) {
                const std::size_t n = std::min<std::size_t>(left, 6);
                tokens.push_back({16, std::uint8_t(n - 3)});
                left -= n;
            }
        }
        for (; left > 0; --left)
            tokens.push_back({length, 0});
        i += run;
    }
    return tokens;
}

void writeBlock(BitWriter& writer, const std::uint8_t* data, std::size_t size, bool last)
{
    // Four interleaved histograms keep the counting loop free of store-to-load stalls.
    std::array<std::array<std::uint32_t, 256>, 4> partial{};
    std::size_t i = 0;
    for (; i + 4 <= size; i += 4) {
        ++partial[0][data[i]];
        ++partial[1][data[i + 1]];
        ++partial[2][data[i + 2]];
        ++partial[3][data[i + 3]];
    }
    for (; i < size; ++i)
        ++partial[0][data[i]];
    std::array<std::uint32_t, kLiteralSymbols> frequencies{};
    for (int symbol = 0; symbol < 256; ++symbol)
        frequencies[std::size_t(symbol)] = partial[0][std::size_t(symbol)] + partial[1][std::size_t(symbol)] +
                                           partial[2][std::size_t(symbol)] + partial[3][std::size_t(symbol)];
    frequencies[kEndOfBlock] = 1;

    const auto lengths = codeLengths(frequencies, kMaxCodeLength);
    const auto codes = canonicalCodes(lengths);

    // One distance code of length 1: no distance is ever sent, and every inflater accepts the table.
    std::array<std::uint8_t, kLiteralSymbols + 1> allLengths{};
    std::copy(lengths.begin(), lengths.end(), allLengths.begin());
    allLengths[kLiteralSymbols] = 1;
    const std::vector<LengthToken> tokens = runLengthCoded(allLengths);

    std::array<std::uint32_t, 19> tokenFrequencies{};
    for (const auto& token : tokens)
        ++tokenFrequencies[token.symbol];
    // Inflaters refuse a code-length code of one symbol; a second, unused one makes it complete.
    if (std::count_if(tokenFrequencies.begin(), tokenFrequencies.end(), [](auto f) { return f > 0; }) < 2)
        ++tokenFrequencies[tokenFrequencies[0] == 0 ? 0 : 18];
    const auto tokenLengths = codeLengths(tokenFrequencies, kMaxCodeLengthCodeLength);
    const auto tokenCodes = canonicalCodes(tokenLengths);
    int codeLengthCodes = 19;
    while (codeLengthCodes > 4 &&
           tokenLengths[std::size_t(kCodeLengthOrder[std::size_t(codeLengthCodes - 1)])] == 0)
        --codeLengthCodes;

    writer.put(last ? 1 : 0, 1);
    writer.put(2, 2); // dynamic Huffman codes
    writer.put(kLiteralSymbols - 257, 5);
    writer.put(0, 5); // one distance code
    writer.put(std::uint32_t(codeLengthCodes - 4), 4);
    for (int k = 0; k < codeLengthCodes; ++k)
        writer.put(tokenLengths[std::size_t(kCodeLengthOrder[std::size_t(k)])], 3);
    for (const auto& token : tokens) {
        writer.put(tokenCodes[token.symbol], tokenLengths[token.symbol]);
        if (token.symbol == 16)
            writer.put(token.extra, 2);
        else if (token.symbol == 17)
            writer.put(token.extra, 3);
        else if (token.symbol == 18)
            writer.put(token.extra, 7);
    }

    std::array<std::uint32_t, 256> table{}; // code in the low bits, length in bits 16 and up
    for (int symbol = 0; symbol < 256; ++symbol)
        table[std::size_t(symbol)] =
            codes[std::size_t(symbol)] | (std::uint32_t(lengths[std::size_t(symbol)]) << 16);
    std::size_t k = 0;
    for (; k + 3 <= size; k += 3) {
        const std::uint32_t a = table[data[k]];
        const std::uint32_t b = table[data[k + 1]];
        const std::uint32_t c = table[data[k + 2]];
        writer.add(a & 0xFFFF, int(a >> 16));
        writer.add(b & 0xFFFF, int(b >> 16));
        writer.add(c & 0xFFFF, int(c >> 16));
        writer.flush();
    }
    for (; k < size; ++k)
        writer.put(table[data[k]] & 0xFFFF, int(table[data[k]] >> 16));
    writer.put(codes[kEndOfBlock], lengths[kEndOfBlock]);
}

} // namespace

HuffmanZlibStream::HuffmanZlibStream(QByteArray& out)
    : m_out(out)
    , m_position(out.size())
{
    m_out.append(char(0x78)); // deflate, 32 KiB window
    m_out.append(char(0x01)); // no dictionary; makes the header a multiple of 31
    m_position += 2;
}

void HuffmanZlibStream::addBlock(const unsigned char* data, std::size_t size, bool last)
{
    // A code is at most 15 bits a byte, the tables take a few hundred bytes, the writer 8 bytes of slack.
    const qsizetype bound = qsizetype(size / 8 * 15 + 512);
    if (m_out.size() < m_position + bound)
        m_out.resize(std::max(m_position + bound, m_out.size() + m_out.size() / 2));
    BitWriter writer(reinterpret_cast<std::uint8_t*>(m_out.data()) + m_position, m_bits, m_bitCount);
    writeBlock(writer, data, size, last);
    m_position = writer.out() - reinterpret_cast<std::uint8_t*>(m_out.data());
    m_bits = writer.pendingBits();
    m_bitCount = writer.pendingCount();
    m_adler = std::uint32_t(adler32_z(m_adler, data, size));
}

void HuffmanZlibStream::finish()
{
    m_out.resize(m_position);
    for (; m_bitCount > 0; m_bitCount -= 8, m_bits >>= 8)
        m_out.append(char(m_bits & 0xFF));
    m_bitCount = 0;
    m_out.append(char(m_adler >> 24));
    m_out.append(char(m_adler >> 16));
    m_out.append(char(m_adler >> 8));
    m_out.append(char(m_adler));
    m_position = m_out.size();
}

QByteArrayView HuffmanZlibStream::take()
{
    const QByteArrayView ready(m_out.constData(), m_position);
    m_position = 0;
    return ready;
}
