#pragma once

#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>
#include <initializer_list>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

/// Fills a table with the columns "call" (a Call) and "value" (qreal): one row for each entry point in
/// \a calls and each of NaN, +inf and −inf.
template <typename Call> void addNonFiniteRows(std::initializer_list<std::pair<const char*, Call>> calls)
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<qreal>("value");
    constexpr qreal infinity = std::numeric_limits<qreal>::infinity();
    for (const auto& [name, call] : calls) {
        QTest::addRow("%s, NaN", name) << call << std::numeric_limits<qreal>::quiet_NaN();
        QTest::addRow("%s, +inf", name) << call << infinity;
        QTest::addRow("%s, -inf", name) << call << -infinity;
    }
}

/// Counts every signal the given objects emit, their own declared ones and those of their base classes
/// below QObject.
class SignalCounter
{
public:
    explicit SignalCounter(std::initializer_list<const QObject*> objects)
    {
        for (const QObject* object : objects) {
            const QMetaObject* meta = object->metaObject();
            for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
                if (meta->method(i).methodType() == QMetaMethod::Signal)
                    m_spies.push_back(std::make_unique<QSignalSpy>(object, meta->method(i)));
            }
        }
    }

    qsizetype count() const
    {
        qsizetype total = 0;
        for (const auto& spy : m_spies)
            total += spy->count();
        return total;
    }

private:
    std::vector<std::unique_ptr<QSignalSpy>> m_spies;
};
