#include "AdjustImageViewModel.h"

#include "Editor/Helpers/ImageHelpers.h"
#include "Editor/Helpers/ModuleResources.h"
#include "Logger/ModuleLog.h"

#include <QPainter>
#include <QSvgRenderer>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>

namespace {

// Entries 6 to 9 repeat the first four symbols.
const char* const kSymbols[] = {"pencil.circle.fill", "square.and.pencil.circle", "sleep.circle",
                                "snowflake.circle",   "tropicalstorm.circle",     "circle.dotted.circle.fill",
                                "pencil.circle.fill", "square.and.pencil.circle", "sleep.circle",
                                "snowflake.circle"};
// The entries' names, English as the catalogue defines them; the screen shows them translated.
const char* const kNames[] = {
    QT_TRANSLATE_NOOP("Filter", "None"),      QT_TRANSLATE_NOOP("Filter", "Adjust #1"),
    QT_TRANSLATE_NOOP("Filter", "Adjust #2"), QT_TRANSLATE_NOOP("Filter", "Adjust #3"),
    QT_TRANSLATE_NOOP("Filter", "Adjust #4"), QT_TRANSLATE_NOOP("Filter", "Adjust #5"),
    QT_TRANSLATE_NOOP("Filter", "Adjust #6"), QT_TRANSLATE_NOOP("Filter", "Adjust #7"),
    QT_TRANSLATE_NOOP("Filter", "Adjust #8"), QT_TRANSLATE_NOOP("Filter", "Adjust #9")};
static_assert(std::size(kNames) == std::size(kSymbols));

// As the platform writes a floating-point number: the shortest text that reads back as the same value, with
// ".0" on whole numbers, and exponents only for the very small and the very large.
std::string decimalText(double value)
{
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value < 0 ? "-inf" : "inf";
    char text[64];
    const double magnitude = std::abs(value);
    const bool plain = magnitude == 0 || (magnitude >= 1e-4 && magnitude < 9007199254740992.0);
    const auto end = std::to_chars(text, text + sizeof text, value,
                                   plain ? std::chars_format::fixed : std::chars_format::scientific)
                         .ptr;
    std::string result(text, end);
    if (plain && result.find('.') == std::string::npos)
        result += ".0";
    return result;
}

} // namespace

AdjustImageViewModel::AdjustImageViewModel(QImage image, ReturnAction returnAction, QObject* parent)
    : ColorPageViewModel(std::move(image), std::move(returnAction), parent)
{
    loadFilters();
    m_selectAdjustmentViewModel = new SelectAdjustmentViewModel(m_availableFilters, 48, 16, this, this);
    m_chooseIntensityViewModel = new ChooseIntensityLevelViewModel(QSizeF(2, 16), 41, 8, this, this);
}

void AdjustImageViewModel::loadFilters()
{
    m_availableFilters.clear();
    for (qint64 i = 0; i < qint64(std::size(kSymbols)); ++i) {
        m_availableFilters.append(
            {symbolImage(QString::fromLatin1(kSymbols[i]), 48), i, QString::fromLatin1(kNames[i])});
    }
}

void AdjustImageViewModel::applyFilter(const Filter&) {}

void AdjustImageViewModel::applyIntensity(qreal value)
{
    const std::string line = "applyIntensity(" + decimalText(value) + ")\n";
    std::fputs(line.c_str(), stdout);
    std::fflush(stdout);
}

std::optional<QImage> AdjustImageViewModel::applyAdjustment() const
{
    const auto& filter = selectedFilter();
    if (!filter)
        return std::nullopt;
    return filter->image;
}

QImage AdjustImageViewModel::symbolImage(const QString& name, qreal points)
{
    QSvgRenderer renderer(
        ModuleResources::path(QStringLiteral("Editor/Adjustment/Symbols/%1.svg").arg(name)));
    if (!renderer.isValid()) {
        qCCritical(quorvaneSdkImage,
                   "AdjustImageViewModel: the symbol \"%s\" is not in the component's resources",
                   qPrintable(name));
        qFatal("Unexpectedly found nil while unwrapping an Optional value");
    }
    QImage symbol = ImageHelpers::transparentCanvas(QSizeF(points, points));
    QPainter painter(&symbol);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(0, 0, points, points));
    return symbol;
}
