#include "Editor/ImageSaver/HuffmanDeflate.h"

#include <QRandomGenerator>
#include <QTest>
#include <zlib.h>

namespace {

using Blocks = QList<QByteArray>;

QByteArray compress(const Blocks& blocks)
{
    QByteArray out("prefix");
    HuffmanZlibStream stream(out);
    for (qsizetype i = 0; i < blocks.size(); ++i)
        stream.addBlock(reinterpret_cast<const unsigned char*>(blocks[i].constData()),
                        size_t(blocks[i].size()), i + 1 == blocks.size());
    stream.finish();
    return out;
}

// zlib's own inflater, with its checks of the header, the tables and the checksum.
std::optional<QByteArray> inflate(const QByteArray& stream, qsizetype expectedSize)
{
    QByteArray out(expectedSize + 16, '\0');
    uLongf outSize = uLongf(out.size());
    if (uncompress(reinterpret_cast<Bytef*>(out.data()), &outSize,
                   reinterpret_cast<const Bytef*>(stream.constData()), uLong(stream.size())) != Z_OK)
        return std::nullopt;
    out.resize(qsizetype(outSize));
    return out;
}

QByteArray random(qsizetype size, quint32 seed)
{
    QByteArray bytes(size, '\0');
    QRandomGenerator generator(seed);
    for (auto& byte : bytes)
        byte = char(generator.bounded(256));
    return bytes;
}

// Symbol k appears fib(k) times: the optimal Huffman code for this is deeper than deflate's 15 bits.
QByteArray fibonacci(int symbols)
{
    QByteArray bytes;
    quint64 a = 1;
    quint64 b = 1;
    for (int symbol = 0; symbol < symbols; ++symbol) {
        bytes.append(qsizetype(a), char(symbol));
        const quint64 next = a + b;
        a = b;
        b = next;
    }
    return bytes;
}

} // namespace

class tst_HuffmanDeflate : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip_throughZlib_data()
    {
        QTest::addColumn<Blocks>("blocks");
        QTest::newRow("empty") << Blocks{QByteArray()};
        QTest::newRow("one byte") << Blocks{QByteArray("x")};
        QTest::newRow("one value repeated") << Blocks{QByteArray(100'000, '\0')};
        QTest::newRow("every value once") << Blocks{[] {
            QByteArray all;
            for (int value = 0; value < 256; ++value)
                all.append(char(value));
            return all;
        }()};
        QTest::newRow("random") << Blocks{random(300'001, 1)};
        QTest::newRow("code lengths past 15 bits") << Blocks{fibonacci(27)};
        QTest::newRow("blocks of different statistics")
            << Blocks{QByteArray(5000, 'a'), random(7777, 2), fibonacci(20), QByteArray("z"), QByteArray()};
    }

    void roundTrip_throughZlib()
    {
        QFETCH(Blocks, blocks);
        const QByteArray whole = blocks.join();
        const QByteArray out = compress(blocks);

        QVERIFY(out.startsWith("prefix"));
        const auto inflated = inflate(out.mid(6), whole.size());
        QVERIFY(inflated);
        QCOMPARE(*inflated, whole);
    }

    void skewedData_isCompressed()
    {
        const QByteArray skewed = fibonacci(20);
        QVERIFY(compress({skewed}).size() < skewed.size() / 2);
        const QByteArray noise = random(100'000, 3);
        QVERIFY(compress({noise}).size() < noise.size() + 600);
    }
};

QTEST_GUILESS_MAIN(tst_HuffmanDeflate)
#include "tst_HuffmanDeflate.moc"
