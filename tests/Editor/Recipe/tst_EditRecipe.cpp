#include "Editor/Recipe/EditRecipe.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace EditRecipe;

namespace {

Recipe sample()
{
    Recipe recipe;
    recipe.source = {QSize(4224, 3168), QString(64, u'a')};
    recipe.steps.append(Crop{QRectF(0.125, 0.25, 0.5, 0.625), 1, -12.5, false, true});
    Color color;
    color.values = {0.1, 0, 0.2, 1.5, 0};
    color.matrix[0] = 1.25;
    color.matrix[15] = -0.5;
    recipe.steps.append(color);
    recipe.steps.append(
        Overlays{QSizeF(400, 300),
                 2,
                 {Stroke{QRectF(0.05, 0.1, 0.3, 0.4),
                         {QPointF(0.1, 0.2), QPointF(0.3, 0.45)},
                         QColor(255, 0, 0),
                         0.01,
                         -30,
                         0.75},
                  Text{QStringLiteral("Hello «dragonfly»"), QStringLiteral("Sans"), 0.05, true, false, true,
                       QColor(0, 0, 255, 128), QPointF(0.5, 0.5), 0.8, 90, 1.25}}});
    recipe.output = {QStringLiteral("png"), 100, QSizeF(1200, 900.5)};
    return recipe;
}

// The sample's JSON with one value replaced, found by its path ("steps", 0, "rect").
QByteArray sampleWith(const QList<QVariant>& path, const QJsonValue& value)
{
    QJsonObject root = QJsonDocument::fromJson(toJson(sample())).object();
    const std::function<QJsonValue(QJsonValue, qsizetype)> replace = [&](QJsonValue at, qsizetype i) {
        if (i == path.size())
            return value;
        if (path[i].typeId() == QMetaType::Int) {
            QJsonArray array = at.toArray();
            array[path[i].toInt()] = replace(array[path[i].toInt()], i + 1);
            return QJsonValue(array);
        }
        QJsonObject object = at.toObject();
        object[path[i].toString()] = replace(object[path[i].toString()], i + 1);
        return QJsonValue(object);
    };
    return QJsonDocument(replace(root, 0).toObject()).toJson();
}

} // namespace

class tst_EditRecipe : public QObject
{
    Q_OBJECT

private slots:
    void written_readsBackTheSameRecipe()
    {
        const auto read = fromJson(toJson(sample()));
        const QString* refusal = std::get_if<QString>(&read);
        QVERIFY2(!refusal, qPrintable(refusal ? *refusal : QString()));
        QCOMPARE(std::get<Recipe>(read), sample());
    }

    void badRecipes_areRefusedWithASentence_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("refusal");
        QTest::newRow("not JSON") << QByteArray("{\"format\": ") << "not valid JSON";
        QTest::newRow("another format") << sampleWith({"format"}, "photo-edits") << "not an edit recipe";
        QTest::newRow("a newer major version") << sampleWith({"version"}, 2) << "of version 2";
        QTest::newRow("a newer step version")
            << sampleWith({"steps", 0, "version"}, 7) << "steps[0] is of version 7";
        QTest::newRow("an unknown operation")
            << sampleWith({"steps", 1, "operation"}, "sharpen") << "steps[1].operation";
        // JSON has no NaN or infinity, and Qt refuses a number beyond a double's range.
        QTest::newRow("an infinite angle")
            << sampleWith({"steps", 0, "degrees"}, 0).replace("\"degrees\": 0", "\"degrees\": 1e999")
            << "not valid JSON: illegal number";
        QTest::newRow("an angle beyond a full turn")
            << sampleWith({"steps", 0, "degrees"}, 1e300) << "steps[0].degrees must be a number";
        QTest::newRow("a crop outside the picture")
            << sampleWith({"steps", 0, "rect"}, QJsonArray{0.5, 0, 0.75, 1}) << "must lie inside the picture";
        QTest::newRow("a fraction of a turn") << sampleWith({"steps", 0, "quarterTurns"}, 0.5)
                                              << "steps[0].quarterTurns must be a whole number";
        QTest::newRow("a colour that is none")
            << sampleWith({"steps", 2, "items", 0, "color"}, "#12") << "items[0].color";
        QTest::newRow("a hash that is none") << sampleWith({"source", "sha256"}, "cafe") << "source.sha256";
        QTest::newRow("an overlay frame without area")
            << sampleWith({"steps", 2, "frame"}, QJsonArray{0, 300}) << "steps[2].frame[0]";
        QTest::newRow("an unknown output format")
            << sampleWith({"output", "format"}, "gif") << "output.format";
    }

    void badRecipes_areRefusedWithASentence()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, refusal);
        const auto read = fromJson(json);
        QVERIFY(std::holds_alternative<QString>(read));
        QVERIFY2(std::get<QString>(read).contains(refusal), qPrintable(std::get<QString>(read)));
    }

    // Past the limit on points the stroke is refused; a million points is refused on its length alone,
    // before any of it is parsed.
    void hugeCounts_areRefusedInBoundedTime_data()
    {
        QTest::addColumn<qsizetype>("points");
        QTest::newRow("just over the limit") << kMaxPoints + 1;
        QTest::newRow("a million") << qsizetype(1'000'000);
    }

    void hugeCounts_areRefusedInBoundedTime()
    {
        QFETCH(qsizetype, points);
        QJsonArray flat;
        for (qsizetype i = 0; i < points * 2; ++i)
            flat.append(0.5);
        const auto read = fromJson(sampleWith({"steps", 2, "items", 0, "points"}, flat));
        QVERIFY(std::holds_alternative<QString>(read));
        QVERIFY2(std::get<QString>(read).contains(
                     QString::number(points > kMaxPoints + 1 ? kMaxBytes : kMaxPoints)),
                 qPrintable(std::get<QString>(read)));
    }
};

QTEST_APPLESS_MAIN(tst_EditRecipe)
#include "tst_EditRecipe.moc"
