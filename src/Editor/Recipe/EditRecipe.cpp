#include "EditRecipe.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QRegularExpression>
#include <cmath>

namespace EditRecipe {

namespace {

constexpr int kStepVersion = 1;
// Items may be moved past the picture's edges, but not so far that the numbers stop meaning a place.
constexpr double kMaxPlace = 100;

QJsonArray numbers(std::initializer_list<double> values)
{
    QJsonArray array;
    for (const double value : values)
        array.append(value);
    return array;
}

template <std::size_t N> QJsonArray numbers(const std::array<double, N>& values)
{
    QJsonArray array;
    for (const double value : values)
        array.append(value);
    return array;
}

QJsonObject itemToJson(const Item& item)
{
    if (const auto* stroke = std::get_if<Stroke>(&item)) {
        QJsonArray points;
        for (const QPointF& point : stroke->points) {
            points.append(point.x());
            points.append(point.y());
        }
        const QRectF& box = stroke->box;
        return {{QStringLiteral("type"), QStringLiteral("stroke")},
                {QStringLiteral("box"), numbers({box.x(), box.y(), box.width(), box.height()})},
                {QStringLiteral("points"), points},
                {QStringLiteral("color"), stroke->color.name(QColor::HexArgb)},
                {QStringLiteral("width"), stroke->width},
                {QStringLiteral("degrees"), stroke->degrees},
                {QStringLiteral("scale"), stroke->scale}};
    }
    const Text& text = std::get<Text>(item);
    return {{QStringLiteral("type"), QStringLiteral("text")},
            {QStringLiteral("text"), text.text},
            {QStringLiteral("font"), text.font},
            {QStringLiteral("size"), text.size},
            {QStringLiteral("bold"), text.bold},
            {QStringLiteral("italic"), text.italic},
            {QStringLiteral("uppercase"), text.uppercase},
            {QStringLiteral("color"), text.color.name(QColor::HexArgb)},
            {QStringLiteral("centre"), numbers({text.centre.x(), text.centre.y()})},
            {QStringLiteral("wrapWidth"), text.wrapWidth},
            {QStringLiteral("degrees"), text.degrees},
            {QStringLiteral("scale"), text.scale}};
}

QJsonObject stepToJson(const Step& step)
{
    QJsonObject object{{QStringLiteral("version"), kStepVersion}};
    if (const auto* crop = std::get_if<Crop>(&step)) {
        object.insert(QStringLiteral("operation"), QStringLiteral("crop"));
        object.insert(QStringLiteral("rect"),
                      numbers({crop->rect.x(), crop->rect.y(), crop->rect.width(), crop->rect.height()}));
        object.insert(QStringLiteral("quarterTurns"), crop->quarterTurns);
        object.insert(QStringLiteral("degrees"), crop->degrees);
        object.insert(QStringLiteral("flipHorizontal"), crop->flipHorizontal);
        object.insert(QStringLiteral("flipVertical"), crop->flipVertical);
    } else if (const auto* color = std::get_if<Color>(&step)) {
        object.insert(QStringLiteral("operation"), QStringLiteral("color"));
        object.insert(QStringLiteral("values"), numbers(color->values));
        object.insert(QStringLiteral("matrix"), numbers(color->matrix));
    } else {
        QJsonArray items;
        for (const Item& item : std::get<Overlays>(step).items)
            items.append(itemToJson(item));

        const Overlays& overlays = std::get<Overlays>(step);
        object.insert(QStringLiteral("operation"), QStringLiteral("overlays"));
        object.insert(QStringLiteral("frame"), numbers({overlays.frame.width(), overlays.frame.height()}));
        object.insert(QStringLiteral("pixelRatio"), overlays.pixelRatio);
        object.insert(QStringLiteral("items"), items);
    }
    return object;
}

// Reads one recipe, stopping at the first thing it cannot take; `refusal` then says what and where.
class Reader
{
public:
    QString refusal;

    bool refuse(const QString& where, const QString& what)
    {
        if (refusal.isEmpty())
            refusal = QStringLiteral("The recipe's %1 %2.").arg(where, what);
        return false;
    }

    bool number(const QJsonValue& value, const QString& where, double low, double high, double& out)
    {
        // Qt reads a number too large for a double as infinity.
        if (!value.isDouble() || !std::isfinite(value.toDouble()) || value.toDouble() < low ||
            value.toDouble() > high)
            return refuse(where, QStringLiteral("must be a number from %1 to %2").arg(low).arg(high));
        out = value.toDouble();
        return true;
    }

    bool integer(const QJsonValue& value, const QString& where, int low, int high, int& out)
    {
        double number = 0;
        if (!this->number(value, where, low, high, number) || number != std::floor(number))
            return refuse(where, QStringLiteral("must be a whole number from %1 to %2").arg(low).arg(high));
        out = int(number);
        return true;
    }

    bool boolean(const QJsonValue& value, const QString& where, bool& out)
    {
        if (!value.isBool())
            return refuse(where, QStringLiteral("must be true or false"));
        out = value.toBool();
        return true;
    }

    bool color(const QJsonValue& value, const QString& where, QColor& out)
    {
        out = QColor::fromString(value.toString());
        if (!value.isString() || !out.isValid())
            return refuse(where, QStringLiteral("must be a colour such as \"#ffffffff\""));
        return true;
    }

    bool text(const QJsonValue& value, const QString& where, QString& out)
    {
        if (!value.isString() || value.toString().size() > kMaxTextLength)
            return refuse(where,
                          QStringLiteral("must be a text of at most %1 characters").arg(kMaxTextLength));
        out = value.toString();
        return true;
    }

    template <std::size_t N>
    bool numbers(const QJsonValue& value, const QString& where, double low, double high,
                 std::array<double, N>& out)
    {
        const QJsonArray array = value.toArray();
        if (!value.isArray() || array.size() != qsizetype(N))
            return refuse(where, QStringLiteral("must be %1 numbers").arg(N));
        for (qsizetype i = 0; i < array.size(); ++i) {
            if (!number(array[i], QStringLiteral("%1[%2]").arg(where).arg(i), low, high, out[std::size_t(i)]))
                return false;
        }
        return true;
    }

    bool version(const QJsonObject& object, const QString& where)
    {
        int version = 0;
        if (!integer(object.value(QStringLiteral("version")), where + QStringLiteral(".version"), 1,
                     1'000'000, version))
            return false;
        if (version > kStepVersion)
            return refuse(where, QStringLiteral("is of version %1, newer than this program reads (%2)")
                                     .arg(version)
                                     .arg(kStepVersion));
        return true;
    }

    bool crop(const QJsonObject& object, const QString& where, Crop& out)
    {
        std::array<double, 4> rect{};
        if (!numbers(object.value(QStringLiteral("rect")), where + QStringLiteral(".rect"), 0, 1, rect))
            return false;
        if (rect[2] <= 0 || rect[3] <= 0 || rect[0] + rect[2] > 1 + 1e-9 || rect[1] + rect[3] > 1 + 1e-9)
            return refuse(where + QStringLiteral(".rect"), QStringLiteral("must lie inside the picture"));
        out.rect = QRectF(rect[0], rect[1], rect[2], rect[3]);
        return integer(object.value(QStringLiteral("quarterTurns")), where + QStringLiteral(".quarterTurns"),
                       -3, 3, out.quarterTurns) &&
               number(object.value(QStringLiteral("degrees")), where + QStringLiteral(".degrees"), -360, 360,
                      out.degrees) &&
               boolean(object.value(QStringLiteral("flipHorizontal")),
                       where + QStringLiteral(".flipHorizontal"), out.flipHorizontal) &&
               boolean(object.value(QStringLiteral("flipVertical")), where + QStringLiteral(".flipVertical"),
                       out.flipVertical);
    }

    bool turnAndScale(const QJsonObject& object, const QString& where, double& degrees, double& scale)
    {
        return number(object.value(QStringLiteral("degrees")), where + QStringLiteral(".degrees"), -1e6, 1e6,
                      degrees) &&
               number(object.value(QStringLiteral("scale")), where + QStringLiteral(".scale"), 1e-6, 1e6,
                      scale);
    }

    bool item(const QJsonValue& value, const QString& where, qsizetype& pointsLeft, Item& out)
    {
        const QJsonObject object = value.toObject();
        const QString type = object.value(QStringLiteral("type")).toString();
        if (type == u"stroke") {
            Stroke stroke;
            const QJsonArray flat = object.value(QStringLiteral("points")).toArray();
            if (flat.size() % 2 != 0 || flat.isEmpty())
                return refuse(where + QStringLiteral(".points"), QStringLiteral("must be pairs of numbers"));
            if (flat.size() / 2 > pointsLeft)
                return refuse(where + QStringLiteral(".points"),
                              QStringLiteral("exceed %1 points in all").arg(kMaxPoints));
            pointsLeft -= flat.size() / 2;
            stroke.points.reserve(flat.size() / 2);
            for (qsizetype i = 0; i < flat.size(); i += 2) {
                double x = 0;
                double y = 0;
                const QString at = QStringLiteral("%1.points[%2]").arg(where).arg(i / 2);
                if (!number(flat[i], at, -kMaxPlace, kMaxPlace, x) ||
                    !number(flat[i + 1], at, -kMaxPlace, kMaxPlace, y))
                    return false;
                stroke.points.append(QPointF(x, y));
            }
            std::array<double, 4> box{};
            if (!numbers(object.value(QStringLiteral("box")), where + QStringLiteral(".box"), -kMaxPlace,
                         kMaxPlace, box) ||
                !color(object.value(QStringLiteral("color")), where + QStringLiteral(".color"),
                       stroke.color) ||
                !number(object.value(QStringLiteral("width")), where + QStringLiteral(".width"), 0, 1,
                        stroke.width) ||
                !turnAndScale(object, where, stroke.degrees, stroke.scale))
                return false;
            if (box[2] < 0 || box[3] < 0 || box[2] > 1 || box[3] > 1)
                return refuse(where + QStringLiteral(".box"),
                              QStringLiteral("must be no larger than the frame"));
            stroke.box = QRectF(box[0], box[1], box[2], box[3]);
            out = stroke;
            return true;
        }
        if (type == u"text") {
            Text text;
            std::array<double, 2> centre{};
            if (!this->text(object.value(QStringLiteral("text")), where + QStringLiteral(".text"),
                            text.text) ||
                !this->text(object.value(QStringLiteral("font")), where + QStringLiteral(".font"),
                            text.font) ||
                !number(object.value(QStringLiteral("size")), where + QStringLiteral(".size"), 0, 1,
                        text.size) ||
                !boolean(object.value(QStringLiteral("bold")), where + QStringLiteral(".bold"), text.bold) ||
                !boolean(object.value(QStringLiteral("italic")), where + QStringLiteral(".italic"),
                         text.italic) ||
                !boolean(object.value(QStringLiteral("uppercase")), where + QStringLiteral(".uppercase"),
                         text.uppercase) ||
                !color(object.value(QStringLiteral("color")), where + QStringLiteral(".color"), text.color) ||
                !numbers(object.value(QStringLiteral("centre")), where + QStringLiteral(".centre"),
                         -kMaxPlace, kMaxPlace, centre) ||
                !number(object.value(QStringLiteral("wrapWidth")), where + QStringLiteral(".wrapWidth"), 0, 1,
                        text.wrapWidth) ||
                !turnAndScale(object, where, text.degrees, text.scale))
                return false;
            text.centre = QPointF(centre[0], centre[1]);
            out = text;
            return true;
        }
        return refuse(where + QStringLiteral(".type"), QStringLiteral("must be \"stroke\" or \"text\""));
    }

    bool step(const QJsonValue& value, const QString& where, qsizetype& pointsLeft, Step& out)
    {
        const QJsonObject object = value.toObject();
        if (!value.isObject())
            return refuse(where, QStringLiteral("must be an object"));
        const QString operation = object.value(QStringLiteral("operation")).toString();
        if (operation != u"crop" && operation != u"color" && operation != u"overlays")
            return refuse(where + QStringLiteral(".operation"),
                          QStringLiteral("must be \"crop\", \"color\" or \"overlays\""));
        if (!version(object, where))
            return false;
        if (operation == u"crop") {
            Crop crop;
            if (!this->crop(object, where, crop))
                return false;
            out = crop;
            return true;
        }
        if (operation == u"color") {
            Color color;
            if (!numbers(object.value(QStringLiteral("values")), where + QStringLiteral(".values"), -1e6, 1e6,
                         color.values) ||
                !numbers(object.value(QStringLiteral("matrix")), where + QStringLiteral(".matrix"), -1e6, 1e6,
                         color.matrix))
                return false;
            out = color;
            return true;
        }
        const QJsonArray items = object.value(QStringLiteral("items")).toArray();
        if (items.size() > kMaxItems)
            return refuse(where + QStringLiteral(".items"), QStringLiteral("exceed %1 items").arg(kMaxItems));
        Overlays overlays;
        std::array<double, 2> frame{};
        if (!numbers(object.value(QStringLiteral("frame")), where + QStringLiteral(".frame"), 1, 100'000,
                     frame) ||
            !number(object.value(QStringLiteral("pixelRatio")), where + QStringLiteral(".pixelRatio"), 0.25,
                    8, overlays.pixelRatio))
            return false;
        overlays.frame = QSizeF(frame[0], frame[1]);
        for (qsizetype i = 0; i < items.size(); ++i) {
            Item item;
            if (!this->item(items[i], QStringLiteral("%1.items[%2]").arg(where).arg(i), pointsLeft, item))
                return false;
            overlays.items.append(item);
        }
        out = overlays;
        return true;
    }
};

} // namespace

QByteArray toJson(const Recipe& recipe)
{
    QJsonArray steps;
    for (const Step& step : recipe.steps)
        steps.append(stepToJson(step));
    QJsonObject output{{QStringLiteral("format"), recipe.output.format},
                       {QStringLiteral("quality"), recipe.output.quality}};
    if (recipe.output.resize)
        output.insert(QStringLiteral("resize"),
                      numbers({recipe.output.resize->width(), recipe.output.resize->height()}));
    const QJsonObject root{
        {QStringLiteral("format"), QString::fromLatin1(kFormatName)},
        {QStringLiteral("version"), kMajorVersion},
        {QStringLiteral("source"), QJsonObject{{QStringLiteral("width"), recipe.source.uprightSize.width()},
                                               {QStringLiteral("height"), recipe.source.uprightSize.height()},
                                               {QStringLiteral("sha256"), recipe.source.sha256}}},
        {QStringLiteral("steps"), steps},
        {QStringLiteral("output"), output}};
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

std::variant<Recipe, QString> fromJson(const QByteArray& json)
{
    if (json.size() > kMaxBytes)
        return QStringLiteral("The recipe is %1 bytes long; a recipe holds at most %2.")
            .arg(json.size())
            .arg(kMaxBytes);
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return QStringLiteral("The recipe is not valid JSON: %1 at byte %2.")
            .arg(error.errorString())
            .arg(error.offset);
    const QJsonObject root = document.object();
    if (root.value(QStringLiteral("format")).toString() != QLatin1String(kFormatName))
        return QStringLiteral("This is not an edit recipe: its \"format\" is not \"%1\".")
            .arg(QLatin1String(kFormatName));
    const QJsonValue major = root.value(QStringLiteral("version"));
    if (!major.isDouble() || major.toDouble() != kMajorVersion)
        return QStringLiteral("The recipe is of version %1; this program reads version %2.")
            .arg(major.isDouble() ? QString::number(major.toDouble()) : QStringLiteral("(none)"))
            .arg(kMajorVersion);

    Reader reader;
    Recipe recipe;
    const QJsonObject source = root.value(QStringLiteral("source")).toObject();
    int width = 0;
    int height = 0;
    if (!reader.integer(source.value(QStringLiteral("width")), QStringLiteral("source.width"), 1, 1'000'000,
                        width) ||
        !reader.integer(source.value(QStringLiteral("height")), QStringLiteral("source.height"), 1, 1'000'000,
                        height))
        return reader.refusal;
    recipe.source.uprightSize = QSize(width, height);
    recipe.source.sha256 = source.value(QStringLiteral("sha256")).toString();
    static const QRegularExpression hex(QStringLiteral("^([0-9a-f]{64})?$"));
    if (!hex.match(recipe.source.sha256).hasMatch())
        return QStringLiteral(
            "The recipe's source.sha256 must be 64 lower-case hexadecimal digits, or empty.");

    const QJsonArray steps = root.value(QStringLiteral("steps")).toArray();
    if (steps.size() > kMaxSteps)
        return QStringLiteral("The recipe has %1 steps; it may have at most %2.")
            .arg(steps.size())
            .arg(kMaxSteps);
    qsizetype pointsLeft = kMaxPoints;
    for (qsizetype i = 0; i < steps.size(); ++i) {
        Step step;
        if (!reader.step(steps[i], QStringLiteral("steps[%1]").arg(i), pointsLeft, step))
            return reader.refusal;
        recipe.steps.append(step);
    }

    const QJsonObject output = root.value(QStringLiteral("output")).toObject();
    recipe.output.format = output.value(QStringLiteral("format")).toString();
    if (recipe.output.format != u"jpg" && recipe.output.format != u"png")
        return QStringLiteral("The recipe's output.format must be \"jpg\" or \"png\".");
    if (!reader.integer(output.value(QStringLiteral("quality")), QStringLiteral("output.quality"), 0, 100,
                        recipe.output.quality))
        return reader.refusal;
    if (output.contains(QStringLiteral("resize"))) {
        std::array<double, 2> size{};
        if (!reader.numbers(output.value(QStringLiteral("resize")), QStringLiteral("output.resize"), 1,
                            1'000'000, size))
            return reader.refusal;
        recipe.output.resize = QSizeF(size[0], size[1]);
    }
    return recipe;
}

} // namespace EditRecipe
